#include "Animation.h"
#include "ScoreTally.h"
#include "TableLayout.h"
#include "GameState.h"
#include "TableColours.h"
#include "TablePainter.h"

#include <QFontMetricsF>
#include <QPainter>

#include <QTest>

using namespace qx;

// Pure pieces of the table: where things stand, the tally of games and the flip's half count.
class TableLayoutTest : public QObject {
    Q_OBJECT

private slots:
    void nothingOverlaps_data();
    void nothingOverlaps();
    void largeFitsTheDesktop_data();
    void largeFitsTheDesktop();
    void platesReadOnEveryCloth_data();
    void platesReadOnEveryCloth();
    void seatsGoClockwiseFromTheLeft();
    void cardsScaleWithTheArea();
    void flipHalfCount_data();
    void flipHalfCount();
    void tallyOrdersByWins();
};

void TableLayoutTest::nothingOverlaps_data()
{
    QTest::addColumn<QSize>("area");
    QTest::addColumn<int>("seats");
    // The play area at the three card sizes, and two shapes a dragged border may give.
    // The smallest "&Small" table, and Small on a 1600 x 1000 desktop, come first.
    const QSize areas[] = {{240, 180}, {308, 231}, {360, 270}, {720, 540}, {1440, 1080}, {900, 480}, {560, 600}};
    for (const QSize &area : areas)
        for (int seats = 0; seats <= 10; seats += (seats == 0 ? 2 : 1))
            QTest::addRow("%dx%d, %d seats", area.width(), area.height(), seats) << area << seats;
}

void TableLayoutTest::nothingOverlaps()
{
    QFETCH(QSize, area);
    QFETCH(int, seats);
    const TableLayout l = TableLayout::compute(area, seats);
    QCOMPARE(static_cast<int>(l.seats.size()), seats);
    const std::vector<QRect> rects = l.allRects();
    const QRect bounds(QPoint(0, 0), area);
    for (size_t i = 0; i < rects.size(); ++i) {
        QVERIFY2(!rects[i].isEmpty(), qPrintable(QStringLiteral("rectangle %1 is empty").arg(i)));
        QVERIFY2(bounds.contains(rects[i]), qPrintable(QStringLiteral("rectangle %1 leaves the table").arg(i)));
        for (size_t j = i + 1; j < rects.size(); ++j) {
            QVERIFY2(!rects[i].intersects(rects[j]),
                     qPrintable(QStringLiteral("rectangles %1 and %2 overlap").arg(i).arg(j)));
        }
    }
    // The longest count of the stock (four packs less the first deal) stays whole under it.
    const QString count = QStringLiteral("207 cards left");
    const QFont font = TablePainter::stockCountFont(l, count);
    QVERIFY(font.pixelSize() >= 6);
    const QRectF needed = QFontMetricsF(font).boundingRect(QRectF(l.stockCount), Qt::AlignCenter, count);
    QVERIFY2(QRectF(l.stockCount).contains(needed), qPrintable(QStringLiteral("%1 px of text in %2 px")
                                                                  .arg(needed.width()).arg(l.stockCount.width())));
    // The tally's heading and its count of games stand apart on one line.
    const TablePainter::TallyHead heading = TablePainter::tallyHead(l, 100);
    const QFontMetricsF head(heading.font);
    const qreal headWidth = head.horizontalAdvance(QStringLiteral("Games won ")) + head.horizontalAdvance(heading.played);
    QVERIFY2(headWidth <= l.tally.width() - 2 * TablePainter::tallyPadding(l),
             qPrintable(QStringLiteral("%1 px of heading in %2 px").arg(headWidth).arg(l.tally.width())));
}

void TableLayoutTest::largeFitsTheDesktop_data()
{
    QTest::addColumn<QSize>("available");
    QTest::addColumn<QSize>("expected");
    QTest::newRow("1600 x 1000") << QSize(1600, 1000) << QSize(616, 462);
    QTest::newRow("1920 x 1080 less a panel") << QSize(1920, 1048) << QSize(648, 486);
    QTest::newRow("2560 x 1440: the full size") << QSize(2560, 1440) << QSize(720, 540);
    QTest::newRow("1024 x 768: too small for Large") << QSize(1024, 768) << QSize(480, 360);
}

void TableLayoutTest::largeFitsTheDesktop()
{
    QFETCH(QSize, available);
    QFETCH(QSize, expected);
    const QSize chrome(12, 65); // frame and menu bar round the play area
    const QSize area = TableLayout::startArea(available, chrome);
    QCOMPARE(area, expected);
    QCOMPARE(area.width() * 3, area.height() * 4);
    if (area.width() > TableLayout::SmallestStartArea.width()) {
        QVERIFY(2 * area.width() + chrome.width() <= available.width());
        QVERIFY(2 * area.height() + chrome.height() <= available.height());
    }
}

void TableLayoutTest::platesReadOnEveryCloth_data()
{
    QTest::addColumn<QColor>("felt");
    // "Match Windows" on a light and on a dark desktop, and the extremes a player may choose.
    QTest::newRow("light desktop face") << QColor(239, 239, 239);
    QTest::newRow("dark desktop face") << QColor(53, 53, 53);
    QTest::newRow("white") << QColor(255, 255, 255);
    QTest::newRow("yellow") << QColor(255, 255, 0);
    QTest::newRow("black") << QColor(0, 0, 0);
}

