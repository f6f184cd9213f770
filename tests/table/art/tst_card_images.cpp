#include "CardArt.h"
#include "PixelChecks.h"

#include <QTest>

#include <climits>

using namespace qx;
using qx::test::pixelHash;

class CardImagesTest : public QObject {
    Q_OBJECT

private slots:
    void sameSizeTwiceIsTheSamePixmap();
    void newSizeRendersAnew();
    void faceIsTheStripCell_data();
    void faceIsTheStripCell();
    void devicePixelRatioScalesTheDrawing();
    void outOfRangeCodesGiveNull_data();
    void outOfRangeCodesGiveNull();
    void emptySizeOrRatioGivesNull();
    void manySizesDoNotPileUp();
    void builtinBackUntilAPictureIsChosen();
    void chosenBackPictureIsScaledAndRounded();
};

void CardImagesTest::sameSizeTwiceIsTheSamePixmap()
{
    CardImages images;
    const QPixmap first = images.face(7, QSize(71, 96), 1.0);
    const QPixmap again = images.face(7, QSize(71, 96), 1.0);
    QVERIFY(!first.isNull());
    QCOMPARE(again.cacheKey(), first.cacheKey());
    // Another card of the same size comes from the same strip but is its own picture.
    QVERIFY(images.face(8, QSize(71, 96), 1.0).cacheKey() != first.cacheKey());
}

void CardImagesTest::newSizeRendersAnew()
{
    CardImages images;
    const QPixmap medium = images.face(30, QSize(71, 96), 1.0);
    const QPixmap large = images.face(30, QSize(142, 192), 1.0);
    QCOMPARE(large.size(), QSize(142, 192));
    QVERIFY(large.cacheKey() != medium.cacheKey());
    // Going back to the first size finds it still kept.
    QCOMPARE(images.face(30, QSize(71, 96), 1.0).cacheKey(), medium.cacheKey());
}

void CardImagesTest::faceIsTheStripCell_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QSize>("size");
    QTest::newRow("ace, small") << 0 << QSize(36, 48);
    QTest::newRow("king of the first row, medium") << 12 << QSize(71, 96);
    QTest::newRow("first of the second row") << 13 << QSize(71, 96);
    QTest::newRow("last card, large") << 51 << QSize(142, 192);
}

void CardImagesTest::faceIsTheStripCell()
{
    QFETCH(int, code);
    QFETCH(QSize, size);
    CardImages images;
    const QImage face = images.face(code, size, 1.0).toImage();
    const QImage cell = CardArt::renderFaceStrip(size).copy(CardArt::cellRect(code, size));
    QCOMPARE(pixelHash(face), pixelHash(cell));
}

void CardImagesTest::devicePixelRatioScalesTheDrawing()
{
    CardImages images;
    const QPixmap sharp = images.face(40, QSize(71, 96), 2.0);
    QCOMPARE(sharp.size(), QSize(142, 192));
    QCOMPARE(sharp.devicePixelRatio(), 2.0);
    QCOMPARE(sharp.deviceIndependentSize(), QSizeF(71, 96));
    // The same device pixels at ratio 1 are the same drawing.
    QCOMPARE(pixelHash(images.face(40, QSize(142, 192), 1.0).toImage()), pixelHash(sharp.toImage()));
    const QPixmap back = images.back(QSize(71, 96), 2.0);
    QCOMPARE(back.size(), QSize(142, 192));
    QCOMPARE(back.devicePixelRatio(), 2.0);
}

void CardImagesTest::outOfRangeCodesGiveNull_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("-1") << -1;
    QTest::newRow("52") << 52;
    QTest::newRow("64") << 64;
    QTest::newRow("INT_MAX") << INT_MAX;
    QTest::newRow("INT_MIN") << INT_MIN;
}

void CardImagesTest::outOfRangeCodesGiveNull()
{
    QFETCH(int, code);
    CardImages images;
    QVERIFY(images.face(code, QSize(71, 96), 1.0).isNull());
    // A good code afterwards still works: nothing was left half done.
    QVERIFY(!images.face(51, QSize(71, 96), 1.0).isNull());
}

void CardImagesTest::emptySizeOrRatioGivesNull()
{
    CardImages images;
    QVERIFY(images.face(3, QSize(0, 96), 1.0).isNull());
    QVERIFY(images.face(3, QSize(71, 96), 0.0).isNull());
    QVERIFY(images.back(QSize(71, -5), 1.0).isNull());
}

void CardImagesTest::manySizesDoNotPileUp()
{
    CardImages images;
    const QPixmap first = images.face(5, QSize(40, 54), 1.0);
    for (int width = 41; width < 50; ++width)
        images.face(5, QSize(width, width * 4 / 3), 1.0);
    // The oldest size has been let go and is drawn again when asked for.
    const QPixmap redrawn = images.face(5, QSize(40, 54), 1.0);
    QVERIFY(redrawn.cacheKey() != first.cacheKey());
    QCOMPARE(pixelHash(redrawn.toImage()), pixelHash(first.toImage()));
}

void CardImagesTest::builtinBackUntilAPictureIsChosen()
{
    CardImages images;
    const QSize size(71, 96);
    const QPixmap back = images.back(size, 1.0);
    QCOMPARE(pixelHash(back.toImage()), pixelHash(CardArt::renderBuiltinBack(size)));
    QCOMPARE(images.back(size, 1.0).cacheKey(), back.cacheKey());

    QImage green(142, 192, QImage::Format_RGB32);
    green.fill(QColor(0, 160, 0));
    images.setBackPicture(green);
    const QPixmap chosen = images.back(size, 1.0);
    QVERIFY(chosen.cacheKey() != back.cacheKey());

    images.setBackPicture(QImage());
    QCOMPARE(pixelHash(images.back(size, 1.0).toImage()), pixelHash(back.toImage()));
}

void CardImagesTest::chosenBackPictureIsScaledAndRounded()
{
    CardImages images;
    QImage picture(142, 192, QImage::Format_RGB32);
    picture.fill(QColor(200, 40, 160));
    images.setBackPicture(picture);
    const QImage back = images.back(QSize(36, 48), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(back.size(), QSize(36, 48));
    // At this size the rounded corner cuts through the corner pixel, leaving only a trace of it.
    QVERIFY(qAlpha(back.pixel(0, 0)) < 40);
    QCOMPARE(back.pixel(18, 24), qRgb(200, 40, 160));
}

QTEST_MAIN(CardImagesTest)
#include "tst_card_images.moc"
