// The plain picture files start-up reads: what the build writes comes back pixel for pixel, and
// a damaged or foreign file gives a null picture (the caller then draws its own) instead of a
// crash or a read past the end.
#include "Netpbm.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace qx;

namespace {

QImage sample(QImage::Format format, QSize size)
{
    QImage image(size, format);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixelColor(x, y, QColor(x * 7 % 256, y * 13 % 256, (x + y) % 256, format == QImage::Format_RGB32 ? 255 : (x * y) % 256));
    return image;
}

QByteArray pixels(int count) { return QByteArray(count, '\x5a'); }

} // namespace

class NetpbmTest : public QObject {
    Q_OBJECT

private slots:
    void roundTrip_data();
    void roundTrip();
    void headersWritten_data();
    void headersWritten();
    void headerVariantsRead_data();
    void headerVariantsRead();
    void damagedFilesGiveNothing_data();
    void damagedFilesGiveNothing();
    void missingFileGivesNothing();
};

void NetpbmTest::roundTrip_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QSize>("size");
    QTest::newRow("rgb one pixel") << int(QImage::Format_RGB32) << QSize(1, 1);
    QTest::newRow("rgb odd width") << int(QImage::Format_RGB32) << QSize(71, 5);
    QTest::newRow("splash size") << int(QImage::Format_RGB32) << QSize(142, 192);
    QTest::newRow("alpha") << int(QImage::Format_ARGB32) << QSize(64, 64);
    QTest::newRow("alpha odd") << int(QImage::Format_ARGB32) << QSize(3, 17);
}

void NetpbmTest::roundTrip()
{
    QFETCH(int, format);
    QFETCH(QSize, size);
    const QImage original = sample(QImage::Format(format), size);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("picture"));
    QVERIFY(Netpbm::write(original, path));
    const QImage back = Netpbm::read(path);
    QCOMPARE(back.size(), size);
    QCOMPARE(back.hasAlphaChannel(), original.hasAlphaChannel());
    QCOMPARE(back.convertToFormat(QImage::Format_ARGB32), original.convertToFormat(QImage::Format_ARGB32));
}

void NetpbmTest::headersWritten_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("rgb") << int(QImage::Format_RGB32) << QByteArray("P6\n2 3\n255\n");
    QTest::newRow("alpha") << int(QImage::Format_ARGB32)
                           << QByteArray("P7\nWIDTH 2\nHEIGHT 3\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n");
}

void NetpbmTest::headersWritten()
{
    QFETCH(int, format);
    QFETCH(QByteArray, header);
    const QByteArray bytes = Netpbm::encode(sample(QImage::Format(format), QSize(2, 3)));
    QVERIFY(bytes.startsWith(header));
    QCOMPARE(bytes.size(), header.size() + 2 * 3 * (format == QImage::Format_RGB32 ? 3 : 4));
    QVERIFY(Netpbm::encode(QImage()).isEmpty());
}

void NetpbmTest::headerVariantsRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QSize>("size");
    QTest::newRow("comments and spaces") << QByteArray("P6 # drawn by the build\n 2\t1 # two by one\n255\n") + pixels(6)
                                         << QSize(2, 1);
    QTest::newRow("extra bytes after the pixels") << QByteArray("P6\n1 1\n255\n") + pixels(7) << QSize(1, 1);
    QTest::newRow("pam keys in another order")
        << QByteArray("P7\nTUPLTYPE RGB_ALPHA\nMAXVAL 255\nDEPTH 4\nHEIGHT 1\nWIDTH 2\nENDHDR\n") + pixels(8) << QSize(2, 1);
    QTest::newRow("pixel bytes that look like white space") << QByteArray("P6\n1 1\n255\n\n\n\n") << QSize(1, 1);
}

void NetpbmTest::headerVariantsRead()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QSize, size);
    QCOMPARE(Netpbm::decode(bytes).size(), size);
}

void NetpbmTest::damagedFilesGiveNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("grey map") << QByteArray("P5\n1 1\n255\n") + pixels(1);
    QTest::newRow("png") << QByteArray("\x89PNG\r\n\x1a\n", 8) + pixels(40);
    QTest::newRow("no maximum") << QByteArray("P6\n1 1\n");
    QTest::newRow("16-bit maximum") << QByteArray("P6\n1 1\n65535\n") + pixels(6);
    QTest::newRow("zero width") << QByteArray("P6\n0 1\n255\n");
    QTest::newRow("negative height") << QByteArray("P6\n1 -1\n255\n") + pixels(3);
    QTest::newRow("huge") << QByteArray("P6\n100000 100000\n255\n") + pixels(64);
    QTest::newRow("letters for a number") << QByteArray("P6\nten 1\n255\n") + pixels(30);
    QTest::newRow("header ends at maximum") << QByteArray("P6\n1 1\n255");
    QTest::newRow("one pixel short") << QByteArray("P6\n2 2\n255\n") + pixels(11);
    QTest::newRow("pam rgb only") << QByteArray("P7\nWIDTH 1\nHEIGHT 1\nDEPTH 3\nMAXVAL 255\nTUPLTYPE RGB\nENDHDR\n") + pixels(3);
    QTest::newRow("pam no tuple type") << QByteArray("P7\nWIDTH 1\nHEIGHT 1\nDEPTH 4\nMAXVAL 255\nENDHDR\n") + pixels(4);
    QTest::newRow("pam no end") << QByteArray("P7\nWIDTH 1\nHEIGHT 1\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\n");
    QTest::newRow("pam unknown key") << QByteArray("P7\nWIDTH 1\nHEIGHT 1\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nSHADE 3\nENDHDR\n")
                                            + pixels(4);
    QTest::newRow("pam short") << QByteArray("P7\nWIDTH 2\nHEIGHT 1\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n")
                                      + pixels(7);
}

void NetpbmTest::damagedFilesGiveNothing()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(Netpbm::decode(bytes).isNull());
}

void NetpbmTest::missingFileGivesNothing()
{
    QTemporaryDir dir;
    QVERIFY(Netpbm::read(dir.filePath(QStringLiteral("none.ppm"))).isNull());
}

QTEST_GUILESS_MAIN(NetpbmTest)
#include "tst_netpbm.moc"
