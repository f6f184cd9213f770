#include "ArtParts.h"
#include "CardArt.h"

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

// Card backs: a white card with a framed field, each design filling the field with its own pattern.

namespace qx::CardArt {

namespace {

using Pattern = void (*)(QPainter &, const QRectF &);

// A fixed little generator, so a design looks the same at every size and on every run.
class Scatter {
public:
    explicit Scatter(std::uint32_t seed) : m_state(seed) {}
    qreal next()
    {
        m_state = m_state * 1664525u + 1013904223u;
        return (m_state >> 8) / 16777216.0;
    }

private:
    std::uint32_t m_state;
};

QPainterPath starPath(qreal outer, qreal inner, int points = 5)
{
    QPainterPath star;
    for (int i = 0; i < points * 2; ++i) {
        const qreal radius = i % 2 == 0 ? outer : inner;
        const qreal angle = -std::numbers::pi / 2 + i * std::numbers::pi / points;
        const QPointF corner(radius * std::cos(angle), radius * std::sin(angle));
        if (i == 0)
            star.moveTo(corner);
        else
            star.lineTo(corner);
    }
    star.closeSubpath();
    return star;
}

void fillGradient(QPainter &p, const QRectF &field, const QColor &top, const QColor &bottom)
{
    QLinearGradient gradient(field.topLeft(), field.bottomRight());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    p.fillRect(field, gradient);
}

void drawLattice(QPainter &p, const QRectF &field, qreal step, const QPen &pen)
{
    p.setPen(pen);
    const qreal span = field.width() + field.height();
    for (qreal d = -span; d <= span; d += step) {
        p.drawLine(QPointF(field.left() + d, field.top()), QPointF(field.left() + d + field.height(), field.bottom()));
        p.drawLine(QPointF(field.left() + d, field.bottom()), QPointF(field.left() + d + field.height(), field.top()));
    }
}

void builtinLattice(QPainter &p, const QRectF &field)
{
    fillGradient(p, field, QColor(18, 44, 112), QColor(10, 26, 74));
    drawLattice(p, field, 5.5, QPen(QColor(110, 150, 230, 170), 0.55));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(200, 220, 255, 200));
    for (qreal y = field.top(); y <= field.bottom(); y += 2.75) {
        const bool odd = std::lround((y - field.top()) / 2.75) % 2 != 0;
        for (qreal x = field.left() + (odd ? 2.75 : 0); x <= field.right(); x += 5.5)
            p.drawEllipse(QPointF(x, y), 0.45, 0.45);
    }
    // A medallion holding the four suits.
    const QPointF centre = field.center();
    p.setPen(QPen(QColor(210, 225, 255), 0.8));
    p.setBrush(QColor(14, 34, 92));
    p.drawEllipse(centre, 15.0, 19.0);
    p.setPen(QPen(QColor(210, 225, 255, 150), 0.4));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(centre, 13.2, 17.2);
    const std::array<std::pair<Suit, QPointF>, 4> signs{{{Suit::Spades, {0, -8}},
                                                         {Suit::Hearts, {7, 0}},
                                                         {Suit::Clubs, {0, 8}},
                                                         {Suit::Diamonds, {-7, 0}}}};
    for (const auto &[suit, offset] : signs) {
        p.save();
        p.translate(centre + offset);
        p.scale(8, 8);
        p.setPen(Qt::NoPen);
        p.setBrush(isRed(suit) ? QColor(240, 90, 100) : QColor(235, 240, 255));
        p.drawPath(suitPath(suit));
        p.restore();
    }
}

void crimsonLattice(QPainter &p, const QRectF &field)
{
    fillGradient(p, field, QColor(170, 20, 36), QColor(120, 10, 24));
    // Diamond tiles of two shades with gold seams.
    const qreal w = 7.0, h = 9.0;
    p.setPen(Qt::NoPen);
    for (int row = -1; row * h / 2 <= field.height() + h; ++row) {
        for (int col = -1; col * w <= field.width() + w; ++col) {
            const QPointF c(field.left() + col * w + (row % 2 != 0 ? w / 2 : 0), field.top() + row * h / 2);
            QPainterPath tile;
            tile.moveTo(c + QPointF(0, -h / 2));
            tile.lineTo(c + QPointF(w / 2, 0));
            tile.lineTo(c + QPointF(0, h / 2));
            tile.lineTo(c + QPointF(-w / 2, 0));
            tile.closeSubpath();
            p.setBrush((row + col) % 2 == 0 ? QColor(196, 34, 50) : QColor(140, 16, 32));
            p.drawPath(tile);
            p.setBrush(QColor(240, 200, 90));
            p.drawEllipse(c, 0.6, 0.6);
        }
    }
    p.setPen(QPen(QColor(236, 196, 96, 200), 0.4));
    const qreal span = field.width() + field.height();
    for (qreal d = -span; d <= span; d += w) {
        p.drawLine(QPointF(field.left() + d, field.top()), QPointF(field.left() + d + field.height() * w / h, field.bottom()));
        p.drawLine(QPointF(field.left() + d, field.bottom()), QPointF(field.left() + d + field.height() * w / h, field.top()));
    }
    p.setPen(QPen(QColor(240, 200, 90), 0.8));
    p.setBrush(QColor(120, 10, 24));
    p.drawEllipse(field.center(), 9.0, 9.0);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(240, 200, 90));
    p.save();
    p.translate(field.center());
    p.drawPath(starPath(7.0, 2.6, 8));
    p.restore();
}

