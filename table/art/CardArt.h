#pragma once

#include <QImage>
#include <QPixmap>
#include <QSize>

#include <map>
#include <tuple>
#include <vector>

namespace qx {

// The program draws all of its own pictures: card faces, the built-in back, the splash picture
// and its mask, the four pictures of the network waiting indicator and the program's icon.
namespace CardArt {

// The design size of one card cell, in pixels; every other size is a scale of it.
constexpr QSize DesignCell{71, 96};
constexpr int StripColumns = 13; // one column per rank, ace first
constexpr int StripRows = 4;     // one row per suit

// The face strip: 13 columns by 4 rows of cells, the face of card code c in row c / 13 and
// column c % 13. Drawn as vector graphics at `cell` device pixels per card. Rows top to bottom:
// clubs, diamonds, hearts, spades; columns ace to king. Outside the rounded card the strip is
// transparent. Cells narrower than 54 pixels get enlarged corner indices.
QImage renderFaceStrip(QSize cell);
// The cell of card code c in a strip with cells of the given size.
QRect cellRect(int code, QSize cell);
// The built-in back (back number 0).
QImage renderBuiltinBack(QSize size);
// Back designs for the deck*.bmp files the build ships; `design` from 1 up to backDesignCount().
// A design number outside that range gives an empty image.
int backDesignCount();
QImage renderBackDesign(int design, QSize size);
// The splash picture (a fanned hand of three cards, black around it) and its mask (black where
// the picture shows, white elsewhere): AND the mask onto the background, then OR the picture.
QImage renderSplashPicture(QSize size);
QImage renderSplashMask(QSize size);
// The splash window's size and where its picture sits: the picture at twice the design size.
QSize splashWindowSize();
QRect splashPictureRect();
// The splash window's backdrop: green felt in a gold frame, the title "QX" and a line of
// advice beside the picture's place.
QImage renderSplashBackdrop();
// Where the splash window writes its line under the title, on the backdrop.
QRect splashTaglineRect();
// The network waiting indicator: four pictures of an hourglass shown in turn (index 0..3; other
// numbers wrap round), transparent around it.
QImage renderWaitPicture(int index, QSize size);
// The picture with everything outside the card's rounded outline made transparent, so a square
// back picture (a deck*.bmp file has no transparency) sits on the table like the faces do.
QImage cutToCardShape(const QImage &picture);
// The program's icon: fanned cards on green baize, the front one showing "99".
QImage renderAppIcon(int size);
// The size of the icon on the window (and in the About box); the desktop's icon is larger.
constexpr int WindowIconSize = 64;

} // namespace CardArt

// Card pictures at the size the table needs, cut from a face strip rendered once per size and
// device pixel ratio. Faces are kept for the few sizes asked for most recently, so the same size
// twice gives the same pixmap (same cacheKey()). Needs a QGuiApplication (pixmaps).
class CardImages {
public:
    // Face of card code 0..51 for a slot of `size` device-independent pixels; any other code, or
    // an empty size, gives a null pixmap.
    QPixmap face(int code, QSize size, qreal dpr);
    // The current back at that size: the built-in back, or the chosen picture scaled smoothly
    // and cut to the card's rounded outline.
    QPixmap back(QSize size, qreal dpr);
    // A back picture chosen by the player (empty image: the built-in back).
    void setBackPicture(const QImage &picture);

private:
    void forgetOldSizes(QSize newest);

    QSize m_stripCell;
    QImage m_strip;
    QImage m_backPicture;
    std::map<std::tuple<int, int, int>, QPixmap> m_faces; // code, width, height (device pixels)
    std::map<std::tuple<int, int>, QPixmap> m_backs;      // width, height (device pixels)
    std::vector<QSize> m_faceSizes;                       // sizes in m_faces, most recent last
};

} // namespace qx
