// Feeds arbitrary bytes to the link's reassembly, split into arrivals in several ways, and checks
// after every arrival that it reports the same events and keeps the same buffer as the plain
// step-by-step reassembly. Any difference, crash or sanitizer report is a finding.

#include "RecordedReceiver.h"
#include "ReferenceReceiver.h"

#include <QFile>

#include <cstdint>
#include <cstdlib>

using namespace qx::link;

namespace {

void check(bool ok)
{
    if (!ok)
        std::abort();
}

void compare(const QList<QByteArray> &arrivals)
{
    RecordedReceiver receiver;
    ReferenceReceiver reference;
    // Small enough that inputs reach it, so the cut-off is compared too.
    receiver.receiver().setMaxFileSize(2000);
    reference.setMaxFileSize(2000);
    for (const QByteArray &arrival : arrivals) {
        check(receiver.feed(arrival) == reference.feed(arrival));
        check(receiver.receiver().buffer() == reference.buffer());
        check(receiver.receiver().receivingFile() == reference.receivingFile());
        check(receiver.receiver().bytesRemaining() == reference.bytesRemaining());
    }
    check(receiver.badFileNames().isEmpty());
    for (const QString &fileName : receiver.fileNames())
        check(!QFile::exists(fileName));
}

// Each arrival is announced by one length byte; 0 means "the rest of the input".
QList<QByteArray> lengthPrefixed(const QByteArray &input)
{
    QList<QByteArray> arrivals;
    qsizetype pos = 0;
    while (pos < input.size()) {
        const qsizetype length = static_cast<unsigned char>(input.at(pos++));
        const qsizetype take = length == 0 ? input.size() - pos : qMin(length, input.size() - pos);
        arrivals.append(input.mid(pos, take));
        pos += take;
    }
    return arrivals;
}

QList<QByteArray> bytewise(const QByteArray &input)
{
    QList<QByteArray> arrivals;
    for (char c : input)
        arrivals.append(QByteArray(1, c));
    return arrivals;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), qsizetype(size));
    compare({input});
    compare(lengthPrefixed(input));
    if (size <= 512)
        compare(bytewise(input));
    return 0;
}
