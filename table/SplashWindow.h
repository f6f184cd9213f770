#pragma once

#include <QImage>
#include <QWidget>

class QLabel;

namespace qx {

// frmIntro: the start-up picture with "Loading . . ." under it, shown while the main window
// loads.
class SplashWindow : public QWidget {
    Q_OBJECT
public:
    explicit SplashWindow(QWidget *parent = nullptr);

    // Form_Activate: draws the picture over the background through its mask and shows
    // "Loading . . ." at once, before the long work starts.
    void drawSplash();

    // The drawing surface Picture1 after drawSplash().
    QImage picture1() const { return m_surface; }

    // The two raster operations of the splash: the mask ANDed onto the background cuts the shape
    // out, the picture ORed onto it fills the cut-out.
    static QImage composite(const QImage &background, const QImage &mask, const QImage &picture);

    QLabel *Label2 = nullptr;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_backdrop;
    QImage m_surface;
    QRect m_pictureRect;
};

} // namespace qx
