#include "ValueText.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace qx {

namespace {

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// Rounds half to even without depending on the floating-point rounding mode.
double roundHalfEven(double value)
{
    const double down = std::floor(value);
    const double fraction = value - down;
    if (fraction < 0.5)
        return down;
    if (fraction > 0.5)
        return down + 1.0;
    return std::fmod(down, 2.0) == 0.0 ? down : down + 1.0;
}

template <typename Int>
std::optional<Int> toInt(double value)
{
    if (!std::isfinite(value))
        return std::nullopt;
    const double rounded = roundHalfEven(value);
    if (rounded < double(std::numeric_limits<Int>::min()) || rounded > double(std::numeric_limits<Int>::max()))
        return std::nullopt;
    return static_cast<Int>(rounded);
}

} // namespace

bool TF(const QString &t)
{
    return t.toUpper() == QLatin1String("TRUE");
}

QString boolText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

double leadingNumber(QStringView text)
{
    return numberAtStart(text).value_or(0.0);
}

std::optional<double> numberAtStart(QStringView text)
{
    qsizetype i = 0;
    const qsizetype n = text.size();
    while (i < n && (text[i] == QLatin1Char(' ') || text[i] == QLatin1Char('\t')))
        ++i;

    // Collected in the plain form std::from_chars reads (no '+', 'e' for the exponent).
    std::string number;
    bool negative = false;
    if (i < n && (text[i] == QLatin1Char('+') || text[i] == QLatin1Char('-'))) {
        negative = text[i] == QLatin1Char('-');
        ++i;
    }
    bool anyDigit = false;
    while (i < n && isDigit(text[i])) {
        number += char(text[i++].unicode());
        anyDigit = true;
    }
    if (i < n && text[i] == QLatin1Char('.')) {
        number += '.';
        ++i;
        while (i < n && isDigit(text[i])) {
            number += char(text[i++].unicode());
            anyDigit = true;
        }
    }
    if (!anyDigit)
        return std::nullopt;

    bool negativeExponent = false;
    if (i < n && QStringLiteral("eEdD").contains(text[i])) {
        qsizetype j = i + 1;
        std::string exponent;
        if (j < n && (text[j] == QLatin1Char('+') || text[j] == QLatin1Char('-'))) {
            negativeExponent = text[j] == QLatin1Char('-');
            if (negativeExponent)
                exponent += '-';
            ++j;
        }
        bool exponentDigit = false;
        while (j < n && isDigit(text[j])) {
            exponent += char(text[j++].unicode());
            exponentDigit = true;
        }
        // "12e" or "12e+" still reads as 12: the exponent needs digits to count.
        if (exponentDigit)
            number += 'e' + exponent;
    }

    double value = 0.0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    (void)end;
    if (error == std::errc::result_out_of_range)
        value = negativeExponent ? 0.0 : std::numeric_limits<double>::infinity();
    else if (error != std::errc())
        value = 0.0;
    return negative ? -value : value;
}

std::optional<qint16> toInt16(double value)
{
    return toInt<qint16>(value);
}

std::optional<qint32> toInt32(double value)
{
    return toInt<qint32>(value);
}

} // namespace qx
