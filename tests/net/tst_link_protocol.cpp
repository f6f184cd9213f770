// The link's byte format and its reassembly, byte for byte, including the quirks the format has
// always had and that both ends rely on.

#include "LinkProtocol.h"
#include "LinkReceiver.h"
#include "RecordedReceiver.h"

#include <QFile>
#include <QtTest>

#include <initializer_list>
#include <limits>
#include <memory>

using namespace qx::link;

namespace {

QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray out;
    for (int v : values)
        out.append(char(v));
    return out;
}

QByteArray raw(const char *text)
{
    return QByteArray(text);
}

// Content with every byte value, 255 and 0 included.
QByteArray pattern(qsizetype size)
{
    QByteArray out(size, '\0');
    for (qsizetype i = 0; i < size; ++i)
        out[i] = char((i * 31 + 7) % 256);
    return out;
}

QList<QByteArray> feedAll(RecordedReceiver &receiver, const QList<QByteArray> &arrivals)
{
    QList<QByteArray> events;
    for (const QByteArray &arrival : arrivals)
        events += receiver.feed(arrival);
    return events;
}

QList<QByteArray> pieces(const QByteArray &data, qsizetype size)
{
    QList<QByteArray> out;
    for (qsizetype i = 0; i < data.size(); i += size)
        out.append(data.mid(i, size));
    return out;
}

} // namespace

class TestLinkProtocol : public QObject {
    Q_OBJECT

private slots:
    void escaping_data();
    void escaping();
    void decodeLeavesLoneBytes();
    void findMarker_data();
    void findMarker();
    void messages_data();
    void messages();
    void latin1RoundTrip();

    void streamSplitAtEveryOffset();
    void streamSplitAtEveryPairOfOffsets();
    void severalFramesInOneRead();
    void incompleteFrameWaitsKeepingItsStartMarker();
    void escapedPairSplitAfterMarkerEndsTheFrame();
    void strayBytes_data();
    void strayBytes();

    void files_data();
    void files();
    void emptyFileWithTwoFurtherBytesCompletesAtOnce();
    void emptyFileAloneCompletesAtNextArrival();
    void singleContentByteStaysInFrameBuffer();
    void messagesAfterFileContentWaitForNextArrival();
    void fileHeaderLength_data();
    void fileHeaderLength();
    void unfinishedFileIsRemovedWithReceiver();
    void limitsCutThePeerOff_data();
    void limitsCutThePeerOff();
    void resetForgetsEverything();

    void feedFromHandlerIsQueued();
    void handlerMayDestroyReceiver();
    void handlerMayDestroyReceiverDuringFile();
};

void TestLinkProtocol::escaping_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QByteArray>("encoded");
    QTest::newRow("empty") << QByteArray() << QByteArray();
    QTest::newRow("plain") << raw("abc") << raw("abc");
    QTest::newRow("lone 255") << bytes({255}) << bytes({255, 0});
    QTest::newRow("255 inside") << bytes({1, 255, 2}) << bytes({1, 255, 0, 2});
    QTest::newRow("255 255") << bytes({255, 255}) << bytes({255, 0, 255, 0});
    QTest::newRow("255 then 0") << bytes({255, 0}) << bytes({255, 0, 0});
    QTest::newRow("type codes untouched") << bytes({248, 253, 254, 0}) << bytes({248, 253, 254, 0});
}

void TestLinkProtocol::escaping()
{
    QFETCH(QByteArray, payload);
    QFETCH(QByteArray, encoded);
    QCOMPARE(EncodeData(payload), encoded);
    QCOMPARE(DecodeData(encoded), payload);
}

void TestLinkProtocol::decodeLeavesLoneBytes()
{
    QCOMPARE(DecodeData(bytes({255})), bytes({255}));
    QCOMPARE(DecodeData(bytes({255, 1})), bytes({255, 1}));
    QCOMPARE(DecodeData(bytes({0, 0, 255, 0, 0})), bytes({0, 0, 255, 0}));
}

