#include "ArtParts.h"
#include "CardArt.h"

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

#include <array>

// The splash picture and its mask, the network waiting indicator and the program's icon.

namespace qx::CardArt {

namespace {

// Opacity from which a pixel of the splash counts as part of the picture. The mask is all or
// nothing, so the picture keeps its full colour up to that edge instead of fading into black.
constexpr int SplashOpaqueFrom = 96;

// Lays cards fanned about a common point below them and scales the fan to fit `size`.
QImage drawFan(QSize size, const std::array<int, 3> &codes, qreal spreadDegrees)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (size.isEmpty())
        return image;

    const QPointF pivot(0, DesignHeight * 1.1);
    std::array<QTransform, 3> place;
    QRectF bounds;
    for (std::size_t i = 0; i < place.size(); ++i) {
        QTransform t;
        t.translate(pivot.x(), pivot.y());
        t.rotate((static_cast<qreal>(i) - 1.0) * spreadDegrees);
        t.translate(-DesignWidth / 2, -pivot.y());
        place[i] = t;
        bounds = bounds.united(t.mapRect(designRect()));
    }
    const qreal margin = 0.03 * std::min(size.width(), size.height());
    const qreal scale = std::min((size.width() - 2 * margin) / bounds.width(),
                                 (size.height() - 2 * margin) / bounds.height());

    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(size.width() / 2.0, size.height() / 2.0);
    painter.scale(scale, scale);
    painter.translate(-bounds.center());
    for (std::size_t i = 0; i < place.size(); ++i) {
        painter.save();
        painter.setTransform(place[i], true);
        drawFace(painter, codes[i], 1.0 / scale);
        painter.restore();
    }
    return image;
}

QImage splashFan(QSize size)
{
    // A king to turn the play, an ace, and the nine that makes it 99.
    return drawFan(size, {51, 26, 34}, 20.0);
}

QPainterPath hourglassGlass()
{
    QPainterPath glass;
    glass.moveTo(9, 5);
    glass.lineTo(23, 5);
    glass.cubicTo(23, 11, 20, 14, 17, 16);
    glass.cubicTo(20, 18, 23, 21, 23, 27);
    glass.lineTo(9, 27);
    glass.cubicTo(9, 21, 12, 18, 15, 16);
    glass.cubicTo(12, 14, 9, 11, 9, 5);
    glass.closeSubpath();
    return glass;
}

// An hourglass on a 32 x 32 grid; `upper` is the share of the sand still in the upper bulb.
void drawHourglass(QPainter &p, qreal upper, bool falling)
{
    const QPainterPath glass = hourglassGlass();
    const QColor sand(226, 170, 60);

    p.setPen(Qt::NoPen);
    p.setBrush(QColor(220, 235, 250, 150));
    p.drawPath(glass);

    p.save();
    p.setClipPath(glass);
    p.setBrush(sand);
    // Upper bulb: sand sits above the neck, its top sinking as it runs out.
    if (upper > 0.0)
        p.drawRect(QRectF(8, 16 - 10.5 * upper, 16, 10.5 * upper));
    // Lower bulb: a heap growing from the bottom.
    const qreal lower = 1.0 - upper;
    if (lower > 0.0) {
        QPainterPath heap;
        const qreal top = 27 - 10.5 * lower;
        heap.moveTo(8, 27);
        heap.lineTo(8, top + 3.0 * lower);
        heap.quadTo(16, top - 2.0 * lower, 24, top + 3.0 * lower);
        heap.lineTo(24, 27);
        heap.closeSubpath();
        p.drawPath(heap);
    }
    if (falling)
        p.drawRect(QRectF(15.5, 16, 1.0, 11));
    p.restore();

    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(70, 90, 110), 1.0));
    p.drawPath(glass);

    // Wooden plates and posts.
    const QColor wood(132, 82, 40);
    p.setPen(QPen(QColor(70, 40, 20), 0.7));
    p.setBrush(wood);
    p.drawRoundedRect(QRectF(5, 2.2, 22, 3.2), 1.2, 1.2);
    p.drawRoundedRect(QRectF(5, 26.6, 22, 3.2), 1.2, 1.2);
    p.drawRect(QRectF(6.2, 5.4, 1.4, 21.2));
    p.drawRect(QRectF(24.4, 5.4, 1.4, 21.2));
}

} // namespace

QImage renderSplashPicture(QSize size)
{
    const QImage fan = splashFan(size);
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::black);
    for (int y = 0; y < fan.height(); ++y) {
        for (int x = 0; x < fan.width(); ++x) {
            const QColor c = fan.pixelColor(x, y); // unpremultiplied
            if (c.alpha() >= SplashOpaqueFrom)
                picture.setPixelColor(x, y, QColor(c.red(), c.green(), c.blue()));
        }
    }
    return picture;
}