void TableLayoutTest::platesReadOnEveryCloth()
{
    QFETCH(QColor, felt);
    GameState state;
    state.NumPlayers = 4;
    state.CurrentPlayer = 1;
    state.Total = 12;
    const TableLayout layout = TableLayout::compute({720, 540}, 4);
    const QPixmap cloth = TablePainter::paintCloth(layout, felt, 1.0);
    QImage table(layout.area, QImage::Format_RGB32);
    {
        QPainter painter(&table);
        const TableScene scene{state, layout, felt, cloth, QStringLiteral("Player 1's Turn")};
        TablePainter(painter, scene).paint();
    }
    // The white names of the seats that wait are read against their plates: the plate just
    // inside its left end, clear of the name, must make them read.
    for (int seat = 2; seat <= 4; ++seat) {
        const QRect plate = layout.seats[static_cast<size_t>(seat - 1)];
        const QColor under = table.pixelColor(plate.left() + plate.height() / 4, plate.center().y());
        QVERIFY2(colours::contrast(Qt::white, under) >= 4.5,
                 qPrintable(QStringLiteral("seat %1: plate %2").arg(seat).arg(under.name())));
    }
}

void TableLayoutTest::seatsGoClockwiseFromTheLeft()
{
    for (int seats = 2; seats <= 10; ++seats) {
        const TableLayout l = TableLayout::compute({720, 540}, seats);
        const QPoint first = l.seats.front().center();
        const QPoint last = l.seats.back().center();
        QVERIFY(first.x() < 360);
        QVERIFY(last.x() > 360);
        // Mirror images of each other across the middle.
        QVERIFY(std::abs(first.x() + last.x() - 720) <= 3);
        QCOMPARE(first.y(), last.y());
        // Every seat above the hand.
        for (const QRect &plate : l.seats)
            QVERIFY(plate.bottom() < l.hand[0].top());
    }
    // Two seats face each other across the middle row.
    const TableLayout two = TableLayout::compute({720, 540}, 2);
    QVERIFY(std::abs(two.seats[0].center().y() - two.pile.center().y()) <= 2);
}

void TableLayoutTest::cardsScaleWithTheArea()
{
    const TableLayout small = TableLayout::compute({360, 270}, 4);
    const TableLayout large = TableLayout::compute({1440, 1080}, 4);
    QVERIFY(std::abs(large.card.width() - 4 * small.card.width()) <= 4);
    QVERIFY(std::abs(large.card.height() - 4 * small.card.height()) <= 4);
    // The card keeps the 71 x 96 shape.
    QVERIFY(std::abs(large.card.width() * 96 - large.card.height() * 71) <= 96);
    for (const QRect &r : {large.pile, large.stock, large.hand[0], large.hand[1], large.hand[2]})
        QCOMPARE(r.size(), large.card);
}

void TableLayoutTest::flipHalfCount_data()
{
    QTest::addColumn<int>("frames");
    QTest::addColumn<int>("half");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("one step: 0.5 rounds to 0") << 1 << 0;
    QTest::newRow("3: 1.5 rounds to 2") << 3 << 2;
    QTest::newRow("fast: 2.5 rounds to 2") << 5 << 2;
    QTest::newRow("7: 3.5 rounds to 4") << 7 << 4;
    QTest::newRow("9: 4.5 rounds to 4") << 9 << 4;
    QTest::newRow("medium") << 10 << 5;
    QTest::newRow("11: 5.5 rounds to 6") << 11 << 6;
    QTest::newRow("slow") << 20 << 10;
    QTest::newRow("negative") << -3 << 0;
}

void TableLayoutTest::flipHalfCount()
{
    QFETCH(int, frames);
    QFETCH(int, half);
    QCOMPARE(CardAnimator::flipHalfCount(frames), half);
}

void TableLayoutTest::tallyOrdersByWins()
{
    ScoreTally tally;
    QCOMPARE(tally.gamesPlayed(), 0);
    QVERIFY(tally.standings().empty());
    tally.recordWin(QStringLiteral("Player 1"));
    tally.recordWin(QStringLiteral("Computer 3"));
    tally.recordWin(QStringLiteral("Computer 3"));
    tally.recordWin(QStringLiteral("Ada"));
    QCOMPARE(tally.gamesPlayed(), 4);
    QCOMPARE(tally.wins(QStringLiteral("Computer 3")), 2);
    QCOMPARE(tally.wins(QStringLiteral("Nobody")), 0);
    const auto rows = tally.standings();
    QCOMPARE(rows.size(), size_t(3));
    QCOMPARE(rows[0].first, QStringLiteral("Computer 3"));
    // Equal wins keep the order of the names.
    QCOMPARE(rows[1].first, QStringLiteral("Ada"));
    QCOMPARE(rows[2].first, QStringLiteral("Player 1"));
}

QTEST_MAIN(TableLayoutTest)
#include "tst_table_layout.moc"
