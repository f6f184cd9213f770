#include "AboutBox.h"
#include "CardArt.h"
#include "CardBackChooser.h"
#include "GameState.h"
#include "SplashWindow.h"
#include "StrikesWindow.h"

#include <QFontMetricsF>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using namespace qx;

// The side windows: strike marks, card-back chooser, splash and About box.
class SideWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void strikeFontSize_data();
    void strikeFontSize();
    void strikeWindowFollowsTheMainWindow();
    void strikeWindowStaysUnderAModalMessage();
    void hiddenStrikeWindowStaysPut();
    void strikeMarksReadOnEveryBackground_data();
    void strikeMarksReadOnEveryBackground();
    void strikeWindowFontFollowsThePlayArea();
    void chooserOrderAndGrid();
    void chooserWithoutFiles();
    void chooserHoldsAtMost37Backs();
    void chooserClickChoosesAndHides();
    void splashCutsThePictureThroughItsMask();
    void aboutBoxTexts();
};

void SideWindowsTest::strikeFontSize_data()
{
    QTest::addColumn<QSize>("client");
    QTest::addColumn<int>("points");
    QTest::newRow("medium table") << QSize(720, 540) << 27;
    QTest::newRow("small table") << QSize(360, 270) << 13;
    QTest::newRow("large table") << QSize(1440, 1080) << 54;
    QTest::newRow("wide: the height decides") << QSize(800, 200) << 10;
    QTest::newRow("tall: the width decides") << QSize(200, 800) << 7;
    QTest::newRow("under 400 by 300 twips: 1, never 0") << QSize(26, 19) << 1;
    QTest::newRow("one side tiny") << QSize(1000, 10) << 1;
}

void SideWindowsTest::strikeFontSize()
{
    QFETCH(QSize, client);
    QFETCH(int, points);
    QCOMPARE(StrikesWindow::fontSizeFor(client), points);
}

namespace {
struct Frame {
    GameState state;
    QWidget main;
    QWidget table{&main};
    StrikesWindow strikes{state, &main, &table};
    Frame()
    {
        main.resize(400, 300);
        table.resize(400, 280);
        main.move(40, 30);
    }
    QPoint besideMain() const { return {main.frameGeometry().right() + 1, main.frameGeometry().top()}; }
};
} // namespace

void SideWindowsTest::strikeWindowFollowsTheMainWindow()
{
    Frame f;
    f.main.show();
    f.strikes.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f.main));
    QTRY_COMPARE(f.strikes.pos(), f.besideMain());

    // Each move or resize puts it back in the same round of events: nothing waits for a timer.
    f.main.move(250, 120);
    QCoreApplication::processEvents();
    QCOMPARE(f.strikes.pos(), f.besideMain());
    f.main.resize(500, 350);
    QCoreApplication::processEvents();
    QCOMPARE(f.strikes.pos(), f.besideMain());
    // Dragged away by the user, it comes back at once.
    f.strikes.move(0, 0);
    QCoreApplication::processEvents();
    QCOMPARE(f.strikes.pos(), f.besideMain());
}

namespace {
// Counts the times a window is raised.
class RaiseCounter : public QObject {
public:
    int raises = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::ZOrderChange)
            ++raises;
        return false;
    }
};
} // namespace

void SideWindowsTest::strikeWindowStaysUnderAModalMessage()
{
    Frame f;
    f.main.show();
    f.strikes.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f.main));
    QTRY_COMPARE(f.strikes.pos(), f.besideMain());
    QMessageBox refusal(QMessageBox::Warning, QStringLiteral("QX"), QStringLiteral("Refused."),
                        QMessageBox::Ok, &f.main);
    refusal.setWindowModality(Qt::ApplicationModal);
    refusal.show();
    QVERIFY(QTest::qWaitForWindowExposed(&refusal));
    RaiseCounter counter;
    f.strikes.installEventFilter(&counter);
    f.main.move(200, 90);
    f.strikes.move(3, 3);
    QTRY_COMPARE(f.strikes.pos(), f.besideMain());
    QCOMPARE(counter.raises, 0);
}

