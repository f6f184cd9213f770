#include "Waiter.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

using namespace qx;

// The one wait helper: timed pauses, frame waits and waits on a condition, nested in each other.
class WaiterTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { Waiter::setTimeScale(1); }
    void pauseLastsItsTimeAndLetsTimersRun();
    void timeScaleShortensPauses();
    void waitUntilLooksAgainOnlyOnWake();
    void waitUntilReturnsAtOnceWhenAlreadyTrue();
    void nestedWaitsEachEndOnTheirOwnTerms();
    void releaseEndsEveryWait();
};

void WaiterTest::pauseLastsItsTimeAndLetsTimersRun()
{
    Waiter waiter;
    int ticks = 0;
    QTimer ticker;
    ticker.setInterval(10);
    connect(&ticker, &QTimer::timeout, [&] { ++ticks; });
    ticker.start();
    QElapsedTimer clock;
    clock.start();
    waiter.pause(0.15);
    QVERIFY(clock.elapsed() >= 140);
    QVERIFY(ticks >= 3);
    QCOMPARE(waiter.depth(), 0);
}

void WaiterTest::timeScaleShortensPauses()
{
    Waiter::setTimeScale(0);
    Waiter waiter;
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 20; ++i) {
        waiter.pause(1.5);
        waiter.frameWait();
    }
    QVERIFY(clock.elapsed() < 1000);
}

void WaiterTest::waitUntilLooksAgainOnlyOnWake()
{
    Waiter waiter;
    bool done = false;
    int looks = 0;
    // The condition turns true without a wake first: the wait must not notice until woken.
    QTimer::singleShot(10, [&] { done = true; });
    QTimer::singleShot(60, [&] { waiter.wake(); });
    QElapsedTimer clock;
    clock.start();
    waiter.waitUntil([&] {
        ++looks;
        return done;
    });
    QVERIFY(clock.elapsed() >= 50);
    QCOMPARE(looks, 2);
}

void WaiterTest::waitUntilReturnsAtOnceWhenAlreadyTrue()
{
    Waiter waiter;
    int looks = 0;
    waiter.waitUntil([&] { return ++looks > 0; });
    QCOMPARE(looks, 1);
    QCOMPARE(waiter.depth(), 0);
}

void WaiterTest::nestedWaitsEachEndOnTheirOwnTerms()
{
    Waiter waiter;
    bool outerDone = false;
    bool innerDone = false;
    QStringList order;
    // Inside the outer wait a timer starts an inner one; the outer's condition comes true while
    // the inner still waits, and it returns only after the inner one has.
    QTimer::singleShot(5, [&] {
        QTimer::singleShot(5, [&] {
            outerDone = true;
            waiter.wake();
        });
        QTimer::singleShot(40, [&] {
            innerDone = true;
            waiter.wake();
        });
        QCOMPARE(waiter.depth(), 1);
        waiter.waitUntil([&] { return innerDone; });
        order << QStringLiteral("inner");
        waiter.pause(0.01);
        order << QStringLiteral("pause in inner");
    });
    waiter.waitUntil([&] { return outerDone; });
    order << QStringLiteral("outer");
    QCOMPARE(order, (QStringList{"inner", "pause in inner", "outer"}));
    QCOMPARE(waiter.depth(), 0);
}

void WaiterTest::releaseEndsEveryWait()
{
    Waiter waiter;
    QTimer::singleShot(10, [&] { waiter.release(); });
    QElapsedTimer clock;
    clock.start();
    waiter.waitUntil([] { return false; });
    QVERIFY(waiter.released());
    waiter.pause(10);
    waiter.waitUntil([] { return false; });
    QVERIFY(clock.elapsed() < 2000);
}

QTEST_GUILESS_MAIN(WaiterTest)
#include "tst_waiter.moc"
