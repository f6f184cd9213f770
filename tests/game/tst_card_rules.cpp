#include "EngineFixture.h"

#include <QTest>

using namespace qx;
using namespace qx::test;

// The value, legality and effect of every card, and the computer's choice among three.
class CardRulesTest : public QObject {
    Q_OBJECT

private slots:
    void cardValue_data();
    void cardValue();
    void play_data();
    void play();
    void twoKingsRestoreDirection();
    void chooseCard_data();
    void chooseCard();
    void chooseCardDrawsOnceEvenWhenStuck();
};

void CardRulesTest::cardValue_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("value");
    // By rank: ace 1, 2..8 face value except the four, nine 99, ten -10, jack and queen 10, king 0.
    const int byRank[13] = {1, 2, 3, 0, 5, 6, 7, 8, 99, -10, 10, 10, 0};
    for (int code = 0; code < 52; ++code)
        QTest::addRow("code %d", code) << code << byRank[code % 13];
}

void CardRulesTest::cardValue()
{
    QFETCH(int, code);
    QFETCH(int, value);
    QCOMPARE(TurnEngine::CardValue(code), value);
}

void CardRulesTest::play_data()
{
    QTest::addColumn<int>("total");
    QTest::addColumn<int>("rank");
    QTest::addColumn<bool>("legal");
    QTest::addColumn<int>("after"); // the total after the play, when legal
    QTest::addColumn<bool>("reverses");

    const struct {
        int total, rank;
        bool legal;
        int after;
    } rows[] = {
        {95, Ace, true, 96},    {95, 2, true, 97},       {95, 3, true, 98},     {95, Four, true, 95},
        {95, 5, false, 0},      {95, 6, false, 0},       {95, 7, false, 0},     {95, 8, false, 0},
        {95, Nine, true, 99},   {95, Ten, true, 85},     {95, Jack, false, 0},  {95, Queen, false, 0},
        {95, King, true, 95},   {99, Ace, false, 0},     {99, 2, false, 0},     {99, Four, true, 99},
        {99, Nine, true, 99},   {99, Ten, true, 89},     {99, Jack, false, 0},  {99, King, true, 99},
        {4, Ten, true, 0},      {0, Ten, true, 0},       {9, Ten, true, 0},     {10, Ten, true, 0},
        {11, Ten, true, 1},     {0, Nine, true, 99},     {50, Nine, true, 99},  {89, Jack, true, 99},
        {90, Queen, false, 0},  {91, 8, true, 99},       {92, 8, false, 0},     {0, Ace, true, 1},
    };
    for (const auto &r : rows) {
        QTest::addRow("total %d rank %d", r.total, r.rank)
            << r.total << r.rank << r.legal << r.after << (r.rank == King);
    }
}

void CardRulesTest::play()
{
    QFETCH(int, total);
    QFETCH(int, rank);
    QFETCH(bool, legal);
    QFETCH(int, after);
    QFETCH(bool, reverses);

    EngineFixture f;
    for (int suit = 0; suit < 4; ++suit) {
        f.state.Total = static_cast<int16_t>(total);
        f.state.Direction = 1;
        QCOMPARE(f.engine.isLegal(card(rank, suit)), legal);
        if (!legal)
            continue;
        f.engine.applyCardToTotal(card(rank, suit));
        QCOMPARE(int(f.state.Total), after);
        QCOMPARE(int(f.state.Direction), reverses ? -1 : 1);
    }
}

void CardRulesTest::twoKingsRestoreDirection()
{
    EngineFixture f;
    f.state.Total = 40;
    f.state.Direction = 1;
    f.engine.applyCardToTotal(card(King, 1));
    QCOMPARE(int(f.state.Direction), -1);
    f.engine.applyCardToTotal(card(King, 3));
    QCOMPARE(int(f.state.Direction), 1);
    QCOMPARE(int(f.state.Total), 40);
}

