#pragma once

#include <QImage>
#include <QPixmap>
#include <QSize>

#include <map>
#include <tuple>

namespace qx {

// The program draws all of its own pictures: card faces, the built-in back, the splash picture
// and its mask, the four pictures of the network waiting indicator and the program's icon.
namespace CardArt {

// The design size of one card cell, in pixels; every other size is a scale of it.
constexpr QSize DesignCell{71, 96};
constexpr int StripColumns = 13; // one column per rank, ace first
constexpr int StripRows = 4;     // one row per suit

// The face strip: 13 columns by 4 rows of cells, the face of card code c in row c / 13 and
// column c % 13. Drawn as vector graphics at `cell` device pixels per card.
QImage renderFaceStrip(QSize cell);
// The cell of card code c in a strip with cells of the given size.
QRect cellRect(int code, QSize cell);
// The built-in back (back number 0).
QImage renderBuiltinBack(QSize size);
// Back designs for the deck*.bmp files the build ships; `design` from 1 up to backDesignCount().
int backDesignCount();
QImage renderBackDesign(int design, QSize size);
// The splash picture and its mask (black where the picture shows, white elsewhere).
QImage renderSplashPicture(QSize size);
QImage renderSplashMask(QSize size);
// The network waiting indicator: four pictures shown in turn (index 0..3).
QImage renderWaitPicture(int index, QSize size);
// The program's icon.
QImage renderAppIcon(int size);

} // namespace CardArt

// Card pictures at the size the table needs, cut from a face strip rendered once per size and
// device pixel ratio and kept until the size changes.
class CardImages {
public:
    // Face of card code 0..51 for a slot of `size` device-independent pixels.
    QPixmap face(int code, QSize size, qreal dpr);
    // The current back at that size.
    QPixmap back(QSize size, qreal dpr);
    // A back picture chosen by the player (empty image: the built-in back).
    void setBackPicture(const QImage &picture);

private:
    QSize m_stripCell;
    QImage m_strip;
    QImage m_backPicture;
    std::map<std::tuple<int, int, int>, QPixmap> m_faces; // code, width, height (device pixels)
    std::map<std::tuple<int, int>, QPixmap> m_backs;      // width, height (device pixels)
};

} // namespace qx