void oceanWaves(QPainter &p, const QRectF &field)
{
    fillGradient(p, field, QColor(20, 130, 150), QColor(8, 60, 96));
    const qreal crest = 8.0, rowStep = 5.0;
    for (int row = 0; field.top() + (row - 1) * rowStep <= field.bottom(); ++row) {
        const qreal y = field.top() + row * rowStep;
        const qreal shift = row % 2 == 0 ? 0 : crest / 2;
        QPainterPath wave;
        wave.moveTo(field.left() - crest + shift, y);
        for (qreal x = field.left() - crest + shift; x < field.right() + crest; x += crest)
            wave.cubicTo(x + crest * 0.25, y - 3.2, x + crest * 0.6, y - 3.2, x + crest, y);
        QPainterPath body = wave;
        body.lineTo(field.right() + 2 * crest, y + rowStep + 4);
        body.lineTo(field.left() - 2 * crest, y + rowStep + 4);
        body.closeSubpath();
        const int shade = 40 + (row * 23) % 50;
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(10, 90 + shade, 140 + shade / 2));
        p.drawPath(body);
        p.setPen(QPen(QColor(230, 250, 255, 220), 0.6));
        p.setBrush(Qt::NoBrush);
        p.drawPath(wave);
    }
}

void greenChecks(QPainter &p, const QRectF &field)
{
    p.fillRect(field, QColor(246, 244, 232));
    const qreal band = 4.0;
    const QColor green(30, 130, 70, 120);
    for (qreal x = field.left(); x < field.right(); x += 2 * band)
        p.fillRect(QRectF(x, field.top(), band, field.height()), green);
    for (qreal y = field.top(); y < field.bottom(); y += 2 * band)
        p.fillRect(QRectF(field.left(), y, field.width(), band), green);
    p.setPen(QPen(QColor(255, 255, 255, 150), 0.3));
    for (qreal x = field.left() + band * 1.5; x < field.right(); x += 2 * band)
        p.drawLine(QPointF(x, field.top()), QPointF(x, field.bottom()));
}

void starryNight(QPainter &p, const QRectF &field)
{
    QLinearGradient sky(field.topLeft(), field.bottomLeft());
    sky.setColorAt(0, QColor(8, 12, 40));
    sky.setColorAt(1, QColor(34, 46, 110));
    p.fillRect(field, sky);
    Scatter scatter(99);
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 46; ++i) {
        const QPointF at(field.left() + scatter.next() * field.width(), field.top() + scatter.next() * field.height());
        const qreal size = 0.5 + scatter.next() * scatter.next() * 2.4;
        p.setBrush(scatter.next() < 0.3 ? QColor(255, 214, 110) : QColor(235, 240, 255));
        p.save();
        p.translate(at);
        p.rotate(scatter.next() * 72);
        p.drawPath(starPath(size, size * 0.42));
        p.restore();
    }
    // A crescent moon.
    QPainterPath moon;
    moon.addEllipse(QPointF(field.left() + 44, field.top() + 20), 9, 9);
    QPainterPath bite;
    bite.addEllipse(QPointF(field.left() + 48.5, field.top() + 16.5), 8.2, 8.2);
    QRadialGradient glow(QPointF(field.left() + 44, field.top() + 20), 16);
    glow.setColorAt(0, QColor(255, 240, 180, 90));
    glow.setColorAt(1, QColor(255, 240, 180, 0));
    p.setBrush(glow);
    p.drawEllipse(QPointF(field.left() + 44, field.top() + 20), 16, 16);
    p.setBrush(QColor(255, 236, 160));
    p.drawPath(moon.subtracted(bite));
}

