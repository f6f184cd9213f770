#pragma once

#include <QColor>

namespace qx::colours {

inline const QColor Gold(255, 208, 84);
inline const QColor Cream(250, 244, 226);
inline const QColor StrikeRed(222, 52, 44);

// Marks printed straight on the cloth: light on a dark cloth, dark on a light one.
inline QColor ink(const QColor &felt, int alpha)
{
    return felt.lightnessF() > 0.55 ? QColor(0, 0, 0, alpha) : QColor(255, 255, 255, alpha);
}

} // namespace qx::colours