void SideWindowsTest::hiddenStrikeWindowStaysPut()
{
    Frame f;
    f.main.show();
    f.strikes.move(5, 5);
    f.main.move(100, 100);
    f.main.resize(450, 320);
    QCoreApplication::processEvents();
    QCOMPARE(f.strikes.pos(), QPoint(5, 5));
}

namespace {
// WCAG contrast ratio of two opaque colours.
double contrast(QColor a, QColor b)
{
    auto luminance = [](QColor c) {
        auto channel = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
        return 0.2126 * channel(c.redF()) + 0.7152 * channel(c.greenF()) + 0.0722 * channel(c.blueF());
    };
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}
} // namespace

void SideWindowsTest::strikeMarksReadOnEveryBackground_data()
{
    QTest::addColumn<QColor>("back");
    QTest::newRow("black") << QColor(0, 0, 0);
    QTest::newRow("navy") << QColor(0, 0, 128);
    QTest::newRow("light grey") << QColor(192, 192, 192);
    QTest::newRow("white") << QColor(255, 255, 255);
    QTest::newRow("middle grey") << QColor(128, 128, 128);
    QTest::newRow("red") << QColor(255, 0, 0);
    QTest::newRow("dark desktop face") << QColor(53, 53, 53);
}

void SideWindowsTest::strikeMarksReadOnEveryBackground()
{
    QFETCH(QColor, back);
    Frame f;
    f.state.NumPlayers = 3;
    f.state.CurrentPlayer = 2;
    f.state.Total = 40;
    f.state.Strikes(1) = 2; // waiting
    f.state.Strikes(2) = 2; // to move
    f.state.Strikes(3) = 3; // out
    f.strikes.setBackColor(back);
    f.strikes.RefreshStrikeMarks();
    const QImage shown = f.strikes.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QFont marks(QStringLiteral("DejaVu Sans"));
    marks.setBold(true);
    marks.setPointSize(f.strikes.fontSize());
    const double t = QFontMetricsF(marks).height(); // lines stand 1.5 of these apart
    // The marks stand right of the seat numbers; the best-contrasting pixel of each line's
    // marks tells whether they can be read.
    const double needed[] = {4.5, 3.0, 2.5};
    for (int seat = 1; seat <= 3; ++seat) {
        double best = 1;
        const int top = int((seat - 1) * 1.5 * t);
        for (int y = top; y < std::min(shown.height(), int(top + 1.5 * t)); ++y)
            for (int x = shown.width() / 3; x < shown.width(); ++x)
                best = std::max(best, contrast(shown.pixelColor(x, y), back));
        QVERIFY2(best >= needed[seat - 1], qPrintable(QStringLiteral("seat %1: contrast %2").arg(seat).arg(best)));
    }
}

void SideWindowsTest::strikeWindowFontFollowsThePlayArea()
{
    Frame f;
    f.state.NumPlayers = 10;
    f.state.CurrentPlayer = 3;
    f.state.Total = 40;
    f.state.Strikes(2) = 2;
    f.table.resize(720, 540);
    f.strikes.RefreshStrikeMarks();
    QCOMPARE(f.strikes.fontSize(), 27);
    f.table.resize(10, 10);
    f.strikes.RefreshStrikeMarks();
    QCOMPARE(f.strikes.fontSize(), 1);
    // Painting every kind of line (current seat, struck seat, out seat) does not fail.
    f.state.Strikes(4) = 3;
    f.strikes.show();
    QVERIFY(!f.strikes.grab().isNull());
}

namespace {
void writeBack(const QString &folder, const QString &name, QColor color)
{
    QImage image(71, 96, QImage::Format_RGB32);
    image.fill(color);
    QVERIFY(image.save(folder + QLatin1Char('/') + name, "BMP"));
}
} // namespace