void TestLinkProtocol::findMarker_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("position");
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("none") << raw("abc") << 0;
    QTest::newRow("first") << bytes({255, 254}) << 1;
    QTest::newRow("lone trailing") << bytes({'a', 255}) << 2;
    QTest::newRow("escaped only") << bytes({255, 0}) << 0;
    QTest::newRow("after escaped") << bytes({255, 0, 255}) << 3;
    QTest::newRow("skips pairs") << bytes({'a', 255, 0, 'b', 255, 'c'}) << 5;
    QTest::newRow("back to back") << bytes({'a', 'b', 255, 255}) << 3;
}

void TestLinkProtocol::findMarker()
{
    QFETCH(QByteArray, text);
    QFETCH(int, position);
    QCOMPARE(FindMarker(text), qsizetype(position));
}

void TestLinkProtocol::messages_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("data") << dataMessage("go") << bytes({255, 254, 'g', 'o', 255});
    QTest::newRow("data with 255") << dataMessage(bytes({'a', 255, 'b'})) << bytes({255, 254, 'a', 255, 0, 'b', 255});
    QTest::newRow("empty data") << dataMessage({}) << bytes({255, 254, 255});
    QTest::newRow("setup info") << setupInfoMessage("P3Ann") << bytes({255, 252, 'P', '3', 'A', 'n', 'n', 255});
    QTest::newRow("title") << titleMessage("QX") << bytes({255, 250, 'Q', 'X', 255});
    QTest::newRow("version") << versionMessage("1.1") << bytes({255, 251, '1', '.', '1', 255});
    QTest::newRow("announce") << announceMessage("QX", "1.1")
                              << bytes({255, 250, 'Q', 'X', 255, 255, 251, '1', '.', '1', 255});
    QTest::newRow("welcome") << welcomeMessage() << bytes({255, 249, 255});
    QTest::newRow("leave") << leaveMessage() << bytes({255, 248, 255});
    QTest::newRow("file tag 3") << fileHeaderMessage("abc", 0) << char(255) + (char(253) + raw("abc       0")) + char(255);
    QTest::newRow("file tag 10") << fileHeaderMessage("0123456789", 200000)
                                 << char(255) + (char(253) + raw("0123456789200000")) + char(255);
    QTest::newRow("file tag 14") << fileHeaderMessage("ABCDEFGHIJKLMN", 5)
                                 << char(255) + (char(253) + raw("ABCDEFGHIJ5")) + char(255);
    QTest::newRow("file header not escaped") << fileHeaderMessage(bytes({'x', 255}), 1)
                                             << bytes({255, 253, 'x', 255, ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', '1', 255});
}

void TestLinkProtocol::messages()
{
    QFETCH(QByteArray, message);
    QFETCH(QByteArray, expected);
    QCOMPARE(message, expected);
}

void TestLinkProtocol::latin1RoundTrip()
{
    QString all;
    for (int c = 0; c < 256; ++c)
        all.append(QChar(c));
    const QByteArray wire = toWire(all);
    QCOMPARE(wire.size(), 256);
    QCOMPARE(quint8(wire.at(233)), quint8(233));
    QCOMPARE(fromWire(wire), all);

    RecordedReceiver receiver;
    QCOMPARE(receiver.feed(dataMessage(wire)), QList<QByteArray>{"data:" + wire});
}

namespace {

// Frames only (no file: its content may legitimately be cut by a split), no payload 255 (a split
// just after it means something else) and no stray 0 after a marker.
QByteArray mixedStream()
{
    return raw("junk") + welcomeMessage() + titleMessage("QX") + versionMessage("1.1") + setupInfoMessage("P3Annie")
           + dataMessage({}) + bytes({255, 7, 'q', 255}) + bytes({255, 255}) + dataMessage("line 1") + leaveMessage()
           + bytes({255, 'z', 255}) + dataMessage("x");
}

QList<QByteArray> mixedStreamEvents()
{
    return {"welcome", "title:QX", "version:1.1", "setup:P3Annie", "data:", "data:line 1", "leave", "data:x"};
}

} // namespace

void TestLinkProtocol::streamSplitAtEveryOffset()
{
    const QByteArray stream = mixedStream();
    for (qsizetype cut = 0; cut <= stream.size(); ++cut) {
        RecordedReceiver receiver;
        const QList<QByteArray> events = feedAll(receiver, {stream.left(cut), stream.mid(cut)});
        QVERIFY2(events == mixedStreamEvents(), qPrintable(QStringLiteral("cut at %1").arg(cut)));
        QCOMPARE(receiver.receiver().buffer(), bytes({255}));
    }
    RecordedReceiver bytewise;
    QCOMPARE(feedAll(bytewise, pieces(stream, 1)), mixedStreamEvents());
}

void TestLinkProtocol::streamSplitAtEveryPairOfOffsets()
{
    const QByteArray stream = mixedStream();
    for (qsizetype first = 0; first <= stream.size(); ++first) {
        for (qsizetype second = first; second <= stream.size(); ++second) {
            RecordedReceiver receiver;
            const QList<QByteArray> arrivals{stream.left(first), stream.mid(first, second - first), stream.mid(second)};
            if (feedAll(receiver, arrivals) != mixedStreamEvents())
                QFAIL(qPrintable(QStringLiteral("cut at %1 and %2").arg(first).arg(second)));
        }
    }
}

void TestLinkProtocol::severalFramesInOneRead()
{
    RecordedReceiver receiver;
    const QByteArray stream = dataMessage("a") + dataMessage(bytes({255})) + setupInfoMessage("N3") + dataMessage("b");
    QCOMPARE(receiver.feed(stream), (QList<QByteArray>{"data:a", "data:" + bytes({255}), "setup:N3", "data:b"}));
}

void TestLinkProtocol::incompleteFrameWaitsKeepingItsStartMarker()
{
    RecordedReceiver receiver;
    QVERIFY(receiver.feed(bytes({'g', 255, 254, 'a'})).isEmpty());
    QCOMPARE(receiver.receiver().buffer(), bytes({255, 254, 'a'}));
    QVERIFY(receiver.feed(bytes({'b', 255, 0})).isEmpty());
    QCOMPARE(receiver.receiver().buffer(), bytes({255, 254, 'a', 'b', 255, 0}));
    QCOMPARE(receiver.feed(bytes({'c', 255})), QList<QByteArray>{"data:ab" + bytes({255}) + "c"});
}

void TestLinkProtocol::escapedPairSplitAfterMarkerEndsTheFrame()
{
    const QByteArray first = dataMessage(bytes({'a', 255, 'b'}));
    const QByteArray stream = first + dataMessage("next");
    const qsizetype afterMarker = first.indexOf(char(255), 1) + 1;

    RecordedReceiver split;
    QCOMPARE(split.feed(stream.left(afterMarker)), QList<QByteArray>{"data:a"});
    QCOMPARE(split.feed(stream.mid(afterMarker)), QList<QByteArray>{"data:next"});

    RecordedReceiver whole;
    QCOMPARE(whole.feed(stream), (QList<QByteArray>{"data:a" + bytes({255}) + "b", "data:next"}));
}

void TestLinkProtocol::strayBytes_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QList<QByteArray>>("events");
    const QByteArray hello = dataMessage("hello");
    QTest::newRow("text before") << raw("junk") + hello << QList<QByteArray>{"data:hello"};
    QTest::newRow("zeros before") << bytes({0, 0}) + hello << QList<QByteArray>{"data:hello"};
    QTest::newRow("escaped pair before") << bytes({'x', 255, 0}) + hello << QList<QByteArray>{"data:hello"};
    QTest::newRow("lone marker before") << bytes({'x', 255}) + hello << QList<QByteArray>{"data:hello"};
    QTest::newRow("empty frames") << bytes({255, 255, 255, 255}) + hello + bytes({255, 255}) + dataMessage("again")
                                  << QList<QByteArray>{"data:hello", "data:again"};
    QTest::newRow("unknown code") << bytes({255, 7, 'q', 255}) + hello << QList<QByteArray>{"data:hello"};
    QTest::newRow("body starting with 255") << bytes({255, 255, 0, 'x', 255}) + hello << QList<QByteArray>{"data:hello"};
    QTest::newRow("text between frames") << hello + raw("zz") + dataMessage("y")
                                         << QList<QByteArray>{"data:hello", "data:y"};
    QTest::newRow("markers only") << bytes({255, 255, 255}) << QList<QByteArray>{};
}