QImage renderSplashMask(QSize size)
{
    const QImage fan = splashFan(size);
    QImage mask(size, QImage::Format_RGB32);
    mask.fill(Qt::white);
    for (int y = 0; y < fan.height(); ++y) {
        for (int x = 0; x < fan.width(); ++x) {
            if (qAlpha(fan.pixel(x, y)) >= SplashOpaqueFrom)
                mask.setPixel(x, y, qRgb(0, 0, 0));
        }
    }
    return mask;
}

QSize splashWindowSize() { return splashPictureRect().size() + QSize(260, 48); }

QRect splashPictureRect() { return QRect(QPoint(24, 24), DesignCell * 2); }

QRect splashTaglineRect()
{
    const int left = splashPictureRect().right() + 28;
    return QRect(left, 104, splashWindowSize().width() - left - 16, 60);
}

QImage renderSplashBackdrop()
{
    const QSize size = splashWindowSize();
    QImage backdrop(size, QImage::Format_RGB32);
    QPainter p(&backdrop);
    QLinearGradient back(0, 0, 0, size.height());
    back.setColorAt(0, QColor(30, 108, 62));
    back.setColorAt(1, QColor(14, 60, 34));
    p.fillRect(backdrop.rect(), back);
    p.setPen(QPen(QColor(255, 208, 84), 2));
    p.drawRect(backdrop.rect().adjusted(1, 1, -2, -2));

    QFont title(QStringLiteral("DejaVu Sans"));
    title.setBold(true);
    title.setPixelSize(56);
    p.setFont(title);
    p.setPen(QColor(255, 208, 84));
    const int textLeft = splashPictureRect().right() + 28;
    p.drawText(QRect(textLeft, 24, size.width() - textLeft - 16, 80), Qt::AlignLeft | Qt::AlignVCenter,
               QStringLiteral("QX"));
    // The line under the title is the splash window's own, in the player's language.
    return backdrop;
}

QImage renderWaitPicture(int index, QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (size.isEmpty())
        return image;
    const int frame = ((index % 4) + 4) % 4;
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing);
    const qreal scale = std::min(size.width(), size.height()) / 32.0;
    painter.translate((size.width() - 32 * scale) / 2, (size.height() - 32 * scale) / 2);
    painter.scale(scale, scale);
    switch (frame) {
    case 0: drawHourglass(painter, 1.0, true); break;
    case 1: drawHourglass(painter, 0.62, true); break;
    case 2: drawHourglass(painter, 0.25, true); break;
    default:
        // Run out and being turned over for the next wait.
        painter.translate(16, 16);
        painter.rotate(90);
        painter.translate(-16, -16);
        drawHourglass(painter, 0.0, false);
        break;
    }
    return image;
}

QImage renderAppIcon(int size)
{
    if (size <= 0)
        return {};
    QImage icon(size, size, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(size / 128.0, size / 128.0);

    // Green baize tile.
    QRadialGradient baize(QPointF(64, 52), 90);
    baize.setColorAt(0, QColor(46, 150, 84));
    baize.setColorAt(1, QColor(14, 82, 44));
    painter.setPen(QPen(QColor(8, 56, 30), 2.0));
    painter.setBrush(baize);
    painter.drawRoundedRect(QRectF(4, 4, 120, 120), 22, 22);

    // Two cards behind, fanned, and the front card carrying "99".
    const qreal cardScale = 0.84;
    const std::array<qreal, 3> angles{-22.0, -6.0, 12.0};
    for (std::size_t i = 0; i < angles.size(); ++i) {
        painter.save();
        painter.translate(64, 122);
        painter.rotate(angles[i]);
        painter.scale(cardScale, cardScale);
        painter.translate(-DesignWidth / 2, -DesignHeight - 30);
        if (i == 0) {
            drawBack(painter, 0, 1.2);
        } else if (i == 1) {
            drawFace(painter, 47, 1.2); // nine of spades
        } else {
            drawCardBody(painter, 1.2);
            painter.setPen(Qt::NoPen);
            painter.setBrush(inkColour(Suit::Hearts));
            painter.drawPath(fittedText(QStringLiteral("99"), indexFont(), QRectF(9, 26, 53, 40)));
            drawSuit(painter, Suit::Hearts, QPointF(12, 12), 11);
            drawSuit(painter, Suit::Hearts, QPointF(DesignWidth - 12, DesignHeight - 12), 11, true);
        }
        painter.restore();
    }
    return icon;
}

} // namespace qx::CardArt