void candyStripes(QPainter &p, const QRectF &field)
{
    p.fillRect(field, QColor(250, 240, 220));
    const std::array<QColor, 3> colours{QColor(232, 110, 40), QColor(250, 240, 220), QColor(24, 128, 136)};
    p.save();
    p.translate(field.center());
    p.rotate(-35);
    const qreal stripe = 3.6;
    const int count = static_cast<int>((field.width() + field.height()) / stripe);
    for (int i = -count; i <= count; ++i) {
        p.fillRect(QRectF(i * stripe, -80, stripe, 160), colours[static_cast<std::size_t>((i % 3 + 3) % 3)]);
    }
    p.setPen(QPen(QColor(255, 255, 255, 110), 0.3));
    for (int i = -count; i <= count; ++i)
        p.drawLine(QPointF(i * stripe, -80), QPointF(i * stripe, 80));
    p.restore();
}

void landscape(QPainter &p, const QRectF &field)
{
    const qreal horizon = field.top() + field.height() * 0.56;
    QLinearGradient sky(field.topLeft(), QPointF(field.left(), horizon));
    sky.setColorAt(0, QColor(70, 140, 220));
    sky.setColorAt(0.75, QColor(170, 210, 240));
    sky.setColorAt(1, QColor(255, 214, 160));
    p.fillRect(QRectF(field.topLeft(), QPointF(field.right(), horizon)), sky);
    p.setPen(Qt::NoPen);
    QRadialGradient sun(QPointF(field.left() + 46, field.top() + 18), 8);
    sun.setColorAt(0, QColor(255, 250, 210));
    sun.setColorAt(0.6, QColor(255, 220, 110));
    sun.setColorAt(1, QColor(255, 220, 110, 0));
    p.setBrush(sun);
    p.drawEllipse(QPointF(field.left() + 46, field.top() + 18), 8, 8);

    auto ridge = [&](std::initializer_list<QPointF> points, const QColor &colour) {
        QPainterPath path;
        path.moveTo(field.left() - 2, horizon + 2);
        for (const QPointF &pt : points)
            path.lineTo(field.left() + pt.x(), field.top() + pt.y());
        path.lineTo(field.right() + 2, horizon + 2);
        path.closeSubpath();
        p.setBrush(colour);
        p.drawPath(path);
    };
    ridge({{0, 40}, {12, 26}, {20, 33}, {31, 19}, {42, 34}, {52, 27}, {63, 38}}, QColor(98, 112, 150));
    p.setBrush(Qt::white);
    QPainterPath snow;
    snow.moveTo(field.left() + 31, field.top() + 19);
    snow.lineTo(field.left() + 35.2, field.top() + 24.5);
    snow.lineTo(field.left() + 32.5, field.top() + 23.5);
    snow.lineTo(field.left() + 30.5, field.top() + 25.5);
    snow.lineTo(field.left() + 27.6, field.top() + 23.4);
    snow.closeSubpath();
    p.drawPath(snow);
    QPainterPath hills;
    hills.moveTo(field.left() - 2, horizon + 2);
    hills.cubicTo(field.left() + 10, field.top() + 36, field.left() + 24, field.top() + 40, field.left() + 36,
                  field.top() + 44);
    hills.cubicTo(field.left() + 46, field.top() + 38, field.left() + 58, field.top() + 40, field.right() + 2,
                  field.top() + 42);
    hills.lineTo(field.right() + 2, horizon + 2);
    hills.closeSubpath();
    p.setBrush(QColor(70, 150, 70));
    p.drawPath(hills);

    // The lake mirrors the sky, with a few ripples; a meadow and a tree stand in front.
    QLinearGradient water(QPointF(field.left(), horizon), field.bottomLeft());
    water.setColorAt(0, QColor(120, 180, 220));
    water.setColorAt(1, QColor(30, 80, 140));
    p.fillRect(QRectF(QPointF(field.left(), horizon), field.bottomRight()), water);
    p.setPen(QPen(QColor(255, 255, 255, 140), 0.5));
    Scatter scatter(7);
    for (int i = 0; i < 14; ++i) {
        const qreal y = horizon + 2 + scatter.next() * (field.bottom() - horizon - 14);
        const qreal x = field.left() + scatter.next() * (field.width() - 10);
        p.drawLine(QPointF(x, y), QPointF(x + 3 + scatter.next() * 6, y));
    }
    p.setPen(Qt::NoPen);
    QPainterPath meadow;
    meadow.moveTo(field.left() - 2, field.bottom() + 2);
    meadow.cubicTo(field.left() + 10, field.bottom() - 16, field.left() + 30, field.bottom() - 10, field.left() + 44,
                   field.bottom() - 6);
    meadow.cubicTo(field.left() + 54, field.bottom() - 4, field.right(), field.bottom() - 4, field.right() + 2,
                   field.bottom() + 2);
    meadow.closeSubpath();
    p.setBrush(QColor(60, 130, 55));
    p.drawPath(meadow);
    p.setBrush(QColor(100, 70, 40));
    p.drawRect(QRectF(field.left() + 11.3, field.bottom() - 22, 1.6, 10));
    p.setBrush(QColor(40, 105, 50));
    p.drawEllipse(QPointF(field.left() + 12, field.bottom() - 24), 5.0, 6.2);
    p.setBrush(QColor(60, 135, 60));
    p.drawEllipse(QPointF(field.left() + 10.8, field.bottom() - 25.5), 2.6, 3.2);
}