void SideWindowsTest::chooserOrderAndGrid()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QStringList names{"deck2.bmp", "deck10.bmp", "deck1.bmp", "deck3.bmp", "deckA.bmp", "deck_.bmp", "deck-.bmp"};
    for (int i = 0; i < names.size(); ++i)
        writeBack(dir.path(), names[i], QColor::fromHsv(i * 50, 200, 200));
    writeBack(dir.path(), QStringLiteral("other.bmp"), Qt::black);
    QFile(dir.filePath(QStringLiteral("deck9.txt"))).open(QIODevice::WriteOnly);

    CardBackChooser chooser(nullptr, dir.path());
    QCOMPARE(chooser.windowTitle(), QStringLiteral("Choose a card back"));
    // Plain string order, not numeric; the files are the backs 0 and up, the built-in one unused.
    QCOMPARE(chooser.fileNames(),
             (QStringList{"deck-.bmp", "deck1.bmp", "deck10.bmp", "deck2.bmp", "deck3.bmp", "deckA.bmp", "deck_.bmp"}));
    QCOMPARE(chooser.count(), 7);
    QCOMPARE(chooser.picture(0).pixel(10, 10), QColor::fromHsv(6 * 50, 200, 200).rgb());
    // The third file in order is deck10.bmp, back number 2.
    QCOMPARE(chooser.picture(2).pixel(10, 10), QColor::fromHsv(50, 200, 200).rgb());
    QVERIFY(chooser.picture(7).isNull());

    // Seven backs: a row of six and one in the second row, 16-pixel margins and gaps.
    QCOMPARE(chooser.picDeck(0)->geometry(), QRect(16, 16, 71, 96));
    QCOMPARE(chooser.picDeck(5)->geometry(), QRect(16 + 5 * 87, 16, 71, 96));
    QCOMPARE(chooser.picDeck(6)->geometry(), QRect(16, 16 + 112, 71, 96));
    QCOMPARE(chooser.size(), QSize(16 + 6 * 87, 16 + 2 * 112));
}

void SideWindowsTest::chooserWithoutFiles()
{
    QTemporaryDir dir;
    CardBackChooser chooser(nullptr, dir.path());
    // No file: the built-in back stands alone as number 0.
    QCOMPARE(chooser.count(), 1);
    QCOMPARE(chooser.picture(0), CardArt::renderBuiltinBack(CardArt::DesignCell));
    QVERIFY(chooser.picture(1).isNull());
    QCOMPARE(chooser.size(), QSize(16 + 87, 16 + 112));

    // Fewer than six backs: the width follows their number.
    writeBack(dir.path(), QStringLiteral("deck1.bmp"), Qt::red);
    writeBack(dir.path(), QStringLiteral("deck2.bmp"), Qt::blue);
    chooser.load();
    QCOMPARE(chooser.count(), 2);
    QCOMPARE(chooser.picture(0).pixelColor(10, 10), QColor(Qt::red));
    QCOMPARE(chooser.size(), QSize(16 + 2 * 87, 16 + 112));
}

void SideWindowsTest::chooserHoldsAtMost37Backs()
{
    QTemporaryDir dir;
    for (int i = 0; i < 40; ++i)
        writeBack(dir.path(), QStringLiteral("deck%1.bmp").arg(i, 2, 10, QLatin1Char('0')), Qt::green);
    CardBackChooser chooser(nullptr, dir.path());
    QCOMPARE(chooser.count(), CardBackChooser::MaxBacks);
    QCOMPARE(chooser.fileNames().size(), 37);
    QCOMPARE(chooser.fileNames().last(), QStringLiteral("deck36.bmp"));
    QCOMPARE(chooser.size(), QSize(16 + 6 * 87, 16 + 7 * 112));
}

