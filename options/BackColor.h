#pragma once

#include <QColor>
#include <QtGlobal>

namespace qx {

// Background colours as the options store them: 0x00BBGGRR for a plain colour, or a system colour
// with the high bit set. QX knows one system colour, the desktop's button face ("Match Windows").
namespace BackColor {

constexpr qint32 Gray = 12632256;            // red, green and blue 192
constexpr qint32 ButtonFace = -2147483633;   // 0x8000000F

// The colour to paint with. A system colour follows the desktop palette's button colour.
QColor toQColor(qint32 stored);
// The stored value of a plain colour (alpha is dropped).
qint32 fromQColor(const QColor &color);

} // namespace BackColor

} // namespace qx
