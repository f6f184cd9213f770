#include "TableLayout.h"

#include <QPointF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace qx {

namespace {

// The open seat track: a rounded rectangle without its bottom edge, walked from its bottom-left
// end up, across and down to its bottom-right end.
class SeatTrack {
public:
    SeatTrack(qreal left, qreal top, qreal right, qreal bottom, qreal radius)
        : m_left(left), m_top(top), m_right(right), m_bottom(bottom), m_radius(radius)
    {
        m_side = std::max<qreal>(0, bottom - top - radius);
        m_arc = radius * std::numbers::pi / 2;
        m_across = std::max<qreal>(0, right - left - 2 * radius);
    }

    qreal length() const { return 2 * m_side + 2 * m_arc + m_across; }

    // The point at distance s from the bottom-left end.
    QPointF at(qreal s) const
    {
        const qreal half = length() / 2;
        const bool mirrored = s > half;
        if (mirrored)
            s = length() - s;
        QPointF p;
        if (s <= m_side) {
            p = {m_left, m_bottom - s};
        } else if (s <= m_side + m_arc) {
            const qreal a = (s - m_side) / m_radius; // 0 .. pi/2 round the top-left corner
            p = {m_left + m_radius - m_radius * std::cos(a), m_top + m_radius - m_radius * std::sin(a)};
        } else {
            p = {m_left + m_radius + (s - m_side - m_arc), m_top};
        }
        if (mirrored)
            p.setX(m_left + m_right - p.x());
        return p;
    }

    // Distance along the track of the left edge's point at height y.
    qreal distanceAtHeight(qreal y) const { return std::clamp<qreal>(m_bottom - y, 0, m_side); }

private:
    qreal m_left, m_top, m_right, m_bottom, m_radius;
    qreal m_side, m_arc, m_across;
};

QRect centred(QPointF centre, qreal w, qreal h)
{
    return QRect(qRound(centre.x() - w / 2), qRound(centre.y() - h / 2), qRound(w), qRound(h));
}

QRect rectF(qreal x, qreal y, qreal w, qreal h) { return QRectF(x, y, w, h).toRect(); }

} // namespace