void SideWindowsTest::chooserClickChoosesAndHides()
{
    QTemporaryDir dir;
    writeBack(dir.path(), QStringLiteral("deck1.bmp"), Qt::red);
    writeBack(dir.path(), QStringLiteral("deck2.bmp"), Qt::blue);
    CardBackChooser chooser(nullptr, dir.path());
    QSignalSpy chosen(&chooser, &CardBackChooser::chosen);
    chooser.show();
    QVERIFY(QTest::qWaitForWindowExposed(&chooser));
    QTest::mouseClick(chooser.picDeck(1), Qt::LeftButton);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.at(0).at(0).toInt(), 1);
    QVERIFY(!chooser.isVisible());
}

void SideWindowsTest::splashCutsThePictureThroughItsMask()
{
    QImage background(4, 1, QImage::Format_RGB32);
    background.fill(QColor(0, 128, 0));
    QImage mask(4, 1, QImage::Format_RGB32);
    QImage picture(4, 1, QImage::Format_RGB32);
    // Pixels 0 and 1: outside the shape (white mask, black picture); 2 and 3: inside it.
    mask.setPixelColor(0, 0, Qt::white);
    mask.setPixelColor(1, 0, Qt::white);
    mask.setPixelColor(2, 0, Qt::black);
    mask.setPixelColor(3, 0, Qt::black);
    picture.setPixelColor(0, 0, Qt::black);
    picture.setPixelColor(1, 0, Qt::black);
    picture.setPixelColor(2, 0, QColor(200, 10, 10));
    picture.setPixelColor(3, 0, QColor(0, 0, 0));
    const QImage out = SplashWindow::composite(background, mask, picture);
    QCOMPARE(out.pixelColor(0, 0), QColor(0, 128, 0));
    QCOMPARE(out.pixelColor(1, 0), QColor(0, 128, 0));
    QCOMPARE(out.pixelColor(2, 0), QColor(200, 10, 10));
    QCOMPARE(out.pixelColor(3, 0), QColor(0, 0, 0));

    SplashWindow splash;
    QCOMPARE(splash.Label2->text(), QStringLiteral("Loading . . ."));
    // The line under the title is a text of the window, which a translation reaches.
    const QLabel *tagline = splash.findChild<QLabel *>(QStringLiteral("lblTagline"));
    QVERIFY(tagline);
    QCOMPARE(tagline->text(), QStringLiteral("Keep the total under 100."));
    splash.show();
    splash.drawSplash();
    QCOMPARE(splash.picture1().size(), QSize(142, 192));
    // What shows: the backdrop with its title, and the picture in its place over it.
    const QImage shown = splash.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(shown.size(), CardArt::splashWindowSize());
    const QImage backdrop = CardArt::renderSplashBackdrop();
    for (const QPoint at : {QPoint(3, 3), QPoint(300, 200), QPoint(230, 60)})
        QCOMPARE(shown.pixelColor(at), backdrop.pixelColor(at));
    const QPoint inPicture = CardArt::splashPictureRect().topLeft() + QPoint(71, 96);
    QCOMPARE(shown.pixelColor(inPicture), splash.picture1().pixelColor(71, 96));
}

void SideWindowsTest::aboutBoxTexts()
{
    AboutBox about;
    QCOMPARE(about.windowTitle(), QStringLiteral("About QX"));
    QCOMPARE(about.Label1->text(), QStringLiteral("QX"));
    QVERIFY(about.Label1->font().bold());
    QCOMPARE(about.Label1->font().pointSize(), 24);
    QCOMPARE(about.Label3->text(),
             QStringLiteral("See ORDER.TXT to order more from the Brackenfall Series or other games."));
    QVERIFY(!about.Label2->text().isEmpty());
    QCOMPARE(about.cmdOK->text(), QStringLiteral("&OK"));
    about.show();
    QVERIFY(QTest::qWaitForWindowExposed(&about));
    about.cmdOK->click();
    QVERIFY(!about.isVisible());
}

QTEST_MAIN(SideWindowsTest)
#include "tst_side_windows.moc"
