#include "ArtParts.h"
#include "CardArt.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace qx::CardArt {

namespace {

// Pip columns and rows as on printed cards; lower-half pips are drawn upside down.
constexpr qreal ColLeft = 21.6;
constexpr qreal ColMid = 35.5;
constexpr qreal ColRight = 49.4;
constexpr qreal RowTop = 18.5;
constexpr qreal RowBottom = 77.5;
constexpr qreal RowMid = 48.0;
constexpr qreal PipHeight = 13.0;
constexpr qreal Quarter = (RowBottom - RowTop) / 3.0;

// Below this width (in device pixels) the corner index is enlarged and the middle of the card
// shrunk a little around it, so the rank stays legible on the smallest table. The index then
// shows the rank alone: the pips in the middle already tell the suit.
constexpr int CompactBelowWidth = 54;
constexpr qreal CompactMiddleScale = 0.84;
// The radius of the card's rounded corners (cardOutline).
constexpr qreal CornerRadius = 5.5;

std::vector<QPointF> pipLayout(int rank)
{
    const QPointF tl{ColLeft, RowTop}, tr{ColRight, RowTop};
    const QPointF bl{ColLeft, RowBottom}, br{ColRight, RowBottom};
    const QPointF ml{ColLeft, RowMid}, mr{ColRight, RowMid};
    switch (rank) {
    case 2: return {{ColMid, RowTop}, {ColMid, RowBottom}};
    case 3: return {{ColMid, RowTop}, {ColMid, RowMid}, {ColMid, RowBottom}};
    case 4: return {tl, tr, bl, br};
    case 5: return {tl, tr, {ColMid, RowMid}, bl, br};
    case 6: return {tl, tr, ml, mr, bl, br};
    case 7: return {tl, tr, {ColMid, (RowTop + RowMid) / 2}, ml, mr, bl, br};
    case 8: return {tl, tr, {ColMid, (RowTop + RowMid) / 2}, ml, mr, {ColMid, (RowMid + RowBottom) / 2}, bl, br};
    case 9:
    case 10: {
        std::vector<QPointF> pips;
        for (int row = 0; row < 4; ++row) {
            const qreal y = RowTop + row * Quarter;
            pips.emplace_back(ColLeft, y);
            pips.emplace_back(ColRight, y);
        }
        if (rank == 9) {
            pips.emplace_back(ColMid, RowMid);
        } else {
            pips.emplace_back(ColMid, RowTop + Quarter / 2);
            pips.emplace_back(ColMid, RowBottom - Quarter / 2);
        }
        return pips;
    }
    default: return {};
    }
}

void drawAce(QPainter &painter, Suit suit)
{
    const QPointF centre{DesignWidth / 2, DesignHeight / 2};
    if (suit != Suit::Spades) {
        drawSuit(painter, suit, centre, 30);
        return;
    }
    // The ace of spades carries the pack's ornament: a large spade inside a thin echo of itself.
    painter.save();
    painter.translate(centre);
    painter.scale(46, 46);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(inkColour(suit), 0.9 / 46));
    painter.drawPath(suitPath(suit));
    painter.restore();
    drawSuit(painter, suit, centre, 36);
}

void drawCornerIndex(QPainter &painter, Suit suit, int rank, bool compact, qreal unitsPerPixel)
{
    QRectF rankBox = compact ? QRectF(1.6, 2.2, 14.6, 18.0) : QRectF(2.3, 3.3, 10.2, 11.2);
    if (compact) {
        // On the smallest cards the border is more than a unit wide: the index starts clear of
        // it, and its corner clear of the card's rounded corner (radius CornerRadius).
        const qreal border = std::max(0.75, unitsPerPixel);
        const qreal clear = std::max(border + 0.6 * unitsPerPixel,
                                     CornerRadius - (CornerRadius - border) / std::numbers::sqrt2 + 0.4 * unitsPerPixel);
        rankBox.setTopLeft({std::max(rankBox.left(), clear), std::max(rankBox.top(), clear)});
    }
    // "10" is two glyphs in the space of one: let it use a little more width (to the left only
    // where the wide border leaves none).
    const QRectF box = rank == 10 ? rankBox.adjusted(compact ? 0 : -0.8, 0, 0.8, 0) : rankBox;
    painter.setPen(Qt::NoPen);
    painter.setBrush(inkColour(suit));
    painter.drawPath(fittedText(rankText(rank), indexFont(), box));
    if (!compact)
        drawSuit(painter, suit, QPointF(7.4, 21.2), 8.0);
}

} // namespace

void drawFace(QPainter &painter, int code, qreal unitsPerPixel)
{
    const Suit suit = suitOfCode(code);
    const int rank = rankOfCode(code);
    const bool compact = unitsPerPixel > DesignWidth / CompactBelowWidth;

    drawCardBody(painter, unitsPerPixel);

    painter.save();
    if (compact) {
        painter.translate(DesignWidth / 2, DesignHeight / 2);
        painter.scale(CompactMiddleScale, CompactMiddleScale);
        painter.translate(-DesignWidth / 2, -DesignHeight / 2);
    }
    if (rank == 1) {
        drawAce(painter, suit);
    } else if (rank <= 10) {
        for (const QPointF &pip : pipLayout(rank))
            drawSuit(painter, suit, pip, PipHeight, pip.y() > RowMid + 0.5);
    } else {
        drawCourtPanel(painter, suit, rank, unitsPerPixel / (compact ? CompactMiddleScale : 1.0));
    }
    painter.restore();

    for (int end = 0; end < 2; ++end) {
        painter.save();
        if (end == 1) {
            painter.translate(DesignWidth, DesignHeight);
            painter.rotate(180);
        }
        drawCornerIndex(painter, suit, rank, compact, unitsPerPixel);
        painter.restore();
    }
}

QRect cellRect(int code, QSize cell)
{
    return QRect((code % StripColumns) * cell.width(), (code / StripColumns) * cell.height(), cell.width(),
                 cell.height());
}

QImage renderFaceStrip(QSize cell)
{
    if (cell.isEmpty())
        return {};
    QImage strip(cell.width() * StripColumns, cell.height() * StripRows, QImage::Format_ARGB32_Premultiplied);
    strip.fill(Qt::transparent);
    QPainter painter(&strip);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const qreal scaleX = cell.width() / DesignWidth;
    const qreal scaleY = cell.height() / DesignHeight;
    const qreal unitsPerPixel = 1.0 / std::min(scaleX, scaleY);
    for (int code = 0; code < StripColumns * StripRows; ++code) {
        painter.save();
        painter.translate(cellRect(code, cell).topLeft());
        painter.scale(scaleX, scaleY);
        drawFace(painter, code, unitsPerPixel);
        painter.restore();
    }
    return strip;
}

} // namespace qx::CardArt
