#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace qx {

// How option texts read back. Values are stored as text and hand edits are allowed, so reading
// is lenient: only whether a value fits its target decides whether it can be used.

// True exactly when the upper-cased text is "TRUE" ("-1", "1" and "yes" are false).
bool TF(const QString &t);
// "True" or "False".
QString boolText(bool value);

// The number a text starts with, like BASIC's Val: leading blanks, a sign, digits, a decimal
// point and an exponent (E or D); 0 when the text does not start with a number ("Not Used" is 0).
// Overflowing exponents give an infinity, which no target accepts.
double leadingNumber(QStringView text);
// The same number, or nothing when the text does not start with one ("abc", "Not Used", "-").
std::optional<double> numberAtStart(QStringView text);

// Rounds half to even (2.5 -> 2, 3.5 -> 4), then checks the target's range. Empty when the
// number does not fit.
std::optional<qint16> toInt16(double value);
std::optional<qint32> toInt32(double value);

} // namespace qx
