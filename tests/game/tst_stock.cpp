#include "EngineFixture.h"

#include <QTest>

using namespace qx;
using namespace qx::test;

// Shuffling, drawing, the deck tag, dealing and the rebuilt stock of a long round.
class StockTest : public QObject {
    Q_OBJECT

private slots:
    void shuffleHoldsEveryCodeOncePerPack_data();
    void shuffleHoldsEveryCodeOncePerPack();
    void shuffleOrdersByKeysWithTheExchangeSort();
    void shuffleShowsItsCaptionAndRestoresIt();
    void deckTag_data();
    void deckTag();
    void dealGoesSeatBySeat();
    void onePackTwoSeatsReshufflesAtTheFortySeventhDraw();
    void reshuffleShiftsFromTheFront();
    void reshuffleWithAllHeldCardsFound();
    void reshuffleBoundsOverManyRounds();
};

namespace {

QList<int> stock(const GameState &s, int from, int to)
{
    QList<int> cards;
    for (int i = from; i <= to; ++i)
        cards << s.Deck(i);
    return cards;
}

} // namespace

void StockTest::shuffleHoldsEveryCodeOncePerPack_data()
{
    QTest::addColumn<int>("packs");
    for (int packs = 1; packs <= MaxDecks; ++packs)
        QTest::addRow("%d packs", packs) << packs;
}

void StockTest::shuffleHoldsEveryCodeOncePerPack()
{
    QFETCH(int, packs);
    EngineFixture f{unsigned(packs)};
    f.state.NumberOfDecks = static_cast<int16_t>(packs);
    f.state.DeckPos = 77;
    f.engine.ShuffleDeck();

    const int n = packs * 52;
    QCOMPARE(f.random.draws, n); // one key per entry
    QCOMPARE(f.random.clockSeeds, 1);
    QCOMPARE(int(f.state.DeckPos), 1);
    QList<int> count(52, 0);
    for (int i = 1; i <= n; ++i) {
        const int code = f.state.Deck(i);
        QVERIFY(code >= 0 && code < 52);
        ++count[code];
    }
    QCOMPARE(count, QList<int>(52, packs));
}

void StockTest::shuffleOrdersByKeysWithTheExchangeSort()
{
    EngineFixture f;
    f.state.NumberOfDecks = 1;
    // Keys 0.5, 0.5, 0.2, then 0.9 for the rest. The exchange sort swaps entry 1 with entry 3
    // and then leaves the two equal keys alone: 2, 1, 0 (a stable sort would give 2, 0, 1).
    f.random.queue(0.5, 2);
    f.random.queue(0.2);
    f.random.queue(0.9, 49);
    f.engine.ShuffleDeck();
    QList<int> expected{2, 1, 0};
    for (int code = 3; code < 52; ++code)
        expected << code;
    QCOMPARE(stock(f.state, 1, 52), expected);

    // Falling keys reverse the packs.
    EngineFixture g;
    g.state.NumberOfDecks = 2;
    for (int i = 0; i < 104; ++i)
        g.random.queue(1.0 - (i + 1) / 128.0);
    g.engine.ShuffleDeck();
    QList<int> reversed;
    for (int i = 103; i >= 0; --i)
        reversed << i % 52;
    QCOMPARE(stock(g.state, 1, 104), reversed);
}

void StockTest::shuffleShowsItsCaptionAndRestoresIt()
{
    EngineFixture f;
    f.table.setCaption(QStringLiteral("4's Turn"));
    f.engine.ShuffleDeck();
    QCOMPARE(f.table.captions, (QStringList{"4's Turn", "Shuffling . . .", "4's Turn"}));
}

void StockTest::deckTag_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("card");
    QTest::newRow("two digits") << "07" << 7;
    QTest::newRow("highest code") << "51" << 51;
    QTest::newRow("zero") << "00" << 0;
    QTest::newRow("one digit") << "9" << 9;
    QTest::newRow("not a number") << "ab" << 0;
    QTest::newRow("digits then text") << "12x" << 12;
    QTest::newRow("leading blank") << " 33" << 33;
    QTest::newRow("no card of a pack") << "99" << 0;
    QTest::newRow("negative") << "-1" << 0;
}

void StockTest::deckTag()
{
    QFETCH(QString, tag);
    QFETCH(int, card);
    EngineFixture f;
    f.engine.ShuffleDeck();
    f.state.DeckPos = 5;
    f.state.DeckTag = tag;
    QCOMPARE(f.engine.DrawCard(), card);
    QVERIFY(f.state.DeckTag.isEmpty());
    QCOMPARE(int(f.state.DeckPos), 5);
    // The tag is used once; the stock serves the next draw.
    QCOMPARE(f.engine.DrawCard(), int(f.state.Deck(5)));
    QCOMPARE(int(f.state.DeckPos), 6);
}

