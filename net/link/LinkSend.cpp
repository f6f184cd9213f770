#include "LinkSend.h"

#include "LinkProtocol.h"

#include <QFile>

namespace qx::link {

bool writeFileMessage(QIODevice &out, const QString &fileName, const QByteArray &tag)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const qint64 length = file.size();
    out.write(fileHeaderMessage(tag, length));
    qint64 left = length;
    while (left > 0) {
        const QByteArray piece = file.read(qMin(left, FilePieceSize));
        if (piece.isEmpty())
            break;
        out.write(piece);
        left -= piece.size();
    }
    // A file that shrank while being read is made up with zeros, so the receiver still gets the
    // length the header promised and the stream stays in step.
    while (left > 0) {
        const qint64 fill = qMin(left, FilePieceSize);
        out.write(QByteArray(fill, '\0'));
        left -= fill;
    }
    return true;
}

} // namespace qx::link