void sunburst(QPainter &p, const QRectF &field)
{
    p.fillRect(field, QColor(70, 30, 110));
    const QPointF centre = field.center();
    const int rays = 36;
    p.setPen(Qt::NoPen);
    for (int i = 0; i < rays; ++i) {
        const qreal a0 = 2 * std::numbers::pi * i / rays;
        const qreal a1 = 2 * std::numbers::pi * (i + 1) / rays;
        QPainterPath ray;
        ray.moveTo(centre);
        ray.lineTo(centre + QPointF(100 * std::cos(a0), 100 * std::sin(a0)));
        ray.lineTo(centre + QPointF(100 * std::cos(a1), 100 * std::sin(a1)));
        ray.closeSubpath();
        p.setBrush(i % 2 == 0 ? QColor(110, 50, 160) : QColor(80, 34, 124));
        p.drawPath(ray);
    }
    QRadialGradient halo(centre, 40);
    halo.setColorAt(0, QColor(255, 210, 120, 140));
    halo.setColorAt(1, QColor(255, 210, 120, 0));
    p.setBrush(halo);
    p.drawEllipse(centre, 40, 40);
    p.setPen(QPen(QColor(255, 220, 130), 0.8));
    p.setBrush(Qt::NoBrush);
    for (qreal r : {8.0, 14.0, 22.0})
        p.drawEllipse(centre, r, r);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(250, 200, 80));
    p.drawEllipse(centre, 5.5, 5.5);
}

void fishScales(QPainter &p, const QRectF &field)
{
    p.fillRect(field, QColor(200, 80, 40));
    const qreal r = 5.0;
    // Rows from the bottom up, each overlapping the one below, give the scaled look.
    int row = 0;
    for (qreal y = field.bottom() + r; y >= field.top() - r; y -= r * 0.9, ++row) {
        const qreal shift = row % 2 == 0 ? 0 : r;
        for (qreal x = field.left() - r + shift; x <= field.right() + r; x += 2 * r) {
            QRadialGradient shade(QPointF(x, y + r * 0.5), r * 1.3);
            shade.setColorAt(0, QColor(255, 190, 110));
            shade.setColorAt(0.7, QColor(236, 120, 60));
            shade.setColorAt(1, QColor(170, 60, 30));
            p.setBrush(shade);
            p.setPen(QPen(QColor(120, 40, 20), 0.4));
            p.drawEllipse(QPointF(x, y), r, r);
        }
    }
}

void tartan(QPainter &p, const QRectF &field)
{
    p.fillRect(field, QColor(176, 26, 40));
    const QColor green(20, 80, 50, 150), navy(16, 30, 70, 120);
    for (qreal t = 0; t < 100; t += 16) {
        p.fillRect(QRectF(field.left() + t, field.top(), 6, field.height()), green);
        p.fillRect(QRectF(field.left(), field.top() + t, field.width(), 6), green);
        p.fillRect(QRectF(field.left() + t + 9, field.top(), 3, field.height()), navy);
        p.fillRect(QRectF(field.left(), field.top() + t + 9, field.width(), 3), navy);
    }
    p.setPen(QPen(QColor(250, 220, 80, 200), 0.45));
    for (qreal t = 3; t < 100; t += 16) {
        p.drawLine(QPointF(field.left() + t, field.top()), QPointF(field.left() + t, field.bottom()));
        p.drawLine(QPointF(field.left(), field.top() + t), QPointF(field.right(), field.top() + t));
    }
    p.setPen(QPen(QColor(255, 255, 255, 170), 0.35));
    for (qreal t = 13.5; t < 100; t += 16) {
        p.drawLine(QPointF(field.left() + t, field.top()), QPointF(field.left() + t, field.bottom()));
        p.drawLine(QPointF(field.left(), field.top() + t), QPointF(field.right(), field.top() + t));
    }
}

