// Random and mutated link streams, split at random, fed to LinkReceiver and to the plain step-by-step
// reassembly: after every arrival both must have reported the same events and hold the same buffer.
// Seeded, so a failure repeats; bounded to a few seconds.

#include "LinkProtocol.h"
#include "RecordedReceiver.h"
#include "ReferenceReceiver.h"

#include <QFile>
#include <QRandomGenerator>
#include <QtTest>

using namespace qx::link;

namespace {

class StreamMaker {
public:
    explicit StreamMaker(quint32 seed) : m_rng(seed) {}

    int below(int n) { return int(m_rng.bounded(n)); }
    bool chance(int percent) { return below(100) < percent; }

    // Bytes that matter to the format come up far more often than chance would have them.
    char byte()
    {
        switch (below(6)) {
        case 0: return char(255);
        case 1: return '\0';
        case 2: return char(248 + below(7));
        default: return char(below(256));
        }
    }

    QByteArray text(int maxLength)
    {
        QByteArray out;
        const int length = below(maxLength + 1);
        for (int i = 0; i < length; ++i)
            out.append(byte());
        return out;
    }

    QByteArray message()
    {
        switch (below(9)) {
        case 0: return dataMessage(text(20));
        case 1: return setupInfoMessage(text(12));
        case 2: return titleMessage(text(6));
        case 3: return versionMessage(text(4));
        case 4: return welcomeMessage();
        case 5: return leaveMessage();
        case 6: {
            const int size = chance(2) ? 70000 + below(1000) : below(300);
            return fileHeaderMessage(text(14), size) + randomBytes(size);
        }
        case 7: return text(8); // stray bytes between frames
        default: return FrameMessage(text(10)); // any body at all
        }
    }

    QByteArray randomBytes(int size)
    {
        QByteArray out(size, '\0');
        for (int i = 0; i < size; ++i)
            out[i] = byte();
        return out;
    }

    QByteArray validStream()
    {
        QByteArray out;
        const int count = 1 + below(12);
        for (int i = 0; i < count; ++i)
            out += message();
        return out;
    }

    QByteArray mutate(QByteArray stream)
    {
        const int mutations = below(4);
        for (int i = 0; i < mutations && !stream.isEmpty(); ++i) {
            const int at = below(int(stream.size()));
            switch (below(4)) {
            case 0: stream[at] = byte(); break;
            case 1: stream.insert(at, byte()); break;
            case 2: stream.remove(at, 1 + below(3)); break;
            default: stream.insert(at, stream.mid(at, below(20))); break;
            }
        }
        return stream;
    }

    QList<QByteArray> split(const QByteArray &stream)
    {
        static const int largest[] = {1, 2, 3, 8, 40, 1000, 1 << 20};
        const int maxPiece = largest[below(7)];
        QList<QByteArray> arrivals;
        qsizetype pos = 0;
        while (pos < stream.size()) {
            const qsizetype take = 1 + below(maxPiece);
            arrivals.append(stream.mid(pos, take));
            pos += take;
        }
        // One more arrival lets anything left waiting after a file's content come out.
        arrivals.append(message());
        return arrivals;
    }

private:
    QRandomGenerator m_rng;
};

} // namespace

class TestLinkRandom : public QObject {
    Q_OBJECT

private slots:
    void matchesStepByStepReassembly_data();
    void matchesStepByStepReassembly();
};

void TestLinkRandom::matchesStepByStepReassembly_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<int>("kind");
    QTest::newRow("valid streams") << 1u << 0;
    QTest::newRow("mutated streams") << 2u << 1;
    QTest::newRow("random bytes") << 3u << 2;
}

void TestLinkRandom::matchesStepByStepReassembly()
{
    QFETCH(quint32, seed);
    QFETCH(int, kind);
    StreamMaker maker(seed);
    int events = 0;
    for (int round = 0; round < 1000; ++round) {
        QByteArray stream;
        if (kind == 0)
            stream = maker.validStream();
        else if (kind == 1)
            stream = maker.mutate(maker.validStream());
        else
            stream = maker.randomBytes(maker.below(400));

        RecordedReceiver receiver;
        ReferenceReceiver reference;
        const QList<QByteArray> arrivals = maker.split(stream);
        for (qsizetype i = 0; i < arrivals.size(); ++i) {
            const QList<QByteArray> got = receiver.feed(arrivals[i]);
            const QList<QByteArray> expected = reference.feed(arrivals[i]);
            if (got != expected || receiver.receiver().buffer() != reference.buffer()
                || receiver.receiver().receivingFile() != reference.receivingFile()
                || receiver.receiver().bytesRemaining() != reference.bytesRemaining()) {
                QFAIL(qPrintable(QStringLiteral("round %1, arrival %2 of stream %3")
                                     .arg(round)
                                     .arg(i)
                                     .arg(QString::fromLatin1(stream.toHex()))));
            }
            events += int(got.size());
        }
        QVERIFY(receiver.badFileNames().isEmpty());
        for (const QString &fileName : receiver.fileNames())
            QVERIFY(!QFile::exists(fileName));
    }
    QVERIFY(events > 0);
}

QTEST_GUILESS_MAIN(TestLinkRandom)
#include "tst_link_random.moc"
