#include "TablePainter.h"

#include "GameState.h"
#include "ScoreTally.h"
#include "SeatName.h"
#include "StockCount.h"
#include "TableColours.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QRadialGradient>

#include <algorithm>

namespace qx {

using namespace colours;

namespace {

QStringList messageLines(const QString &text)
{
    QString t = text;
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return t.split(QLatin1Char('\n'));
}

} // namespace

QFont TablePainter::tableFont(qreal pixels, bool bold)
{
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setPixelSize(std::max(6, qRound(pixels)));
    f.setBold(bold);
    return f;
}

QFont TablePainter::font(qreal pixels, bool bold) const { return tableFont(pixels, bold); }

QFont TablePainter::stockCountFont(const TableLayout &layout, const QString &text)
{
    // Whole or not at all: the count shrinks until it fits its place, down to the least that reads.
    const QRectF room(layout.stockCount);
    QFont f = tableFont(0.032 * layout.unit);
    while (f.pixelSize() > 6) {
        const QRectF needed = QFontMetricsF(f).boundingRect(room, Qt::AlignCenter, text);
        if (room.contains(needed))
            break;
        f.setPixelSize(f.pixelSize() - 1);
    }
    return f;
}

void TablePainter::paint()
{
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    p.drawPixmap(0, 0, s.cloth);
    paintCardBeds();
    paintStock();
    paintSeats();
    paintTotal();
    paintMessage();
    paintKeys();
    paintTally();
}

QPixmap TablePainter::paintCloth(const TableLayout &layout, const QColor &felt, qreal dpr)
{
    QPixmap cloth(layout.area * dpr);
    cloth.setDevicePixelRatio(dpr);
    QPainter p(&cloth);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF area(QPointF(0, 0), QSizeF(layout.area));
    QRadialGradient glow(area.center(), std::max(area.width(), area.height()) * 0.65);
    glow.setColorAt(0, felt.lighter(122));
    glow.setColorAt(0.6, felt);
    glow.setColorAt(1, felt.darker(165));
    p.fillRect(area, glow);

    // A printed line round the seats, and a bed round the pile, as on a card table's cloth.
    const qreal u = layout.unit;
    QColor line = felt.lighter(150);
    line.setAlpha(70);
    p.setPen(QPen(line, std::max(1.0, 0.005 * u)));
    p.setBrush(Qt::NoBrush);
    const qreal inset = 0.012 * u;
    p.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), 0.06 * u, 0.06 * u);

    const QRect &t = layout.total;
    const QRect &st = layout.stock;
    QRectF bed(QPointF(t.left(), layout.pile.top()), QPointF(st.right(), layout.pile.bottom()));
    bed.adjust(-0.04 * u, -0.035 * u, 0.04 * u, 0.035 * u);
    QColor bedFill = felt.darker(112);
    bedFill.setAlpha(110);
    p.setBrush(bedFill);
    p.drawRoundedRect(bed, bed.height() / 2, bed.height() / 2);
    return cloth;
}

void TablePainter::paintCardBeds()
{
    const qreal u = s.layout.unit;
    const qreal radius = s.layout.card.width() / 10.0;
    auto bed = [&](const QRect &r, bool shown) {
        if (shown) {
            // A soft shadow under a card that lies there.
            p.setPen(Qt::NoPen);
            for (int i = 3; i >= 1; --i) {
                p.setBrush(QColor(0, 0, 0, 28));
                p.drawRoundedRect(QRectF(r).translated(0.006 * u * i, 0.008 * u * i), radius, radius);
            }
        } else {
            const QColor edge = ink(s.felt, 80);
            QPen pen(edge, std::max(1.0, 0.004 * u), Qt::DashLine);
            p.setPen(pen);
            p.setBrush(Qt::NoBrush);
            p.drawRoundedRect(QRectF(r).adjusted(1, 1, -1, -1), radius, radius);
        }
    };
    bed(s.layout.pile, s.pileShown);
    for (int i = 0; i < 3; ++i)
        bed(s.layout.hand[i], s.handShown[i]);
}

void TablePainter::paintStock()
{
    if (!s.stockShown)
        return;
    const qreal u = s.layout.unit;
    const QRectF r(s.layout.stock);
    const qreal radius = r.width() / 10.0;
    // The edges of the cards underneath the top one.
    p.setPen(QPen(QColor(120, 120, 120), std::max(1.0, 0.002 * u)));
    for (int i = 3; i >= 1; --i) {
        p.setBrush(QColor(236, 232, 222));
        p.drawRoundedRect(r.translated(0.007 * u * i, 0.007 * u * i), radius, radius);
    }

    const QString count = stockCountText(s.state);
    if (count.isEmpty())
        return;
    p.setFont(stockCountFont(s.layout, count));
    p.setPen(ink(s.felt, 190));
    p.drawText(s.layout.stockCount, Qt::AlignCenter, count);
}

void TablePainter::paintSeats()
{
    const int seats = std::min<int>(s.state.NumPlayers, static_cast<int>(s.layout.seats.size()));
    for (int seat = 1; seat <= seats; ++seat)
        paintSeat(seat, s.layout.seats[static_cast<size_t>(seat - 1)]);
}

