#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace qx::colours {

inline const QColor Gold(255, 208, 84);
inline const QColor Cream(250, 244, 226);
inline const QColor StrikeRed(222, 52, 44);

// Marks printed straight on the cloth: light on a dark cloth, dark on a light one.
inline QColor ink(const QColor &felt, int alpha)
{
    return felt.lightnessF() > 0.55 ? QColor(0, 0, 0, alpha) : QColor(255, 255, 255, alpha);
}

// How well one colour reads on another: the ratio of their relative luminances (each plus 0.05),
// from 1 (the same) to 21 (black on white). Text wants 4.5, large marks 3.
inline double contrast(const QColor &a, const QColor &b)
{
    auto luminance = [](const QColor &colour) {
        auto channel = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
        const QColor c = colour.toRgb();
        return 0.2126 * channel(c.redF()) + 0.7152 * channel(c.greenF()) + 0.0722 * channel(c.blueF());
    };
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// Black or white, whichever reads better on `back`.
inline QColor inkOn(const QColor &back)
{
    return contrast(Qt::black, back) >= contrast(Qt::white, back) ? QColor(Qt::black) : QColor(Qt::white);
}

// The black veil laid under white text on the cloth (plates, banners, the tally): at least
// `alpha`, and dark enough over the cloth's brightest part that white reads on it.
inline QColor veil(const QColor &felt, int alpha)
{
    const QColor top = felt.lighter(122).toRgb(); // the middle of the cloth's shading
    const int brightest = std::max({top.red(), top.green(), top.blue()});
    const int needed = brightest <= 110 ? 0 : qRound(255.0 * (1 - 110.0 / brightest));
    return QColor(0, 0, 0, std::max(alpha, needed));
}

// `from` moved the share `t` (0 to 1) of the way towards `to`.
inline QColor blend(const QColor &from, const QColor &to, double t)
{
    const QColor a = from.toRgb(), b = to.toRgb();
    return QColor::fromRgbF(float(a.redF() + (b.redF() - a.redF()) * t), float(a.greenF() + (b.greenF() - a.greenF()) * t),
                            float(a.blueF() + (b.blueF() - a.blueF()) * t));
}

} // namespace qx::colours