TableLayout TableLayout::compute(QSize area, int numSeats)
{
    TableLayout l;
    l.area = area;
    const qreal W = std::max(area.width(), 1);
    const qreal H = std::max(area.height(), 1);
    l.unit = std::min(H, W * 3 / 4);
    const qreal u = l.unit;

    // Cards keep the proportions of the 71 x 96 design cell.
    const qreal ch = 0.23 * u;
    const qreal cw = ch * 71 / 96;
    l.card = QSizeF(cw, ch).toSize();
    const qreal gap = 0.045 * u;

    // Middle row: total, pile, stock.
    const qreal rowY = 0.43 * H;
    l.pile = centred({W / 2, rowY}, l.card.width(), l.card.height());
    l.stock = l.pile.translated(qRound(cw + gap), 0);
    const qreal badge = 0.19 * u;
    l.total = centred({l.pile.left() - gap - badge / 2, rowY}, badge, badge);
    // Under the stock and wider than it: on the smallest table its text needs the room.
    l.stockCount = rectF(l.stock.left() - 1.2 * gap, l.stock.bottom() + 0.03 * u, cw + 2.4 * gap, 0.05 * u);
    const qreal waitSide = 0.075 * u;
    l.wait = centred({l.stock.right() + gap + waitSide / 2, rowY}, waitSide, waitSide);

    // Messages above the middle row.
    const qreal messageH = 0.125 * u;
    l.message = rectF(W * 0.25, l.pile.top() - 0.03 * u - messageH, W * 0.5, messageH);

    // The hand at the bottom, keys under it.
    const qreal keysH = 0.05 * u;
    const qreal handBottom = H - 0.02 * H - keysH;
    const qreal handGap = 0.035 * u;
    for (int i = 0; i < 3; ++i) {
        const qreal x = W / 2 + (i - 1) * (cw + handGap) - cw / 2;
        l.hand[i] = rectF(x, handBottom - ch, cw, ch);
        l.hand[i].setSize(l.card);
    }
    l.keyHints = QRect(l.hand[0].left(), l.hand[0].bottom() + 1, l.hand[2].right() - l.hand[0].left() + 1,
                       qRound(keysH));

    // Resume between the middle row and the hand.
    const qreal resumeH = 0.07 * u;
    const qreal midGap = l.hand[0].top() - l.stockCount.bottom();
    l.resume = centred({W / 2, l.stockCount.bottom() + midGap / 2}, std::max(0.2 * W, 0.27 * u), resumeH);

    // Tally in the bottom-left corner.
    l.tally = rectF(0.02 * W, 0.72 * H, std::min(0.24 * W, l.hand[0].left() - 0.04 * W), 0.26 * H);

    // Seats along the track.
    const qreal plateW0 = 0.17 * W;
    const qreal plateH0 = 0.095 * u;
    const qreal margin = 0.01 * W;
    const qreal trackLeft = margin + plateW0 / 2;
    const qreal trackTop = 0.03 * H + plateH0 / 2;
    const qreal trackBottom = 0.64 * H;
    const SeatTrack track(trackLeft, trackTop, W - trackLeft, trackBottom, 0.1 * u);
    if (numSeats > 0) {
        // Few seats face each other across the middle; more of them fill the whole track.
        const qreal middleS = track.distanceAtHeight(rowY);
        const qreal first = middleS * std::clamp((8.0 - numSeats) / 6.0, 0.0, 1.0);
        const qreal last = track.length() - first;
        const qreal spacing = numSeats > 1 ? (last - first) / (numSeats - 1) : 0;
        std::vector<QPointF> centres;
        centres.reserve(static_cast<std::size_t>(numSeats));
        for (int i = 0; i < numSeats; ++i)
            centres.push_back(track.at(numSeats > 1 ? first + i * spacing : track.length() / 2));
        // Plates as large as they may be without two neighbours touching: neighbours that stand
        // side by side must be apart by a plate's width, those one above the other by its height.
        // A slightly lower plate often lets corner neighbours keep their full width.
        auto widthFor = [&](qreal plateH) {
            qreal w = plateW0;
            for (size_t i = 1; i < centres.size(); ++i) {
                const qreal dx = std::abs(centres[i].x() - centres[i - 1].x());
                const qreal dy = std::abs(centres[i].y() - centres[i - 1].y());
                if (dy < plateH + 2)
                    w = std::min(w, dx - std::max(2.0, 0.01 * W));
            }
            return w;
        };
        qreal plateH = plateH0;
        qreal plateW = widthFor(plateH);
        for (qreal lower = plateH0 * 0.95; plateW < plateW0 * 0.95 && lower >= plateH0 * 0.8; lower -= plateH0 * 0.05) {
            if (widthFor(lower) > plateW) {
                plateH = lower;
                plateW = widthFor(lower);
            }
        }
        for (const QPointF &c : centres)
            l.seats.push_back(centred(c, plateW, plateH));
    }
    return l;
}

QSize TableLayout::startArea(QSize available, QSize chrome)
{
    // Areas of 4k x 3k pixels with k even: the table keeps its 4:3 shape and "&Small", half the
    // area, is whole pixels too.
    const qreal byWidth = (available.width() - chrome.width()) / 2.0 / 4;
    const qreal byHeight = (available.height() - chrome.height()) / 2.0 / 3;
    const int largest = PreferredStartArea.width() / 4;
    const int smallest = SmallestStartArea.width() / 4;
    int k = static_cast<int>(std::floor(std::min(byWidth, byHeight)));
    k = std::clamp(k - k % 2, smallest, largest);
    return {4 * k, 3 * k};
}

std::vector<QRect> TableLayout::allRects() const
{
    std::vector<QRect> r{pile, stock, hand[0], hand[1], hand[2], keyHints, total,
                         stockCount, message, resume, wait, tally};
    r.insert(r.end(), seats.begin(), seats.end());
    return r;
}

} // namespace qx