void TablePainter::paintSeat(int seat, const QRect &plate)
{
    const GameState &g = s.state;
    const bool current = g.CurrentPlayer == seat;
    const bool out = g.isOut(seat);
    const QRectF r(plate);
    const qreal h = r.height();
    const qreal radius = h * 0.28;

    if (current) {
        // A warm glow round the seat whose turn it is.
        for (int i = 4; i >= 1; --i) {
            QColor halo = Gold;
            halo.setAlpha(22 * (5 - i));
            p.setPen(Qt::NoPen);
            p.setBrush(halo);
            const qreal grow = h * 0.045 * i;
            p.drawRoundedRect(r.adjusted(-grow, -grow, grow, grow), radius + grow, radius + grow);
        }
        QLinearGradient fill(r.topLeft(), r.bottomLeft());
        fill.setColorAt(0, QColor(255, 236, 170));
        fill.setColorAt(1, Gold);
        p.setBrush(fill);
        p.setPen(QPen(QColor(150, 100, 20), std::max(1.0, h * 0.03)));
    } else {
        p.setBrush(veil(s.felt, out ? 55 : 115));
        QColor edge = s.felt.lighter(170);
        edge.setAlpha(out ? 50 : 110);
        p.setPen(QPen(edge, std::max(1.0, h * 0.02)));
    }
    p.drawRoundedRect(r, radius, radius);

    const QColor text = current ? QColor(50, 34, 6) : out ? QColor(255, 255, 255, 110) : QColor(255, 255, 255);
    const qreal pad = h * 0.14;
    const QRectF nameRect(r.left() + pad, r.top() + h * 0.08, r.width() - 2 * pad, h * 0.5);
    // The name as large as the plate allows, shrunk to fit before it is ever cut short.
    const QString fullName = seatDisplayName(g, seat);
    QFont nameFont = font(h * 0.32, true);
    for (qreal px = h * 0.32; px > h * 0.2; px -= 0.5) {
        nameFont = font(px, true);
        if (QFontMetricsF(nameFont).horizontalAdvance(fullName) <= nameRect.width())
            break;
    }
    p.setFont(nameFont);
    p.setPen(text);
    p.drawText(nameRect, Qt::AlignCenter,
               QFontMetricsF(nameFont).elidedText(fullName, Qt::ElideRight, nameRect.width()));

    // Three marks: a red cross for each strike taken, an empty ring for each still to come.
    const qreal mark = h * 0.26;
    const qreal markGap = mark * 0.55;
    const qreal rowW = 3 * mark + 2 * markGap;
    const qreal y = r.top() + h * 0.62;
    qreal x = r.center().x() - rowW / 2;
    if (out) {
        p.setFont(font(h * 0.24, true));
        p.setPen(QColor(255, 120, 110, 200));
        p.drawText(QRectF(r.left(), y - h * 0.02, r.width(), mark + h * 0.04), Qt::AlignCenter,
                   tr("OUT"));
        return;
    }
    for (int k = 0; k < 3; ++k, x += mark + markGap) {
        const QRectF box(x, y, mark, mark);
        if (k < g.Strikes(seat)) {
            p.setPen(QPen(StrikeRed.darker(current ? 130 : 100), std::max(1.5, mark * 0.24), Qt::SolidLine,
                          Qt::RoundCap));
            p.drawLine(box.topLeft(), box.bottomRight());
            p.drawLine(box.topRight(), box.bottomLeft());
        } else {
            QColor ring = text;
            ring.setAlpha(current ? 140 : 90);
            p.setPen(QPen(ring, std::max(1.0, mark * 0.12)));
            p.setBrush(Qt::NoBrush);
            p.drawEllipse(box.adjusted(mark * 0.15, mark * 0.15, -mark * 0.15, -mark * 0.15));
        }
    }
}

void TablePainter::paintMessage()
{
    const qreal u = s.layout.unit;
    QString text = s.message;
    const bool hint = text.isEmpty() && !s.state.gameRunning();
    if (hint)
        text = tr("Press F2 to begin");
    if (text.isEmpty())
        return;

    const QStringList lines = messageLines(text);
    const QRectF area(s.layout.message);
    qreal px = std::min(0.05 * u, area.height() / (lines.size() * 1.35 + 0.3));
    QFont f = font(px, true);
    qreal widest = 0;
    for (const QString &line : lines)
        widest = std::max(widest, QFontMetricsF(f).horizontalAdvance(line));
    const qreal room = area.width() - 0.06 * u;
    if (widest > room) {
        px *= room / widest;
        f = font(px, true);
        widest = room;
    }
    const QFontMetricsF fm(f);
    const qreal lineH = fm.height();
    const qreal bannerH = std::min(area.height(), lines.size() * lineH + lineH * 0.6);
    const qreal bannerW = std::min(area.width(), widest + 0.07 * u);
    const QRectF banner(area.center().x() - bannerW / 2, area.bottom() - bannerH, bannerW, bannerH);

    p.setPen(hint ? Qt::NoPen : QPen(QColor(255, 255, 255, 60), std::max(1.0, 0.003 * u)));
    p.setBrush(veil(s.felt, hint ? 60 : 120));
    p.drawRoundedRect(banner, bannerH * 0.3, bannerH * 0.3);
    p.setFont(f);
    p.setPen(hint ? QColor(255, 255, 255, 200) : Cream);
    const qreal top = banner.center().y() - lines.size() * lineH / 2;
    for (int i = 0; i < lines.size(); ++i)
        p.drawText(QRectF(banner.left(), top + i * lineH, banner.width(), lineH), Qt::AlignCenter, lines[i]);
}