void TestLinkProtocol::strayBytes()
{
    QFETCH(QByteArray, stream);
    QFETCH(QList<QByteArray>, events);
    RecordedReceiver receiver;
    QCOMPARE(receiver.feed(stream), events);
}

void TestLinkProtocol::files_data()
{
    QTest::addColumn<QByteArray>("tag");
    QTest::addColumn<QByteArray>("arrivedTag");
    QTest::addColumn<int>("size");
    QTest::newRow("empty, tag of 3") << raw("abc") << raw("abc") << 0;
    QTest::newRow("one byte, tag of 10") << raw("0123456789") << raw("0123456789") << 1;
    QTest::newRow("200000 bytes, tag of 14") << raw("ABCDEFGHIJKLMN") << raw("ABCDEFGHIJ") << 200000;
    QTest::newRow("tag with trailing blanks") << raw("deck 1  ") << raw("deck 1") << 300;
}

void TestLinkProtocol::files()
{
    QFETCH(QByteArray, tag);
    QFETCH(QByteArray, arrivedTag);
    QFETCH(int, size);
    const QByteArray content = pattern(size);

    // The header, the content in sending-size pieces, then two more messages, each its own arrival.
    QList<QByteArray> arrivals{fileHeaderMessage(tag, size)};
    arrivals += pieces(content, FilePieceSize);
    arrivals += {dataMessage("after"), welcomeMessage()};

    RecordedReceiver receiver;
    const QList<QByteArray> events = feedAll(receiver, arrivals);
    QCOMPARE(events, (QList<QByteArray>{"file:" + arrivedTag + ":" + content, "data:after", "welcome"}));
    QVERIFY(receiver.badFileNames().isEmpty());
    QCOMPARE(receiver.fileNames().size(), 1);
    QVERIFY(!QFile::exists(receiver.fileNames().constFirst()));
}

