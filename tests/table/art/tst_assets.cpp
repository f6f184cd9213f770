#include "CardArt.h"
#include "Netpbm.h"
#include "PixelChecks.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTest>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <QtEndian>

#include <cmath>

using qx::test::pixelHash;
namespace CardArt = qx::CardArt;
namespace Netpbm = qx::Netpbm;

// The files the build writes beside the program: card backs, the cheer, the icon, the help.
class AssetsTest : public QObject {
    Q_OBJECT

private slots:
    void cardBacksLoadAsPictures();
    void cheerIsAValidWaveFile();
    void cheerSoundsWithoutClipping();
    void iconLoads();
    void startupPicturesLoad_data();
    void startupPicturesLoad();
    void helpPagesArePresentAndLinked();
    void rulesHoldTheCardValuesTable_data();
    void rulesHoldTheCardValuesTable();
    void desktopFileNamesTheProgram();

private:
    static QString dataFile(const QString &name) { return QDir(QStringLiteral(QX_DATA_DIR)).filePath(name); }
    static QByteArray readAll(const QString &path);
    static QTextTable *cardValuesTable(QTextDocument &rules);
};

QByteArray AssetsTest::readAll(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

void AssetsTest::cardBacksLoadAsPictures()
{
    const QStringList backs =
        QDir(QStringLiteral(QX_DATA_DIR)).entryList({QStringLiteral("deck*.bmp")}, QDir::Files, QDir::Name);
    QVERIFY2(backs.size() >= 8, qPrintable(backs.join(QLatin1Char(' '))));
    // Back number 0, the one a new player sees, is the first name in plain string order.
    QCOMPARE(backs.first(), QStringLiteral("deck1.bmp"));
    QSet<QByteArray> seen;
    for (const QString &name : backs) {
        QImage back;
        QVERIFY2(back.load(dataFile(name), "BMP"), qPrintable(name));
        QCOMPARE(back.size(), QSize(142, 192));
        const QByteArray hash = pixelHash(back);
        QVERIFY2(!seen.contains(hash), qPrintable(name + QStringLiteral(" repeats another back")));
        seen.insert(hash);
    }
}

void AssetsTest::cheerIsAValidWaveFile()
{
    const QByteArray wave = readAll(dataFile(QStringLiteral("CHEER.WAV")));
    QVERIFY(wave.size() > 44);
    const auto *bytes = reinterpret_cast<const uchar *>(wave.constData());
    auto u32 = [bytes](int at) { return qFromLittleEndian<quint32>(bytes + at); };
    auto u16 = [bytes](int at) { return qFromLittleEndian<quint16>(bytes + at); };
    QCOMPARE(wave.left(4), QByteArray("RIFF"));
    QCOMPARE(u32(4), quint32(wave.size() - 8));
    QCOMPARE(wave.mid(8, 4), QByteArray("WAVE"));
    QCOMPARE(wave.mid(12, 4), QByteArray("fmt "));
    QCOMPARE(u32(16), 16u);      // plain PCM format chunk
    QCOMPARE(u16(20), quint16(1)); // PCM
    QCOMPARE(u16(22), quint16(1)); // mono
    QCOMPARE(u32(24), 22050u);
    QCOMPARE(u32(28), 44100u);     // bytes a second
    QCOMPARE(u16(32), quint16(2)); // block align
    QCOMPARE(u16(34), quint16(16));
    QCOMPARE(wave.mid(36, 4), QByteArray("data"));
    QCOMPARE(u32(40), quint32(wave.size() - 44));
    const double seconds = (wave.size() - 44) / 44100.0;
    QVERIFY2(seconds > 2.2 && seconds < 2.8, qPrintable(QString::number(seconds)));
}

void AssetsTest::cheerSoundsWithoutClipping()
{
    const QByteArray wave = readAll(dataFile(QStringLiteral("CHEER.WAV")));
    QVERIFY(wave.size() > 44);
    const auto *data = reinterpret_cast<const uchar *>(wave.constData()) + 44;
    const int count = static_cast<int>((wave.size() - 44) / 2);
    int peak = 0;
    int atFullScale = 0;
    // The sound carries on: every tenth of a second after the crowd's first swell and before the
    // fade has some level.
    const int window = 2205;
    for (int start = 0; start + window <= count; start += window) {
        double energy = 0;
        for (int i = start; i < start + window; ++i) {
            const int s = qFromLittleEndian<qint16>(data + 2 * i);
            peak = std::max(peak, std::abs(s));
            atFullScale += (s >= 32767 || s <= -32767) ? 1 : 0;
            energy += double(s) * s;
        }
        const double rms = std::sqrt(energy / window);
        if (start >= window && start < count - 6 * window)
            QVERIFY2(rms > 300, qPrintable(QStringLiteral("quiet at sample %1 (rms %2)").arg(start).arg(rms)));
    }
    QCOMPARE(atFullScale, 0);
    QVERIFY2(peak > 16000 && peak < 32000, qPrintable(QString::number(peak)));
}

void AssetsTest::iconLoads()
{
    QImage icon;
    QVERIFY(icon.load(dataFile(QStringLiteral("qx.png"))));
    QCOMPARE(icon.size(), QSize(256, 256));
    QVERIFY(icon.hasAlphaChannel());
}

void AssetsTest::startupPicturesLoad_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("alpha");
    QTest::newRow("window icon") << "qxicon.pam" << QSize(CardArt::WindowIconSize, CardArt::WindowIconSize) << true;
    QTest::newRow("splash backdrop") << "splashback.ppm" << CardArt::splashWindowSize() << false;
    QTest::newRow("splash picture") << "splash.ppm" << CardArt::splashPictureRect().size() << false;
    QTest::newRow("splash mask") << "splashmask.ppm" << CardArt::splashPictureRect().size() << false;
}

