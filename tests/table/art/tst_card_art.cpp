#include "ArtParts.h"
#include "CardArt.h"
#include "PixelChecks.h"

#include <QSet>
#include <QTest>

using namespace qx;
using qx::test::countPixels;
using qx::test::isRedInk;
using qx::test::pixelHash;

class CardArtTest : public QObject {
    Q_OBJECT

private slots:
    void cellRectPlacesCodesRowBySuit_data();
    void cellRectPlacesCodesRowBySuit();
    void stripHasThirteenByFourCells_data();
    void stripHasThirteenByFourCells();
    void allFacesDifferPairwise_data();
    void allFacesDifferPairwise();
    void redSuitsAreRedAndBlackSuitsAreNot();
    void facesAreRoundedCards();
    void cornerIndicesStayInsideTheBorder_data();
    void cornerIndicesStayInsideTheBorder();
    void backDesignsAreManyAndAllDiffer();
    void backDesignOutOfRangeIsEmpty();
    void cutToCardShapeClearsOnlyTheCorners();
    void splashMaskCoversExactlyThePicture();
    void waitPicturesAreFourDistinctFrames();
    void appIconIsOpaqueInsideTransparentOutside();
    void emptySizesGiveEmptyPictures();
};

void CardArtTest::cellRectPlacesCodesRowBySuit_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QSize>("cell");
    QTest::addColumn<QRect>("expected");

    const QSize medium(71, 96);
    QTest::newRow("ace of the first suit: top left") << 0 << medium << QRect(0, 0, 71, 96);
    QTest::newRow("king of the first suit: top right") << 12 << medium << QRect(852, 0, 71, 96);
    QTest::newRow("ace of the second suit: second row") << 13 << medium << QRect(0, 96, 71, 96);
    QTest::newRow("last card: bottom right") << 51 << medium << QRect(852, 288, 71, 96);
    QTest::newRow("small cells scale the grid") << 51 << QSize(36, 48) << QRect(432, 144, 36, 48);
    QTest::newRow("middle of the strip") << 27 << QSize(142, 192) << QRect(142, 384, 142, 192);
}

void CardArtTest::cellRectPlacesCodesRowBySuit()
{
    QFETCH(int, code);
    QFETCH(QSize, cell);
    QFETCH(QRect, expected);
    QCOMPARE(CardArt::cellRect(code, cell), expected);
}

void CardArtTest::stripHasThirteenByFourCells_data()
{
    QTest::addColumn<QSize>("cell");
    QTest::newRow("small") << QSize(36, 48);
    QTest::newRow("medium") << QSize(71, 96);
    QTest::newRow("large") << QSize(142, 192);
}

void CardArtTest::stripHasThirteenByFourCells()
{
    QFETCH(QSize, cell);
    const QImage strip = CardArt::renderFaceStrip(cell);
    QCOMPARE(strip.size(), QSize(cell.width() * 13, cell.height() * 4));
    // The last cell is filled right to its edge region, not cut short.
    const QRect last = CardArt::cellRect(51, cell);
    QVERIFY(strip.rect().contains(last));
    QCOMPARE(qAlpha(strip.pixel(last.center())), 255);
}

void CardArtTest::allFacesDifferPairwise_data()
{
    QTest::addColumn<QSize>("cell");
    QTest::newRow("small") << QSize(36, 48);
    QTest::newRow("medium") << QSize(71, 96);
}

void CardArtTest::allFacesDifferPairwise()
{
    QFETCH(QSize, cell);
    const QImage strip = CardArt::renderFaceStrip(cell);
    QHash<QByteArray, int> seen;
    for (int code = 0; code < 52; ++code) {
        const QByteArray hash = pixelHash(strip.copy(CardArt::cellRect(code, cell)));
        QVERIFY2(!seen.contains(hash),
                 qPrintable(QStringLiteral("cards %1 and %2 look the same").arg(seen.value(hash)).arg(code)));
        seen.insert(hash, code);
    }
}