void TestLinkProtocol::emptyFileWithTwoFurtherBytesCompletesAtOnce()
{
    RecordedReceiver receiver;
    const QByteArray following = dataMessage("a") + dataMessage("b");
    QCOMPARE(receiver.feed(fileHeaderMessage("none", 0) + following), QList<QByteArray>{"file:none:"});
    QCOMPARE(receiver.receiver().buffer(), following);
    QCOMPARE(receiver.feed(welcomeMessage()), (QList<QByteArray>{"data:a", "data:b", "welcome"}));
}

void TestLinkProtocol::emptyFileAloneCompletesAtNextArrival()
{
    RecordedReceiver receiver;
    QVERIFY(receiver.feed(fileHeaderMessage("none", 0)).isEmpty());
    QVERIFY(receiver.receiver().receivingFile());
    // The arrival that completes the file only fills the buffer again.
    QCOMPARE(receiver.feed(dataMessage("a")), QList<QByteArray>{"file:none:"});
    QCOMPARE(receiver.feed(dataMessage("b")), (QList<QByteArray>{"data:a", "data:b"}));
}

void TestLinkProtocol::singleContentByteStaysInFrameBuffer()
{
    RecordedReceiver receiver;
    QVERIFY(receiver.feed(fileHeaderMessage("t", 3) + "A").isEmpty());
    QVERIFY(receiver.receiver().receivingFile());
    QCOMPARE(receiver.receiver().bytesRemaining(), qint64(3));
    QCOMPARE(receiver.receiver().buffer(), bytes({255, 'A'}));
    // The byte that came with the header never reaches the file; what completes it replaces the buffer.
    QCOMPARE(receiver.feed("BCD"), QList<QByteArray>{"file:t:BCD"});
    QCOMPARE(receiver.receiver().buffer(), QByteArray());
    QCOMPARE(receiver.feed(dataMessage("next")), QList<QByteArray>{"data:next"});

    RecordedReceiver twoBytes;
    QVERIFY(twoBytes.feed(fileHeaderMessage("t", 3) + "AB").isEmpty());
    QCOMPARE(twoBytes.receiver().bytesRemaining(), qint64(1));
    QCOMPARE(twoBytes.feed("C"), QList<QByteArray>{"file:t:ABC"});
}

