#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;

namespace qx::link {

// Writes a file message to `out`: the header frame, then the raw content read in pieces of at most
// FilePieceSize bytes. Returns false, writing nothing, when the file cannot be opened.
bool writeFileMessage(QIODevice &out, const QString &fileName, const QByteArray &tag);

} // namespace qx::link
