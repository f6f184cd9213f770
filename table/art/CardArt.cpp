#include "CardArt.h"

// First cut: blank pictures of the right sizes, so the table can be wired while the artwork is drawn.
namespace qx {
namespace CardArt {

QImage renderFaceStrip(QSize cell)
{
    QImage strip(cell.width() * StripColumns, cell.height() * StripRows, QImage::Format_ARGB32_Premultiplied);
    strip.fill(Qt::white);
    return strip;
}

QRect cellRect(int code, QSize cell)
{
    return QRect((code % StripColumns) * cell.width(), (code / StripColumns) * cell.height(), cell.width(),
                 cell.height());
}

static QImage blank(QSize size, QColor colour)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(colour);
    return image;
}

QImage renderBuiltinBack(QSize size) { return blank(size, Qt::darkBlue); }
int backDesignCount() { return 8; }
QImage renderBackDesign(int design, QSize size) { return blank(size, QColor::fromHsv(design * 40 % 360, 200, 160)); }
QImage renderSplashPicture(QSize size) { return blank(size, Qt::white); }
QImage renderSplashMask(QSize size) { return blank(size, Qt::black); }
QImage renderWaitPicture(int index, QSize size) { return blank(size, QColor::fromHsv(index * 90, 200, 200)); }
QImage renderAppIcon(int size) { return blank(QSize(size, size), Qt::darkGreen); }

} // namespace CardArt

QPixmap CardImages::face(int code, QSize size, qreal dpr)
{
    if (code < 0 || code > 51)
        return {};
    const QSize device = (QSizeF(size) * dpr).toSize();
    if (device != m_stripCell) {
        m_strip = CardArt::renderFaceStrip(device);
        m_stripCell = device;
    }
    auto pixmap = QPixmap::fromImage(m_strip.copy(CardArt::cellRect(code, device)));
    pixmap.setDevicePixelRatio(dpr);
    return pixmap;
}

QPixmap CardImages::back(QSize size, qreal dpr)
{
    const QSize device = (QSizeF(size) * dpr).toSize();
    auto pixmap = QPixmap::fromImage(m_backPicture.isNull() ? CardArt::renderBuiltinBack(device)
                                                            : m_backPicture.scaled(device));
    pixmap.setDevicePixelRatio(dpr);
    return pixmap;
}

void CardImages::setBackPicture(const QImage &picture) { m_backPicture = picture; }

} // namespace qx