void ringsOfGold(QPainter &p, const QRectF &field)
{
    fillGradient(p, field, QColor(12, 96, 92), QColor(6, 56, 60));
    // Overlapping circles on a triangular grid: every circle passes through its neighbours' centres.
    const qreal r = 6.0;
    const qreal rowStep = r * std::sqrt(3.0) / 2;
    p.setPen(QPen(QColor(236, 200, 110, 220), 0.5));
    p.setBrush(Qt::NoBrush);
    int row = 0;
    for (qreal y = field.top() - r; y <= field.bottom() + r; y += rowStep, ++row) {
        const qreal shift = row % 2 == 0 ? 0 : r / 2;
        for (qreal x = field.left() - r + shift; x <= field.right() + r; x += r)
            p.drawEllipse(QPointF(x, y), r, r);
    }
    p.setPen(QPen(QColor(236, 200, 110), 0.9));
    p.setBrush(QColor(6, 56, 60));
    p.drawEllipse(field.center(), 10, 10);
    p.setBrush(QColor(236, 200, 110));
    p.setPen(Qt::NoPen);
    p.save();
    p.translate(field.center());
    p.drawPath(starPath(7.5, 3.2, 6));
    p.restore();
}

struct Design {
    Pattern pattern;
    QColor frame;
};

const std::array<Design, 11> &designs()
{
    static const std::array<Design, 11> all{{
        {builtinLattice, QColor(200, 215, 245)},
        // The first shipped file (deck1.bmp), back number 0: what a new player sees. The best.
        {crimsonLattice, QColor(240, 200, 90)},
        {oceanWaves, QColor(225, 245, 250)},
        {greenChecks, QColor(30, 110, 60)},
        {starryNight, QColor(255, 214, 110)},
        {candyStripes, QColor(24, 110, 120)},
        {landscape, QColor(255, 255, 255)},
        {sunburst, QColor(255, 220, 130)},
        {fishScales, QColor(255, 230, 190)},
        {tartan, QColor(250, 220, 80)},
        {ringsOfGold, QColor(236, 200, 110)},
    }};
    return all;
}

QImage renderBack(int design, QSize size)
{
    if (size.isEmpty())
        return {};
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const qreal scaleX = size.width() / DesignWidth;
    const qreal scaleY = size.height() / DesignHeight;
    painter.scale(scaleX, scaleY);
    drawBack(painter, design, 1.0 / std::min(scaleX, scaleY));
    return image;
}

} // namespace

void drawBack(QPainter &painter, int design, qreal unitsPerPixel)
{
    const auto &all = designs();
    const Design &chosen = all[static_cast<std::size_t>(std::clamp(design, 0, static_cast<int>(all.size()) - 1))];
    drawCardBody(painter, unitsPerPixel);

    const QRectF field = designRect().adjusted(3.6, 3.6, -3.6, -3.6);
    QPainterPath fieldShape;
    fieldShape.addRoundedRect(field, 3.0, 3.0);
    painter.save();
    painter.setClipPath(fieldShape);
    chosen.pattern(painter, field);
    painter.restore();

    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(chosen.frame, std::max(0.7, unitsPerPixel)));
    QPainterPath inner;
    inner.addRoundedRect(field.adjusted(1.8, 1.8, -1.8, -1.8), 2.0, 2.0);
    painter.drawPath(inner);
    painter.setPen(QPen(QColor(80, 80, 90), std::max(0.4, unitsPerPixel * 0.6)));
    painter.drawPath(fieldShape);
    painter.restore();
}

QImage cutToCardShape(const QImage &picture)
{
    if (picture.isNull())
        return {};
    QImage shaped(picture.size(), QImage::Format_ARGB32_Premultiplied);
    shaped.fill(Qt::transparent);
    QPainter painter(&shaped);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(picture));
    const QTransform toPicture =
        QTransform::fromScale(picture.width() / DesignWidth, picture.height() / DesignHeight);
    painter.drawPath(toPicture.map(cardOutline()));
    return shaped;
}

QImage renderBuiltinBack(QSize size)
{
    return renderBack(0, size);
}

int backDesignCount()
{
    return static_cast<int>(designs().size()) - 1;
}

QImage renderBackDesign(int design, QSize size)
{
    if (design < 1 || design > backDesignCount())
        return {};
    return renderBack(design, size);
}

} // namespace qx::CardArt
