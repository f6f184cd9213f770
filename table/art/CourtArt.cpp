#include "ArtParts.h"

#include <QPainter>

// The jack, queen and king: a framed panel holding a double-ended bust, as court cards are
// printed so they read the same either way up. The figures are plain geometric shapes.

namespace qx::CardArt {

namespace {

const QRectF PanelRect(13.8, 12.8, 43.4, 70.4);
const QColor Gold(226, 178, 38);
const QColor GoldDark(150, 105, 20);
const QColor Skin(247, 214, 182);
const QColor Cream(252, 245, 226);
const QColor Royal(34, 70, 158);
const QColor Crimson(198, 30, 45);
const QColor Sable(34, 36, 46);
const QColor Forest(26, 110, 72);

struct Palette {
    QColor robe;
    QColor trim;
    QColor ink;
};

Palette paletteFor(Suit suit)
{
    switch (suit) {
    case Suit::Clubs: return {Sable, Royal, inkColour(suit)};
    case Suit::Diamonds: return {Crimson, Sable, inkColour(suit)};
    case Suit::Hearts: return {Crimson, Royal, inkColour(suit)};
    case Suit::Spades: return {Sable, Forest, inkColour(suit)};
    }
    return {Sable, Forest, inkColour(suit)};
}

// Black suits wear no red, so a court's colours alone tell its suit's colour.
// One half of the panel, in its own coordinates: x 0..w, y 0..h, the figure centred on x = w / 2.
class Bust {
public:
    Bust(QPainter &painter, Suit suit, int rank, qreal w, qreal h, qreal line)
        : p(painter), suit(suit), rank(rank), w(w), h(h), cx(w / 2), line(line), colours(paletteFor(suit))
    {
    }

    void draw()
    {
        drawAttributeBehind();
        drawRobe();
        drawHairBehind();
        drawHead();
        drawHeadgear();
        drawMarks();
    }

private:
    QPen outline() const { return QPen(QColor(40, 30, 25), line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin); }

