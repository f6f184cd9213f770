#include "Animation.h"
#include "ScoreTally.h"
#include "TableLayout.h"

#include <QTest>

using namespace qx;

// Pure pieces of the table: where things stand, the tally of games and the flip's half count.
class TableLayoutTest : public QObject {
    Q_OBJECT

private slots:
    void nothingOverlaps_data();
    void nothingOverlaps();
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
    const QSize areas[] = {{360, 270}, {720, 540}, {1440, 1080}, {900, 480}, {560, 600}};
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

QTEST_GUILESS_MAIN(TableLayoutTest)
#include "tst_table_layout.moc"