void CardRulesTest::chooseCard_data()
{
    QTest::addColumn<int>("total");
    QTest::addColumn<QList<int>>("ranks");
    QTest::addColumn<double>("r");
    QTest::addColumn<int>("slot");

    using L = QList<int>;
    QTest::newRow("jack highest, no nine, low r") << 80 << L{Ace, Jack, 5} << 0.1 << 1;
    QTest::newRow("jack highest, no nine, high r") << 80 << L{Ace, Jack, 5} << 0.9 << 1;
    QTest::newRow("nine seven two at 95, high r") << 95 << L{Nine, 7, 2} << 0.9 << 0;
    QTest::newRow("nine seven two at 95, low r") << 95 << L{Nine, 7, 2} << 0.5 << 2;
    QTest::newRow("r exactly 0.7 is not above") << 95 << L{Nine, 7, 2} << 0.7 << 2;
    QTest::newRow("nine ten king at 99, low r") << 99 << L{Nine, Ten, King} << 0.1 << 0;
    QTest::newRow("nine ten king at 99, high r") << 99 << L{Nine, Ten, King} << 0.9 << 0;
    QTest::newRow("jack queen eight at 95, low r") << 95 << L{Jack, Queen, 8} << 0.1 << -1;
    QTest::newRow("jack queen eight at 95, high r") << 95 << L{Jack, Queen, 8} << 0.9 << -1;
    QTest::newRow("only the nine playable, low r") << 95 << L{Jack, Queen, Nine} << 0.1 << 2;
    QTest::newRow("only the nine playable, high r") << 95 << L{Nine, Queen, Jack} << 0.9 << 0;
    QTest::newRow("three nines, low r") << 99 << L{Nine, Nine, Nine} << 0.1 << 0;
    QTest::newRow("tie keeps the lower slot") << 0 << L{2, 5, 5} << 0.1 << 1;
    QTest::newRow("best in slot 0") << 0 << L{8, 3, Nine} << 0.1 << 0;
    QTest::newRow("best in slot 0, high r takes the nine") << 0 << L{8, 3, Nine} << 0.95 << 2;
    QTest::newRow("king beats ten, nine preferred") << 50 << L{Ten, King, Nine} << 0.1 << 2;
    QTest::newRow("four and king, no nine") << 50 << L{Four, King, Ten} << 0.1 << 0;
    QTest::newRow("tens only") << 0 << L{Ten, Ten, Ten} << 0.1 << 0;
    QTest::newRow("jack over nine, low r") << 50 << L{Jack, Nine, 2} << 0.5 << 0;
    QTest::newRow("jack over nine, high r") << 50 << L{Jack, Nine, 2} << 0.95 << 1;
    QTest::newRow("illegal high card skipped") << 92 << L{Queen, 7, Ace} << 0.1 << 1;
    QTest::newRow("everything legal at 0") << 0 << L{Queen, 7, Ace} << 0.99 << 0;
}

void CardRulesTest::chooseCard()
{
    QFETCH(int, total);
    QFETCH(QList<int>, ranks);
    QFETCH(double, r);
    QFETCH(int, slot);

    EngineFixture f;
    f.state.Total = static_cast<int16_t>(total);
    // Different suits, so the choice cannot depend on the codes beyond their ranks.
    f.setHand(3, card(ranks[0], 0), card(ranks[1], 1), card(ranks[2], 2));
    f.random.queue(r);
    const GameState before = f.state;
    QCOMPARE(f.engine.ChooseCard(3), slot);
    QCOMPARE(f.random.draws, 1);
    QCOMPARE(int(f.state.Total), int(before.Total));
    for (int s = 0; s < 3; ++s)
        QCOMPARE(f.state.Hand(s, 3), before.Hand(s, 3));
}

void CardRulesTest::chooseCardDrawsOnceEvenWhenStuck()
{
    EngineFixture f;
    f.state.Total = 99;
    f.setHand(1, card(Jack), card(Queen), card(5));
    for (int call = 1; call <= 5; ++call) {
        QCOMPARE(f.engine.ChooseCard(1), -1);
        QCOMPARE(f.random.draws, call);
    }
}

QTEST_GUILESS_MAIN(CardRulesTest)
#include "tst_card_rules.moc"