    void drawRobe()
    {
        // Shoulders spread to the panel's edges and meet the mirrored half at the sash.
        QPainterPath robe;
        robe.moveTo(-1, h + 1);
        robe.lineTo(-1, 27.5);
        robe.cubicTo(1.0, 24.2, 8.0, 23.2, cx, 23.0);
        robe.cubicTo(w - 8.0, 23.2, w - 1.0, 24.2, w + 1, 27.5);
        robe.lineTo(w + 1, h + 1);
        robe.closeSubpath();
        p.setPen(outline());
        p.setBrush(colours.robe);
        p.drawPath(robe);

        // Arms folded in front, only as lines: enough to read as a figure at card size.
        p.setPen(QPen(colours.robe.lighter(175), 0.7, Qt::SolidLine, Qt::RoundCap));
        p.setBrush(Qt::NoBrush);
        QPainterPath arms;
        arms.moveTo(4.0, h);
        arms.cubicTo(4.6, 31.5, 6.8, 28.2, 10.2, 26.6);
        arms.moveTo(w - 4.0, h);
        arms.cubicTo(w - 4.6, 31.5, w - 6.8, 28.2, w - 10.2, 26.6);
        p.drawPath(arms);

        // A gold-edged opening down the front, with buttons.
        QPainterPath opening;
        opening.moveTo(cx - 6.0, 23.5);
        opening.lineTo(cx - 2.2, h + 1);
        opening.lineTo(cx + 2.2, h + 1);
        opening.lineTo(cx + 6.0, 23.5);
        opening.closeSubpath();
        p.setBrush(colours.trim);
        p.setPen(QPen(Gold, 0.9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawPath(opening);
        p.setPen(Qt::NoPen);
        p.setBrush(Gold);
        for (int i = 0; i < 3; ++i)
            p.drawEllipse(QPointF(cx, 26.6 + i * 2.6), 0.6, 0.6);

        // The sash where the two halves meet, with small signs of the suit.
        p.setPen(QPen(GoldDark, line));
        p.setBrush(Gold);
        p.drawRect(QRectF(-1, h - 2.0, w + 2, 3.0));
        for (qreal x : {5.5, w - 5.5})
            drawSuit(p, suit, QPointF(x, h - 0.6), 1.9, true);

        if (rank == 13) {
            // An ermine collar.
            QPainterPath collar;
            collar.moveTo(cx - 9.5, 24.6);
            collar.cubicTo(cx - 5, 22.0, cx + 5, 22.0, cx + 9.5, 24.6);
            collar.cubicTo(cx + 5, 26.8, cx - 5, 26.8, cx - 9.5, 24.6);
            p.setPen(QPen(QColor(120, 120, 130), line * 0.7));
            p.setBrush(Qt::white);
            p.drawPath(collar);
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(30, 30, 30));
            for (qreal x : {-6.5, -3.2, 3.2, 6.5})
                p.drawEllipse(QPointF(cx + x, 24.5), 0.35, 0.6);
        }
    }

    void drawHairBehind()
    {
        if (rank != 12)
            return;
        // The queen's hair falls to her shoulders behind the face.
        QPainterPath hair;
        hair.moveTo(cx - 5.2, 11);
        hair.cubicTo(cx - 8.5, 14, cx - 8.5, 22, cx - 6.8, 25.5);
        hair.lineTo(cx + 6.8, 25.5);
        hair.cubicTo(cx + 8.5, 22, cx + 8.5, 14, cx + 5.2, 11);
        hair.closeSubpath();
        p.setPen(outline());
        p.setBrush(QColor(196, 132, 44));
        p.drawPath(hair);
    }

    void drawHead()
    {
        p.setPen(outline());
        p.setBrush(Skin);
        p.drawRect(QRectF(cx - 1.8, 19.5, 3.6, 4.0));
        p.drawEllipse(QPointF(cx, 15.8), 4.9, 5.8);

        // Eyes, nose and mouth: a few strokes are enough at card size.
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(40, 40, 60));
        p.drawEllipse(QPointF(cx - 1.9, 15.0), 0.55, 0.6);
        p.drawEllipse(QPointF(cx + 1.9, 15.0), 0.55, 0.6);
        p.setPen(QPen(QColor(150, 90, 70), line * 0.8, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(cx, 15.6), QPointF(cx - 0.5, 17.4));
        p.setPen(QPen(QColor(186, 96, 92), line * 1.2, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(cx - 1.2, 19.0), QPointF(cx + 1.2, 19.0));

        if (rank == 13) {
            // The king's beard and moustache.
            QPainterPath beard;
            beard.moveTo(cx - 4.9, 15.8);
            beard.cubicTo(cx - 5.0, 21.5, cx - 2.0, 24.5, cx, 25.2);
            beard.cubicTo(cx + 2.0, 24.5, cx + 5.0, 21.5, cx + 4.9, 15.8);
            beard.cubicTo(cx + 3.5, 18.5, cx + 2.0, 19.8, cx, 19.6);
            beard.cubicTo(cx - 2.0, 19.8, cx - 3.5, 18.5, cx - 4.9, 15.8);
            p.setPen(outline());
            p.setBrush(QColor(236, 232, 224));
            p.drawPath(beard);
            p.setPen(QPen(QColor(150, 145, 140), line * 0.6));
            p.drawLine(QPointF(cx, 20.5), QPointF(cx, 24.2));
            p.drawLine(QPointF(cx - 2.2, 20.2), QPointF(cx - 1.4, 23.4));
            p.drawLine(QPointF(cx + 2.2, 20.2), QPointF(cx + 1.4, 23.4));
        } else if (rank == 11) {
            // The jack's short fringe.
            QPainterPath fringe;
            fringe.moveTo(cx - 5.0, 15.0);
            fringe.cubicTo(cx - 5.2, 10.5, cx + 5.2, 10.5, cx + 5.0, 15.0);
            fringe.cubicTo(cx + 3.0, 12.4, cx - 3.0, 12.4, cx - 5.0, 15.0);
            p.setPen(outline());
            p.setBrush(QColor(120, 70, 30));
            p.drawPath(fringe);
        }
    }

    void drawHeadgear()
    {
        p.setPen(outline());
        if (rank == 13) {
            // Crown: a band with five points, pearls on the tips and a jewel in front.
            QPainterPath crown;
            const qreal base = 11.2, band = 8.8, tip = 2.2;
            crown.moveTo(cx - 6.2, base);
            crown.lineTo(cx - 6.6, tip + 1.5);
            crown.lineTo(cx - 3.7, band - 1.6);
            crown.lineTo(cx - 2.2, tip);
            crown.lineTo(cx - 0.8, band - 2.2);
            crown.lineTo(cx, tip - 1.0);
            crown.lineTo(cx + 0.8, band - 2.2);
            crown.lineTo(cx + 2.2, tip);
            crown.lineTo(cx + 3.7, band - 1.6);
            crown.lineTo(cx + 6.6, tip + 1.5);
            crown.lineTo(cx + 6.2, base);
            crown.closeSubpath();
            p.setBrush(Gold);
            p.drawPath(crown);
            p.setBrush(GoldDark);
            p.drawRect(QRectF(cx - 6.2, band, 12.4, base - band));
            p.setBrush(Qt::white);
            for (QPointF pearl : {QPointF(cx - 6.6, tip + 1.5), QPointF(cx - 2.2, tip), QPointF(cx, tip - 1.0),
                                  QPointF(cx + 2.2, tip), QPointF(cx + 6.6, tip + 1.5)})
                p.drawEllipse(pearl, 0.75, 0.75);
            p.setBrush(colours.trim == Sable ? Royal : colours.trim);
            p.drawEllipse(QPointF(cx, band + 1.2), 1.0, 0.9);
        } else if (rank == 12) {
            // Tiara: three rounded arches on a slim band.
            QPainterPath tiara;
            tiara.moveTo(cx - 5.6, 11.2);
            tiara.lineTo(cx - 5.8, 7.0);
            tiara.quadTo(cx - 4.6, 4.4, cx - 2.8, 7.0);
            tiara.quadTo(cx, 1.8, cx + 2.8, 7.0);
            tiara.quadTo(cx + 4.6, 4.4, cx + 5.8, 7.0);
            tiara.lineTo(cx + 5.6, 11.2);
            tiara.closeSubpath();
            p.setBrush(Gold);
            p.drawPath(tiara);
            p.setBrush(isRed(suit) ? Crimson : Royal);
            p.drawEllipse(QPointF(cx, 7.6), 1.1, 1.3);
            p.setBrush(Qt::white);
            p.drawEllipse(QPointF(cx - 3.8, 8.6), 0.6, 0.6);
            p.drawEllipse(QPointF(cx + 3.8, 8.6), 0.6, 0.6);
        } else {
            // Jack: a flat cap worn at an angle with a feather.
            QPainterPath feather;
            feather.moveTo(cx + 3.0, 9.0);
            feather.cubicTo(cx + 7.0, 6.0, cx + 9.5, 2.5, cx + 9.8, 0.8);
            feather.cubicTo(cx + 7.5, 2.0, cx + 4.0, 5.0, cx + 3.0, 9.0);
            p.setBrush(Qt::white);
            p.drawPath(feather);
            p.save();
            p.translate(cx - 0.5, 9.2);
            p.rotate(-8);
            p.setBrush(colours.trim == Sable ? Royal : colours.trim);
            p.drawEllipse(QPointF(0, 0), 7.2, 2.8);
            p.setBrush(Gold);
            p.drawRect(QRectF(-5.0, 1.0, 10.0, 1.5));
            p.restore();
        }
    }

    void drawAttributeBehind()
    {
        p.setPen(outline());
        if (rank == 13) {
            // Sceptre over the right shoulder, topped with the suit.
            p.setPen(QPen(GoldDark, 1.5, Qt::SolidLine, Qt::RoundCap));
            p.drawLine(QPointF(w - 8.0, h), QPointF(w - 5.0, 8.0));
            p.setPen(QPen(Gold, 0.8, Qt::SolidLine, Qt::RoundCap));
            p.drawLine(QPointF(w - 8.0, h), QPointF(w - 5.0, 8.0));
            drawSuit(p, suit, QPointF(w - 4.9, 5.6), 4.6);
        } else if (rank == 12) {
            // A flower held up at the left.
            p.setPen(QPen(QColor(40, 120, 50), 0.9, Qt::SolidLine, Qt::RoundCap));
            p.drawLine(QPointF(8.5, h), QPointF(5.5, 11.0));
            p.setPen(QPen(isRed(suit) ? QColor(120, 30, 40) : QColor(80, 80, 110), line));
            p.setBrush(isRed(suit) ? QColor(232, 80, 110) : QColor(236, 238, 248));
            for (int petal = 0; petal < 5; ++petal) {
                p.save();
                p.translate(5.5, 9.5);
                p.rotate(petal * 72.0);
                p.drawEllipse(QPointF(0, -1.5), 1.1, 1.6);
                p.restore();
            }
            p.setBrush(Gold);
            p.drawEllipse(QPointF(5.5, 9.5), 0.9, 0.9);
        } else {
            // A halberd at the left.
            p.setPen(QPen(QColor(110, 70, 35), 1.1, Qt::SolidLine, Qt::RoundCap));
            p.drawLine(QPointF(7.0, h), QPointF(7.0, 6.0));
            QPainterPath head;
            head.moveTo(7.0, 0.8);
            head.lineTo(8.6, 5.0);
            head.lineTo(7.0, 7.6);
            head.lineTo(5.4, 5.0);
            head.closeSubpath();
            head.addRect(QRectF(3.0, 6.6, 8.0, 1.2));
            p.setPen(QPen(QColor(60, 60, 70), line));
            p.setBrush(QColor(196, 204, 214));
            p.drawPath(head);
        }
    }

    void drawMarks()
    {
        // Letter and suit in the top corners of each half of the panel.
        p.setPen(Qt::NoPen);
        p.setBrush(colours.ink);
        const QString letter = rankText(rank);
        const QRectF letterBox = rank == 13 ? QRectF(1.6, 1.6, 5.2, 6.0) : QRectF(w - 6.8, 1.6, 5.2, 6.0);
        p.drawPath(fittedText(letter, indexFont(), letterBox));
        const QPointF pip = rank == 13 ? QPointF(4.2, 11.5) : QPointF(w - 4.2, 11.5);
        if (rank != 13)
            drawSuit(p, suit, pip, 4.6);
    }

    QPainter &p;
    Suit suit;
    int rank;
    qreal w, h, cx, line;
    Palette colours;
};

} // namespace

void drawCourtPanel(QPainter &painter, Suit suit, int rank, qreal unitsPerPixel)
{
    const qreal line = std::max(0.35, unitsPerPixel * 0.5);
    const Palette colours = paletteFor(suit);

    painter.save();
    painter.setPen(QPen(colours.ink, std::max(0.8, unitsPerPixel)));
    painter.setBrush(Cream);
    painter.drawRect(PanelRect);

    const QRectF inner = PanelRect.adjusted(1.2, 1.2, -1.2, -1.2);
    const qreal halfHeight = inner.height() / 2;
    for (int end = 0; end < 2; ++end) {
        painter.save();
        if (end == 1) {
            painter.translate(inner.center());
            painter.rotate(180);
            painter.translate(-inner.center());
        }
        painter.setClipRect(QRectF(inner.topLeft(), QSizeF(inner.width(), halfHeight)));
        painter.translate(inner.topLeft());
        Bust(painter, suit, rank, inner.width(), halfHeight, line).draw();
        painter.restore();
    }

    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Gold, 0.6));
    painter.drawRect(PanelRect.adjusted(0.9, 0.9, -0.9, -0.9));
    painter.setPen(QPen(colours.ink, std::max(0.5, unitsPerPixel * 0.8)));
    painter.drawLine(QPointF(inner.left(), inner.center().y()), QPointF(inner.right(), inner.center().y()));
    painter.restore();
}

} // namespace qx::CardArt