void CardArtTest::redSuitsAreRedAndBlackSuitsAreNot()
{
    const QSize cell(71, 96);
    const QImage strip = CardArt::renderFaceStrip(cell);
    for (int code = 0; code < 52; ++code) {
        const int suit = code / 13; // clubs, diamonds, hearts, spades
        const bool red = suit == 1 || suit == 2;
        const int redPixels = countPixels(strip.copy(CardArt::cellRect(code, cell)), isRedInk);
        if (red)
            QVERIFY2(redPixels > 40, qPrintable(QStringLiteral("card %1 has only %2 red pixels").arg(code).arg(redPixels)));
        else
            QVERIFY2(redPixels == 0, qPrintable(QStringLiteral("card %1 has %2 red pixels").arg(code).arg(redPixels)));
    }
}

void CardArtTest::facesAreRoundedCards()
{
    const QSize cell(71, 96);
    const QImage strip = CardArt::renderFaceStrip(cell);
    for (int code : {0, 25, 51}) {
        const QRect r = CardArt::cellRect(code, cell);
        QCOMPARE(qAlpha(strip.pixel(r.topLeft())), 0);
        QCOMPARE(qAlpha(strip.pixel(r.bottomRight())), 0);
        // The middle of the top edge is the card's border: opaque and dark.
        const QRgb edge = strip.pixel(r.left() + r.width() / 2, r.top());
        QVERIFY(qAlpha(edge) > 128);
        QVERIFY(qGray(edge) < 200);
    }
}

void CardArtTest::cornerIndicesStayInsideTheBorder_data()
{
    QTest::addColumn<int>("width");
    // The card widths of "&Small" tables (compact indices) and of a medium one.
    for (int width : {28, 31, 35, 38, 44, 50, 53, 71})
        QTest::addRow("%d pixels wide", width) << width;
}

void CardArtTest::cornerIndicesStayInsideTheBorder()
{
    QFETCH(int, width);
    const QSize cell(width, qRound(width * 96.0 / 71));
    const QImage strip = CardArt::renderFaceStrip(cell).convertToFormat(QImage::Format_ARGB32);
    const qreal unitsX = CardArt::DesignWidth / cell.width();
    const qreal unitsY = CardArt::DesignHeight / cell.height();
    const qreal border = std::max(0.75, std::min(unitsX, unitsY));
    // No red in a pixel whose middle lies on the border or outside it.
    const QPainterPath inside = CardArt::cardOutline(border);
    for (int code = 26; code < 39; ++code) { // the red suit's thirteen ranks: red ink is easy to tell
        const QRect r = CardArt::cellRect(code, cell);
        for (int y = 0; y < cell.height(); ++y)
            for (int x = 0; x < cell.width(); ++x) {
                const QRgb pixel = strip.pixel(r.left() + x, r.top() + y);
                if (qAlpha(pixel) < 128 || qRed(pixel) - qGreen(pixel) < 60)
                    continue;
                const QPointF design((x + 0.5) * unitsX, (y + 0.5) * unitsY);
                QVERIFY2(inside.contains(design), qPrintable(QStringLiteral("code %1: red ink at %2,%3")
                                                                 .arg(code).arg(x).arg(y)));
            }
    }
}

void CardArtTest::backDesignsAreManyAndAllDiffer()
{
    QVERIFY(CardArt::backDesignCount() >= 8);
    const QSize size(71, 96);
    QSet<QByteArray> seen;
    const QImage builtin = CardArt::renderBuiltinBack(size);
    QCOMPARE(builtin.size(), size);
    seen.insert(pixelHash(builtin));
    for (int design = 1; design <= CardArt::backDesignCount(); ++design) {
        const QImage back = CardArt::renderBackDesign(design, size);
        QCOMPARE(back.size(), size);
        QCOMPARE(qAlpha(back.pixel(35, 48)), 255);
        const QByteArray hash = pixelHash(back);
        QVERIFY2(!seen.contains(hash), qPrintable(QStringLiteral("back %1 repeats another").arg(design)));
        seen.insert(hash);
    }
}

