#pragma once

#include <QCryptographicHash>
#include <QImage>

// Small pixel measurements shared by the picture tests.
namespace qx::test {

inline QByteArray pixelHash(const QImage &image)
{
    const QImage normal = image.convertToFormat(QImage::Format_ARGB32);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (int y = 0; y < normal.height(); ++y)
        hash.addData(QByteArrayView(reinterpret_cast<const char *>(normal.constScanLine(y)),
                                    static_cast<qsizetype>(normal.width()) * 4));
    return hash.result();
}

// Clearly red ink: the colour of hearts and diamonds, not skin, gold, pink or antialiased black.
inline bool isRedInk(QRgb pixel)
{
    return qAlpha(pixel) > 200 && qRed(pixel) > 150 && qGreen(pixel) < 80 && qBlue(pixel) < 80;
}

inline int countPixels(const QImage &image, bool (*test)(QRgb))
{
    const QImage normal = image.convertToFormat(QImage::Format_ARGB32);
    int count = 0;
    for (int y = 0; y < normal.height(); ++y)
        for (int x = 0; x < normal.width(); ++x)
            count += test(normal.pixel(x, y)) ? 1 : 0;
    return count;
}

} // namespace qx::test
