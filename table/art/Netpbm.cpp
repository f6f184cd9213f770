#include "Netpbm.h"

#include <QFile>

#include <cstring>
#include <optional>

namespace qx::Netpbm {

namespace {

constexpr int MaxSide = 4096;

// Reads the header's words one by one; '#' starts a comment to the end of its line.
class HeaderReader {
public:
    explicit HeaderReader(const QByteArray &bytes) : m_bytes(bytes) {}

    QByteArray word()
    {
        skipSpaceAndComments();
        const qsizetype start = m_at;
        while (m_at < m_bytes.size() && !isSpace(m_bytes[m_at]))
            ++m_at;
        return m_bytes.mid(start, m_at - start);
    }
    std::optional<int> number()
    {
        const QByteArray w = word();
        bool ok = false;
        const int n = w.toInt(&ok);
        return ok && n >= 0 ? std::optional<int>(n) : std::nullopt;
    }
    // A P6 header ends with exactly one white-space character after the maximum.
    bool endOfHeader()
    {
        if (m_at >= m_bytes.size() || !isSpace(m_bytes[m_at]))
            return false;
        ++m_at;
        return true;
    }
    // A P7 header ends with the line "ENDHDR".
    qsizetype position() const { return m_at; }

private:
    static bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f'; }
    void skipSpaceAndComments()
    {
        while (m_at < m_bytes.size()) {
            if (isSpace(m_bytes[m_at])) {
                ++m_at;
            } else if (m_bytes[m_at] == '#') {
                while (m_at < m_bytes.size() && m_bytes[m_at] != '\n')
                    ++m_at;
            } else {
                return;
            }
        }
    }

    const QByteArray &m_bytes;
    qsizetype m_at = 0;
};

bool sensibleSize(int width, int height) { return width > 0 && height > 0 && width <= MaxSide && height <= MaxSide; }

// Copies rows of `channels` bytes a pixel into a new image of the given format.
QImage fromPixels(const QByteArray &bytes, qsizetype at, int width, int height, int channels, QImage::Format format)
{
    const qsizetype rowBytes = qsizetype(width) * channels;
    if (bytes.size() - at < rowBytes * height)
        return {};
    QImage image(width, height, format);
    if (image.isNull())
        return {};
    for (int y = 0; y < height; ++y)
        std::memcpy(image.scanLine(y), bytes.constData() + at + rowBytes * y, size_t(rowBytes));
    return image;
}

QImage decodeP6(HeaderReader &header, const QByteArray &bytes)
{
    const auto width = header.number();
    const auto height = header.number();
    const auto maximum = header.number();
    if (!width || !height || !maximum || *maximum != 255 || !sensibleSize(*width, *height) || !header.endOfHeader())
        return {};
    return fromPixels(bytes, header.position(), *width, *height, 3, QImage::Format_RGB888);
}

QImage decodeP7(HeaderReader &header, const QByteArray &bytes)
{
    int width = 0, height = 0, depth = 0, maximum = 0;
    QByteArray tupleType;
    for (;;) {
        const QByteArray key = header.word();
        if (key.isEmpty())
            return {};
        if (key == "ENDHDR")
            break;
        if (key == "TUPLTYPE") {
            tupleType = header.word();
            continue;
        }
        const auto value = header.number();
        if (!value)
            return {};
        if (key == "WIDTH")
            width = *value;
        else if (key == "HEIGHT")
            height = *value;
        else if (key == "DEPTH")
            depth = *value;
        else if (key == "MAXVAL")
            maximum = *value;
        else
            return {};
    }
    if (depth != 4 || maximum != 255 || tupleType != "RGB_ALPHA" || !sensibleSize(width, height)
        || !header.endOfHeader())
        return {};
    return fromPixels(bytes, header.position(), width, height, 4, QImage::Format_RGBA8888);
}

} // namespace

QImage decode(const QByteArray &bytes)
{
    HeaderReader header(bytes);
    const QByteArray magic = header.word();
    if (magic == "P6")
        return decodeP6(header, bytes);
    if (magic == "P7")
        return decodeP7(header, bytes);
    return {};
}

QImage read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return decode(file.readAll());
}

QByteArray encode(const QImage &image)
{
    if (image.isNull())
        return {};
    const bool alpha = image.hasAlphaChannel();
    const QImage pixels = image.convertToFormat(alpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    const QByteArray width = QByteArray::number(pixels.width());
    const QByteArray height = QByteArray::number(pixels.height());
    QByteArray out = alpha ? "P7\nWIDTH " + width + "\nHEIGHT " + height + "\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n"
                           : "P6\n" + width + " " + height + "\n255\n";
    const qsizetype rowBytes = qsizetype(pixels.width()) * (alpha ? 4 : 3);
    for (int y = 0; y < pixels.height(); ++y)
        out.append(reinterpret_cast<const char *>(pixels.constScanLine(y)), rowBytes);
    return out;
}

bool write(const QImage &image, const QString &path)
{
    const QByteArray bytes = encode(image);
    QFile file(path);
    return !bytes.isEmpty() && file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
}

} // namespace qx::Netpbm