void AssetsTest::startupPicturesLoad()
{
    QFETCH(QString, file);
    QFETCH(QSize, size);
    QFETCH(bool, alpha);
    const QImage picture = Netpbm::read(dataFile(file));
    QCOMPARE(picture.size(), size);
    QCOMPARE(picture.hasAlphaChannel(), alpha);
}

void AssetsTest::helpPagesArePresentAndLinked()
{
    const QByteArray contents = readAll(dataFile(QStringLiteral("help/contents.html")));
    QVERIFY(contents.contains("href=\"rules.html\""));
    QVERIFY(contents.contains("href=\"strategy.html\""));
    for (const char *page : {"help/rules.html", "help/strategy.html"}) {
        const QByteArray html = readAll(dataFile(QString::fromLatin1(page)));
        QVERIFY2(html.contains("href=\"contents.html\""), page);
        QVERIFY2(!html.contains("<script"), page);
    }
    const QByteArray rules = readAll(dataFile(QStringLiteral("help/rules.html")));
    for (const char *fact : {"1099", "F2", "F3", "F4", "F5", "F6", "F7", "F8", "F9", "Ctrl+F", "Ctrl+M", "Ctrl+S",
                             "Del", "three strikes", "Resume", "Host's Name/IP"})
        QVERIFY2(rules.contains(fact), fact);
}

QTextTable *AssetsTest::cardValuesTable(QTextDocument &rules)
{
    for (QTextFrame *frame : rules.rootFrame()->childFrames()) {
        auto *table = qobject_cast<QTextTable *>(frame);
        if (table && table->columns() >= 2 && table->cellAt(0, 0).firstCursorPosition().block().text() == u"Card")
            return table;
    }
    return nullptr;
}

void AssetsTest::rulesHoldTheCardValuesTable_data()
{
    QTest::addColumn<QString>("card");
    QTest::addColumn<QString>("value");
    QTest::newRow("ace") << "Ace" << "1";
    QTest::newRow("face value") << "2, 3, 5, 6, 7, 8" << "face value";
    QTest::newRow("four") << "Four" << "0";
    QTest::newRow("nine") << "Nine" << "99";
    QTest::newRow("ten") << "Ten" << QString(QChar(0x2212)) + "10";
    QTest::newRow("jack") << "Jack" << "10";
    QTest::newRow("queen") << "Queen" << "10";
    QTest::newRow("king") << "King" << "0";
}

void AssetsTest::rulesHoldTheCardValuesTable()
{
    QFETCH(QString, card);
    QFETCH(QString, value);
    QTextDocument rules;
    rules.setHtml(QString::fromUtf8(readAll(dataFile(QStringLiteral("help/rules.html")))));
    QTextTable *table = cardValuesTable(rules);
    QVERIFY2(table, "no table headed \"Card\" in the rules");
    for (int row = 1; row < table->rows(); ++row) {
        if (table->cellAt(row, 0).firstCursorPosition().block().text() == card) {
            QCOMPARE(table->cellAt(row, 1).firstCursorPosition().block().text(), value);
            return;
        }
    }
    QFAIL(qPrintable(QStringLiteral("no row for ") + card));
}

void AssetsTest::desktopFileNamesTheProgram()
{
    const QByteArray desktop = readAll(QDir(QStringLiteral(QX_ASSETS_SOURCE_DIR)).filePath(QStringLiteral("qx.desktop")));
    const QList<QByteArray> lines = desktop.split('\n');
    QVERIFY(lines.contains("[Desktop Entry]"));
    QVERIFY(lines.contains("Name=QX"));
    QVERIFY(lines.contains("Exec=qx"));
    QVERIFY(lines.contains("Icon=qx"));
    QVERIFY(lines.contains("Categories=Game;CardGame;"));
}

QTEST_MAIN(AssetsTest)
#include "tst_assets.moc"
