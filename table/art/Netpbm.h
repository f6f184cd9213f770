#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace qx::Netpbm {

// The start-up pictures (the splash and the window icon) are kept beside the program as plain
// netpbm files: binary PPM ("P6", RGB) and PAM ("P7", RGB_ALPHA), 8 bits a channel. Reading them
// is a header and a copy, with no image decoder and no image-format plugins to load, which would
// cost more than the rest of the splash together.

// The file's picture, or a null image when the bytes are not a whole P6 or P7 picture of that
// kind (wrong magic, a maximum other than 255, a size of 0 or over 4096, missing pixels).
QImage decode(const QByteArray &bytes);
QImage read(const QString &path);

// P7 RGB_ALPHA when the image has an alpha channel, otherwise P6.
QByteArray encode(const QImage &image);
bool write(const QImage &image, const QString &path);

} // namespace qx::Netpbm
