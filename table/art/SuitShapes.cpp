#include "ArtParts.h"

#include <QPainter>

#include <algorithm>
#include <array>

namespace qx::CardArt {

namespace {

QPainterPath heartPath()
{
    QPainterPath p;
    p.moveTo(0, 0.5);
    p.cubicTo(-0.14, 0.30, -0.5, 0.10, -0.5, -0.17);
    p.cubicTo(-0.5, -0.38, -0.36, -0.5, -0.25, -0.5);
    p.cubicTo(-0.12, -0.5, -0.03, -0.43, 0, -0.30);
    p.cubicTo(0.03, -0.43, 0.12, -0.5, 0.25, -0.5);
    p.cubicTo(0.36, -0.5, 0.5, -0.38, 0.5, -0.17);
    p.cubicTo(0.5, 0.10, 0.14, 0.30, 0, 0.5);
    p.closeSubpath();
    return p;
}

QPainterPath diamondPath()
{
    // Slightly hollow sides, as printed pips have.
    QPainterPath p;
    p.moveTo(0, -0.5);
    p.quadTo(0.16, -0.19, 0.40, 0);
    p.quadTo(0.16, 0.19, 0, 0.5);
    p.quadTo(-0.16, 0.19, -0.40, 0);
    p.quadTo(-0.16, -0.19, 0, -0.5);
    p.closeSubpath();
    return p;
}

QPainterPath stemPath()
{
    QPainterPath p;
    p.moveTo(-0.035, 0.18);
    p.quadTo(-0.05, 0.40, -0.20, 0.5);
    p.lineTo(0.20, 0.5);
    p.quadTo(0.05, 0.40, 0.035, 0.18);
    p.closeSubpath();
    return p;
}

QPainterPath spadePath()
{
    QPainterPath body;
    body.moveTo(0, -0.5);
    body.cubicTo(0.12, -0.30, 0.5, -0.12, 0.5, 0.11);
    body.cubicTo(0.5, 0.30, 0.36, 0.38, 0.25, 0.38);
    body.cubicTo(0.14, 0.38, 0.06, 0.32, 0.02, 0.24);
    body.lineTo(-0.02, 0.24);
    body.cubicTo(-0.06, 0.32, -0.14, 0.38, -0.25, 0.38);
    body.cubicTo(-0.36, 0.38, -0.5, 0.30, -0.5, 0.11);
    body.cubicTo(-0.5, -0.12, -0.12, -0.30, 0, -0.5);
    body.closeSubpath();
    return body.united(stemPath());
}

QPainterPath clubPath()
{
    const qreal r = 0.215;
    QPainterPath p;
    p.addEllipse(QPointF(0, -0.28), r, r);
    p.addEllipse(QPointF(-0.27, 0.06), r, r);
    p.addEllipse(QPointF(0.27, 0.06), r, r);
    QPainterPath heart;
    heart.addEllipse(QPointF(0, -0.02), 0.12, 0.14);
    return p.united(heart).united(stemPath());
}

} // namespace

const QRectF &designRect()
{
    static const QRectF rect(0, 0, DesignWidth, DesignHeight);
    return rect;
}

QColor inkColour(Suit suit)
{
    return isRed(suit) ? QColor(204, 22, 38) : QColor(24, 24, 30);
}

const QPainterPath &suitPath(Suit suit)
{
    static const std::array<QPainterPath, 4> paths{clubPath(), diamondPath(), heartPath(), spadePath()};
    return paths[static_cast<int>(suit)];
}

void drawSuit(QPainter &painter, Suit suit, QPointF centre, qreal height, bool upsideDown)
{
    painter.save();
    painter.translate(centre);
    painter.scale(height, upsideDown ? -height : height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(inkColour(suit));
    painter.drawPath(suitPath(suit));
    painter.restore();
}

QFont indexFont()
{
    QFont font(QStringLiteral("DejaVu Serif"), 48, QFont::Bold);
    font.setStretch(QFont::SemiCondensed);
    font.setStyleHint(QFont::Serif, QFont::PreferOutline);
    return font;
}

QString rankText(int rank)
{
    static const std::array<const char *, 13> names{"A", "2", "3", "4", "5", "6", "7", "8", "9", "10", "J", "Q", "K"};
    return QString::fromLatin1(names[static_cast<std::size_t>(std::clamp(rank, 1, 13) - 1)]);
}

QPainterPath fittedText(const QString &text, const QFont &font, const QRectF &box)
{
    QPainterPath raw;
    raw.addText(0, 0, font, text);
    const QRectF bounds = raw.boundingRect();
    if (bounds.isEmpty())
        return raw;
    const qreal scaleY = box.height() / bounds.height();
    const qreal scaleX = std::min(scaleY, box.width() / bounds.width());
    QTransform fit;
    fit.translate(box.center().x(), box.center().y());
    fit.scale(scaleX, scaleY);
    fit.translate(-bounds.center().x(), -bounds.center().y());
    return fit.map(raw);
}

QPainterPath cardOutline(qreal inset)
{
    QPainterPath p;
    const qreal radius = std::max(1.0, 5.5 - inset);
    p.addRoundedRect(designRect().adjusted(inset, inset, -inset, -inset), radius, radius);
    return p;
}

void drawCardBody(QPainter &painter, qreal unitsPerPixel, const QColor &fill)
{
    const qreal border = std::max(0.75, unitsPerPixel);
    painter.save();
    painter.setPen(QPen(QColor(96, 96, 104), border));
    painter.setBrush(fill);
    painter.drawPath(cardOutline(border / 2));
    painter.restore();
}

} // namespace qx::CardArt