void TestLinkProtocol::messagesAfterFileContentWaitForNextArrival()
{
    RecordedReceiver receiver;
    const QByteArray after = dataMessage("after") + setupInfoMessage("S");
    QCOMPARE(receiver.feed(fileHeaderMessage("t", 2) + "xy" + after), QList<QByteArray>{"file:t:xy"});
    QCOMPARE(receiver.receiver().buffer(), after);
    QCOMPARE(receiver.feed(welcomeMessage()), (QList<QByteArray>{"data:after", "setup:S", "welcome"}));

    RecordedReceiver split;
    QVERIFY(split.feed(fileHeaderMessage("t", 4)).isEmpty());
    QVERIFY(split.feed("wx").isEmpty());
    QCOMPARE(split.feed("yz" + after), QList<QByteArray>{"file:t:wxyz"});
    QCOMPARE(split.feed(leaveMessage()), (QList<QByteArray>{"data:after", "setup:S", "leave"}));
}

void TestLinkProtocol::fileHeaderLength_data()
{
    QTest::addColumn<QByteArray>("lengthText");
    QTest::addColumn<qint64>("length");
    QTest::newRow("digits then text") << raw("12abc") << qint64(12);
    QTest::newRow("no digits") << raw("abc") << qint64(0);
    QTest::newRow("nothing") << QByteArray() << qint64(0);
    QTest::newRow("leading zeros") << raw("007") << qint64(7);
    QTest::newRow("sign") << raw("-5") << qint64(0);
    QTest::newRow("huge") << raw("99999999999999999999999") << std::numeric_limits<qint64>::max();
}

void TestLinkProtocol::fileHeaderLength()
{
    QFETCH(QByteArray, lengthText);
    QFETCH(qint64, length);
    RecordedReceiver receiver;
    QVERIFY(receiver.feed(FrameMessage(char(LinkFileHeader) + raw("tag       ") + lengthText)).isEmpty());
    QVERIFY(receiver.receiver().receivingFile());
    QCOMPARE(receiver.receiver().bytesRemaining(), length);
    const QByteArray content = pattern(int(qMin<qint64>(length, 100)));
    QList<QByteArray> events = receiver.feed(content);
    if (length <= 100)
        QCOMPARE(events, QList<QByteArray>{"file:tag:" + content});
    else
        QCOMPARE(receiver.receiver().bytesRemaining(), length - 100);
}

void TestLinkProtocol::unfinishedFileIsRemovedWithReceiver()
{
    auto receiver = std::make_unique<LinkReceiver>();
    receiver->feed(fileHeaderMessage("t", 10) + "abcde");
    const QString fileName = receiver->fileName();
    QVERIFY(!fileName.isEmpty());
    QVERIFY(QFile::exists(fileName));
    receiver.reset();
    QVERIFY(!QFile::exists(fileName));
}

void TestLinkProtocol::limitsCutThePeerOff_data()
{
    const qsizetype most = LinkReceiver::MaxIncompleteFrame;
    const QByteArray start = bytes({255, 254});
    QTest::addColumn<QList<QByteArray>>("arrivals");
    QTest::addColumn<bool>("cutOff");
    QTest::newRow("frame at the limit") << QList<QByteArray>{start + QByteArray(most - 2, 'a')} << false;
    QTest::newRow("frame past the limit") << QList<QByteArray>{start + QByteArray(most - 1, 'a')} << true;
    QTest::newRow("frame past the limit bit by bit")
        << QList<QByteArray>{start, QByteArray(most / 2, 'a'), QByteArray(most / 2, 'a')} << true;
    QTest::newRow("bytes outside frames past the limit") << QList<QByteArray>{QByteArray(most + 1, 'a')} << true;
    QTest::newRow("file at the limit") << QList<QByteArray>{fileHeaderMessage("t", 1000)} << false;
    QTest::newRow("file past the limit") << QList<QByteArray>{fileHeaderMessage("t", 1001) + "abc"} << true;
    QTest::newRow("huge file") << QList<QByteArray>{FrameMessage(char(LinkFileHeader) + raw("t         99999999999999999999"))}
                               << true;
}