void CardArtTest::backDesignOutOfRangeIsEmpty()
{
    QVERIFY(CardArt::renderBackDesign(0, QSize(71, 96)).isNull());
    QVERIFY(CardArt::renderBackDesign(-3, QSize(71, 96)).isNull());
    QVERIFY(CardArt::renderBackDesign(CardArt::backDesignCount() + 1, QSize(71, 96)).isNull());
}

void CardArtTest::cutToCardShapeClearsOnlyTheCorners()
{
    QImage square(142, 192, QImage::Format_RGB32);
    square.fill(QColor(10, 200, 30));
    const QImage shaped = CardArt::cutToCardShape(square);
    QCOMPARE(shaped.size(), square.size());
    QCOMPARE(qAlpha(shaped.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(shaped.pixel(141, 191)), 0);
    QCOMPARE(shaped.pixel(71, 96), square.pixel(71, 96));
    QCOMPARE(shaped.pixel(71, 1), square.pixel(71, 1));
    QVERIFY(CardArt::cutToCardShape(QImage()).isNull());
}

void CardArtTest::splashMaskCoversExactlyThePicture()
{
    const QSize size(142, 192);
    const QImage picture = CardArt::renderSplashPicture(size);
    const QImage mask = CardArt::renderSplashMask(size);
    QCOMPARE(picture.size(), size);
    QCOMPARE(mask.size(), size);
    int black = 0, white = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QRgb m = mask.pixel(x, y) & 0xffffff;
            QVERIFY(m == 0 || m == 0xffffff);
            if (m == 0) {
                ++black;
            } else {
                ++white;
                // Outside the shape the picture must be black, or OR-ing it would tint the background.
                QCOMPARE(picture.pixel(x, y) & 0xffffff, 0u);
            }
        }
    }
    const int area = size.width() * size.height();
    QVERIFY(black > area / 4);
    QVERIFY(white > area / 10);
    // The picture has colour inside the shape: white card bodies and red pips.
    QVERIFY(countPixels(picture, isRedInk) > 20);
}

void CardArtTest::waitPicturesAreFourDistinctFrames()
{
    const QSize size(32, 32);
    QSet<QByteArray> frames;
    for (int index = 0; index < 4; ++index) {
        const QImage frame = CardArt::renderWaitPicture(index, size);
        QCOMPARE(frame.size(), size);
        QCOMPARE(qAlpha(frame.pixel(0, 31)), 0);
        frames.insert(pixelHash(frame));
    }
    QCOMPARE(frames.size(), 4);
    QCOMPARE(pixelHash(CardArt::renderWaitPicture(4, size)), pixelHash(CardArt::renderWaitPicture(0, size)));
    QCOMPARE(pixelHash(CardArt::renderWaitPicture(-1, size)), pixelHash(CardArt::renderWaitPicture(3, size)));
}

void CardArtTest::appIconIsOpaqueInsideTransparentOutside()
{
    for (int size : {16, 48, 256}) {
        const QImage icon = CardArt::renderAppIcon(size);
        QCOMPARE(icon.size(), QSize(size, size));
        QCOMPARE(qAlpha(icon.pixel(0, 0)), 0);
        QCOMPARE(qAlpha(icon.pixel(size / 2, size / 2)), 255);
    }
}

void CardArtTest::emptySizesGiveEmptyPictures()
{
    QVERIFY(CardArt::renderFaceStrip(QSize(0, 96)).isNull());
    QVERIFY(CardArt::renderBuiltinBack(QSize(71, 0)).isNull());
    QVERIFY(CardArt::renderAppIcon(0).isNull());
    QVERIFY(CardArt::renderWaitPicture(1, QSize()).isNull());
}

QTEST_MAIN(CardArtTest)
#include "tst_card_art.moc"