void StockTest::dealGoesSeatBySeat()
{
    EngineFixture f;
    f.state.NumPlayers = 3;
    f.state.CurrentPlayer = 2;
    f.engine.ShuffleDeck();
    f.engine.showPile(card(5));
    f.engine.DealCards();
    for (int seat = 1; seat <= 3; ++seat)
        for (int slot = 0; slot < 3; ++slot)
            QCOMPARE(f.state.Hand(slot, seat), f.state.Deck((seat - 1) * 3 + slot + 1));
    for (int slot = 0; slot < 3; ++slot)
        QCOMPARE(f.table.shown[FirstHandSlot + slot], int(f.state.Hand(slot, 1)));
    QCOMPARE(f.table.shown[PileSlot], int(FakeTable::Empty));
    QCOMPARE(int(f.state.PileCard), -1);
    QCOMPARE(int(f.state.CurrentPlayer), 1);
    QCOMPARE(int(f.state.DeckPos), 10);
}

void StockTest::onePackTwoSeatsReshufflesAtTheFortySeventhDraw()
{
    EngineFixture f;
    f.state.NumPlayers = 2;
    f.engine.ShuffleDeck();
    f.engine.DealCards();
    QCOMPARE(f.random.clockSeeds, 1);
    for (int draw = 1; draw <= 46; ++draw)
        f.engine.DrawCard();
    QCOMPARE(f.random.clockSeeds, 1);
    f.table.captions.clear();
    f.engine.DrawCard();
    QCOMPARE(f.random.clockSeeds, 2);
    QCOMPARE(f.table.captions.value(0), QStringLiteral("Shuffling . . ."));
    const int removed = f.state.DeckPos - 2; // the 47th draw took entry Removed + 1
    QVERIFY(removed >= 0 && removed <= 7);
}

void StockTest::reshuffleShiftsFromTheFront()
{
    EngineFixture f;
    f.state.NumPlayers = 2;
    f.setHand(1, 10, 20, 30);
    f.setHand(2, 5, 0, 51);
    f.engine.showPile(40);
    f.random.queue(0.5, 52); // equal keys: the sort leaves the stock as the take-outs left it
    f.engine.ReshuffleDeck();

    // Five held cards are found (code 0 has already left the front when it is looked for), each
    // taking the front card out; the pile card 40 is taken out where it stands.
    QCOMPARE(int(f.state.DeckPos), 7);
    QList<int> expected;
    for (int code = 11; code <= 39; ++code)
        expected << code;
    for (int code = 41; code <= 51; ++code)
        expected << code;
    for (int i = 0; i < 6; ++i)
        expected << 51;
    QCOMPARE(stock(f.state, 7, 52), expected);
    QCOMPARE(f.random.draws, 52);
}

void StockTest::reshuffleWithAllHeldCardsFound()
{
    EngineFixture f;
    f.state.NumPlayers = 3;
    f.setHand(1, 40, 41, 42);
    f.setHand(2, 43, 44, 45);
    f.setHand(3, 46, 47, 48);
    f.engine.showPile(49);
    f.state.DeckPos = 53;
    f.engine.DrawCard();
    // Nine held cards and the pile card: Removed is 10, so 42 entries are drawn in all before
    // the next reshuffle.
    QCOMPARE(int(f.state.DeckPos), 12);
    int draws = 1;
    while (f.random.clockSeeds == 1) {
        f.engine.DrawCard();
        ++draws;
    }
    QCOMPARE(draws, 43);
}

void StockTest::reshuffleBoundsOverManyRounds()
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        EngineFixture f(seed);
        f.setUpRound({Computer, Computer, Computer}, 1 + int(seed % 4));
        const int n = f.state.stockSize();
        f.engine.showPile(f.engine.DrawCard());
        f.state.DeckPos = static_cast<int16_t>(n + 1);
        f.engine.DrawCard();
        const int removed = f.state.DeckPos - 2;
        QVERIFY2(removed >= 0 && removed <= 10, qPrintable(QString::number(removed)));
        for (int i = removed + 1; i <= n; ++i)
            QVERIFY(f.state.Deck(i) >= 0 && f.state.Deck(i) < 52);
    }
}

QTEST_GUILESS_MAIN(StockTest)
#include "tst_stock.moc"