void TestLinkProtocol::limitsCutThePeerOff()
{
    QFETCH(QList<QByteArray>, arrivals);
    QFETCH(bool, cutOff);
    RecordedReceiver receiver;
    receiver.receiver().setMaxFileSize(1000);
    QList<QByteArray> events = feedAll(receiver, arrivals);
    QCOMPARE(events.contains("overflow"), cutOff);
    if (!cutOff)
        return;
    QVERIFY(receiver.receiver().buffer().isEmpty());
    QVERIFY(!receiver.receiver().receivingFile());
    // Nothing of it is left to meet what comes next.
    QCOMPARE(receiver.feed(dataMessage("next")), QList<QByteArray>{"data:next"});
}

void TestLinkProtocol::resetForgetsEverything()
{
    LinkReceiver receiver;
    QList<QByteArray> seen;
    LinkHandlers handlers;
    handlers.data = [&](const QByteArray &payload) {
        seen.append(payload);
        receiver.reset(); // a connection closed from a handler: the rest of the arrival is dropped
    };
    receiver.setHandlers(handlers);
    receiver.feed(fileHeaderMessage("t", 10) + "abcde");
    const QString fileName = receiver.fileName();
    QVERIFY(QFile::exists(fileName));
    receiver.reset();
    QVERIFY(!QFile::exists(fileName));
    QVERIFY(!receiver.receivingFile());
    receiver.feed(dataMessage("one") + dataMessage("two") + bytes({255, 254}) + "three");
    QCOMPARE(seen, QList<QByteArray>{"one"});
    QVERIFY(receiver.buffer().isEmpty());
    receiver.feed(dataMessage("four"));
    QCOMPARE(seen.constLast(), QByteArray("four"));
}

void TestLinkProtocol::feedFromHandlerIsQueued()
{
    LinkReceiver receiver;
    QList<QByteArray> seen;
    LinkHandlers handlers;
    handlers.data = [&](const QByteArray &payload) {
        seen.append(payload);
        if (payload == "first")
            receiver.feed(dataMessage("nested"));
    };
    receiver.setHandlers(handlers);
    receiver.feed(dataMessage("first") + dataMessage("second"));
    QCOMPARE(seen, (QList<QByteArray>{"first", "second", "nested"}));
    receiver.feed(dataMessage("later"));
    QCOMPARE(seen.constLast(), QByteArray("later"));
}

void TestLinkProtocol::handlerMayDestroyReceiver()
{
    auto *receiver = new LinkReceiver;
    int calls = 0;
    LinkHandlers handlers;
    handlers.data = [&](const QByteArray &) {
        ++calls;
        delete receiver;
    };
    receiver->setHandlers(handlers);
    receiver->feed(dataMessage("a") + dataMessage("b") + fileHeaderMessage("t", 5) + "12345");
    QCOMPARE(calls, 1);
}

void TestLinkProtocol::handlerMayDestroyReceiverDuringFile()
{
    auto *receiver = new LinkReceiver;
    QString fileName;
    QByteArray content;
    LinkHandlers handlers;
    handlers.file = [&](const QString &name, const QByteArray &) {
        fileName = name;
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        content = file.readAll();
        delete receiver;
    };
    receiver->setHandlers(handlers);
    receiver->feed(fileHeaderMessage("t", 3) + "xyz" + dataMessage("never"));
    QCOMPARE(content, QByteArray("xyz"));
    QVERIFY(!QFile::exists(fileName));
}

QTEST_GUILESS_MAIN(TestLinkProtocol)
#include "tst_link_protocol.moc"
