#include "BackColor.h"

#include <QGuiApplication>
#include <QPalette>

namespace qx::BackColor {

QColor toQColor(qint32 stored)
{
    const auto bits = quint32(stored);
    if (bits & 0x80000000u)
        return QGuiApplication::palette().color(QPalette::Button);
    return QColor(int(bits & 0xFFu), int((bits >> 8) & 0xFFu), int((bits >> 16) & 0xFFu));
}

qint32 fromQColor(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return qint32(quint32(rgb.red()) | quint32(rgb.green()) << 8 | quint32(rgb.blue()) << 16);
}

} // namespace qx::BackColor