void TablePainter::paintKeys()
{
    if (!s.showKeys)
        return;
    const QRect &band = s.layout.keyHints;
    const qreal h = band.height() * 0.78;
    p.setFont(font(h * 0.62, true));
    for (int i = 0; i < 3; ++i) {
        if (!s.handShown[i])
            continue;
        const QRectF cap(s.layout.hand[i].center().x() - h * 0.6, band.top() + band.height() * 0.16, h * 1.2, h);
        p.setPen(QPen(QColor(0, 0, 0, 90), 1));
        p.setBrush(QColor(250, 246, 232, 220));
        p.drawRoundedRect(cap, h * 0.22, h * 0.22);
        p.setPen(QColor(40, 36, 30));
        p.drawText(cap, Qt::AlignCenter, QString::number(i + 1));
    }
}

TablePainter::TallyHead TablePainter::tallyHead(const TableLayout &layout, int gamesPlayed)
{
    const qreal room = layout.tally.width() - 2 * tallyPadding(layout);
    TallyHead head{tableFont(0.03 * layout.unit * 1.1, true), tr("of %1").arg(gamesPlayed)};
    auto needed = [&] {
        const QFontMetricsF fm(head.font);
        return fm.horizontalAdvance(tr("Games won")) + fm.horizontalAdvance(QLatin1Char(' '))
               + fm.horizontalAdvance(head.played);
    };
    while (head.font.pixelSize() > 6 && needed() > room)
        head.font.setPixelSize(head.font.pixelSize() - 1);
    if (needed() > room)
        head.played.clear();
    return head;
}

void TablePainter::paintTally()
{
    if (!s.tally)
        return;
    const qreal u = s.layout.unit;
    const QRectF area(s.layout.tally);
    const qreal px = 0.03 * u;
    const TallyHead heading = tallyHead(s.layout, s.tally->gamesPlayed());
    const QFont &head = heading.font;
    QFont body = font(px);
    body.setPixelSize(std::min(body.pixelSize(), head.pixelSize()));
    const qreal lineH = QFontMetricsF(body).height() * 1.15;
    const qreal pad = tallyPadding(s.layout);

    const auto rows = s.tally->standings();
    const int room = std::max(0, static_cast<int>((area.height() - 2 * pad - lineH * 1.3) / lineH));
    const int shown = std::min<int>(room, std::max<int>(1, static_cast<int>(rows.size())));
    const qreal h = std::min(area.height(), 2 * pad + lineH * 1.3 + shown * lineH);
    const QRectF panel(area.left(), area.bottom() - h, area.width(), h);

    p.setPen(QPen(QColor(255, 255, 255, 45), 1));
    p.setBrush(veil(s.felt, 95));
    p.drawRoundedRect(panel, pad, pad);

    const QRectF inner = panel.adjusted(pad, pad, -pad, -pad);
    p.setFont(head);
    p.setPen(Gold);
    p.drawText(QRectF(inner.left(), inner.top(), inner.width(), lineH), Qt::AlignLeft | Qt::AlignVCenter,
               tr("Games won"));
    p.setFont(body);
    p.setPen(QColor(255, 255, 255, 170));
    p.drawText(QRectF(inner.left(), inner.top(), inner.width(), lineH), Qt::AlignRight | Qt::AlignVCenter,
               heading.played);

    qreal y = inner.top() + lineH * 1.3;
    if (rows.empty()) {
        p.setPen(QColor(255, 255, 255, 140));
        p.drawText(QRectF(inner.left(), y, inner.width(), lineH), Qt::AlignLeft | Qt::AlignVCenter,
                   tr("No winner yet"));
        return;
    }
    const QFontMetricsF fm(body);
    for (int i = 0; i < shown; ++i, y += lineH) {
        const auto &[name, wins] = rows[static_cast<size_t>(i)];
        const QString count = QString::number(wins);
        const qreal countW = fm.horizontalAdvance(count) + pad;
        p.setPen(QColor(255, 255, 255, 225));
        p.drawText(QRectF(inner.left(), y, inner.width() - countW, lineH), Qt::AlignLeft | Qt::AlignVCenter,
                   fm.elidedText(name, Qt::ElideRight, inner.width() - countW));
        p.setPen(Gold);
        p.drawText(QRectF(inner.left(), y, inner.width(), lineH), Qt::AlignRight | Qt::AlignVCenter, count);
    }
}

} // namespace qx
