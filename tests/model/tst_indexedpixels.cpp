#include "history/pixeleditcommand.h"
#include "model/indexedpixels.h"
#include "model/spritebank.h"
#include "model/tilesetedit.h"

#include <QUndoStack>
#include <QtTest>

namespace {

// Indices 1 and 2 share one colour, as in a palette with repeated entries.
QImage picture(int width, int height, int index)
{
    QImage image(width, height, QImage::Format_Indexed8);
    image.setColorTable({ qRgb(0, 0, 0), qRgb(9, 9, 9), qRgb(9, 9, 9) });
    image.fill(index);
    return image;
}

} // namespace

class TestIndexedPixels : public QObject
{
    Q_OBJECT
private slots:
    void compare_data();
    void compare();
    void snapshotsSeeIndicesOfOneColour();
};

void TestIndexedPixels::compare_data()
{
    QTest::addColumn<QImage>("a");
    QTest::addColumn<QImage>("b");
    QTest::addColumn<bool>("same");

    QImage otherTable = picture(3, 2, 1);
    otherTable.setColorTable({ qRgb(1, 2, 3), qRgb(4, 5, 6), qRgb(7, 8, 9) });
    // Width 3 leaves a byte of padding at the end of each 4-byte row.
    QImage padded = picture(3, 2, 1);
    padded.scanLine(1)[3] = 2;

    QTest::newRow("two indices of one colour differ") << picture(3, 2, 1) << picture(3, 2, 2) << false;
    QTest::newRow("equal indices under other colours are equal") << picture(3, 2, 1) << otherTable << true;
    QTest::newRow("row padding is not a pixel") << picture(3, 2, 1) << padded << true;
    QTest::newRow("another size differs") << picture(3, 2, 1) << picture(2, 3, 1) << false;
    QTest::newRow("another format differs") << picture(3, 2, 0)
                                            << picture(3, 2, 0).convertToFormat(QImage::Format_RGB32) << false;
    QTest::newRow("null and a picture differ") << QImage() << picture(1, 1, 0) << false;
    QTest::newRow("two nulls are equal") << QImage() << QImage() << true;
}

void TestIndexedPixels::compare()
{
    QFETCH(QImage, a);
    QFETCH(QImage, b);
    QFETCH(bool, same);
    QCOMPARE(sameIndexedPixels(a, b), same);
    QCOMPARE(sameIndexedPixels(b, a), same);
}

void TestIndexedPixels::snapshotsSeeIndicesOfOneColour()
{
    const QImage one = picture(8, 8, 1);
    const QImage two = picture(8, 8, 2);
    QVERIFY(one == two); // what the helper is there to avoid

    TileRecord tileBefore { one };
    QVERIFY(tileBefore != TileRecord { two });

    SpriteBank::State bankBefore { one, QByteArray(1, '\0'), {} };
    QVERIFY(bankBefore != SpriteBank::State({ two, QByteArray(1, '\0'), {} }));

    // A merge that ends on another index of the same colour is still an edit.
    QObject target;
    QUndoStack stack;
    auto apply = [](const QImage&) {};
    stack.push(new PixelEditCommand("Scroll", &target, PixelEditCommand::Tile, one, two, apply, 1));
    stack.push(new PixelEditCommand("Scroll", &target, PixelEditCommand::Tile, two, two, apply, 1));
    QCOMPARE(stack.count(), 1);
    stack.push(new PixelEditCommand("Scroll", &target, PixelEditCommand::Tile, two, one, apply, 1));
    QCOMPARE(stack.count(), 0); // back to the start: the merged step is obsolete
}

QTEST_GUILESS_MAIN(TestIndexedPixels)
#include "tst_indexedpixels.moc"
