#include "interchange/imageslicer.h"
#include "interchange/spritepictureimport.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/transform.h"

#include <QSignalSpy>
#include <QtTest>

class TestImageSlicer : public QObject
{
    Q_OBJECT
private slots:
    void marginIsDroppedAndRowsCounted();
    void orientationsMakeOneTile_data();
    void orientationsMakeOneTile();
    void symmetricTileTakesLowestFlags();
    void firstFitPutsATileIntoAnEarlierBank();
    void sharedColoursKeepTheirSlots();
    void seventeenColoursStopTheBuild();
    void spritesAreNotMerged();
    void spritePictureFillsTheBank();
};

namespace {

const QList<QRgb> Grid = { qRgb(0, 0, 0),       qRgb(255, 0, 0),     qRgb(0, 255, 0),     qRgb(0, 0, 255),
                           qRgb(255, 255, 0),   qRgb(0, 255, 255),   qRgb(255, 0, 255),   qRgb(255, 255, 255),
                           qRgb(128, 0, 0),     qRgb(0, 128, 0),     qRgb(0, 0, 128),     qRgb(128, 128, 0),
                           qRgb(0, 128, 128),   qRgb(128, 0, 128),   qRgb(128, 128, 128), qRgb(64, 0, 0),
                           qRgb(0, 64, 0),      qRgb(0, 0, 64),      qRgb(64, 64, 0),     qRgb(0, 64, 64) };

// An 8x8 tile of `colours` distinct colours starting at `first`, laid out so
// that no two of its eight orientations are alike.
QImage tile(int first, int colours)
{
    QImage image(8, 8, QImage::Format_RGB32);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            image.setPixel(x, y, Grid[first + (x * 3 + y * 5 + (x > y ? 1 : 0)) % colours]);
    image.setPixel(0, 0, Grid[first + 1 % colours]);
    image.setPixel(1, 0, Grid[first + 2 % colours]);
    return image;
}

QImage row(const QList<QImage>& tiles)
{
    QImage picture(8 * int(tiles.size()), 8, QImage::Format_RGB32);
    for (int i = 0; i < tiles.size(); ++i)
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x)
                picture.setPixel(i * 8 + x, y, tiles[i].pixel(x, y));
    return picture;
}

// What the cell shows: its tile drawn with its flags, coloured from the
// finished palette through its bank.
QImage drawn(const ImageSlicer& slicer, int column)
{
    const TileMap::TileData cell = slicer.cell(column, 0);
    const QImage shape = transformed(slicer.piece(cell.index), cell.rotate, cell.flip, cell.mirror);
    QImage result(8, 8, QImage::Format_RGB32);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            result.setPixel(x, y, slicer.colours().at(cell.offset * 16 + shape.pixelIndex(x, y)));
    return result;
}

} // namespace

void TestImageSlicer::marginIsDroppedAndRowsCounted()
{
    QImage picture(20, 28, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ImageSlicer slicer(picture);
    QSignalSpy progress(&slicer, &ImageSlicer::processed);
    QCOMPARE(slicer.sliceTiles(), 1);
    QCOMPARE(slicer.columns(), 2);
    QCOMPARE(slicer.rows(), 3);
    QCOMPARE(slicer.stepCount(), 3);
    QCOMPARE(progress.count(), 3);
    QCOMPARE(progress.last().at(0).toInt(), 3);
    QCOMPARE(slicer.cell(1, 1).index, 0);
    QVERIFY(slicer.cell(1, 1).visible);
    QCOMPARE(slicer.cell(2, 0), TileMap::TileData());
}

void TestImageSlicer::orientationsMakeOneTile_data()
{
    QTest::addColumn<int>("flags");
    for (int flags = 0; flags < 8; ++flags)
        QTest::addRow("flags %d", flags) << flags;
}

void TestImageSlicer::orientationsMakeOneTile()
{
    QFETCH(int, flags);
    const QImage original = tile(0, 4);
    const QImage picture = row({ original, transformedByFlags(original, flags) });
    ImageSlicer slicer(picture);
    QCOMPARE(slicer.sliceTiles(), 1);
    const TileMap::TileData cell = slicer.cell(1, 0);
    QCOMPARE(cell.index, 0);
    QCOMPARE((cell.rotate ? 4 : 0) | (cell.mirror ? 2 : 0) | (cell.flip ? 1 : 0), flags);
    QCOMPARE(drawn(slicer, 0), original);
    QCOMPARE(drawn(slicer, 1), picture.copy(8, 0, 8, 8));
}

void TestImageSlicer::symmetricTileTakesLowestFlags()
{
    QImage symmetric(8, 8, QImage::Format_RGB32);
    symmetric.fill(Qt::black);
    symmetric.setPixel(3, 0, qRgb(255, 0, 0));
    symmetric.setPixel(4, 0, qRgb(255, 0, 0)); // a mirror looks the same
    ImageSlicer slicer(row({ symmetric, symmetric.mirrored(true, false) }));
    QCOMPARE(slicer.sliceTiles(), 1);
    QCOMPARE(slicer.cell(1, 0).mirror, false);
    QCOMPARE(slicer.cell(1, 0).rotate, false);
}

void TestImageSlicer::firstFitPutsATileIntoAnEarlierBank()
{
    // 10 colours fill most of bank 0; the next 10 need bank 1; 5 more still
    // fit in the 6 free slots of bank 0.
    ImageSlicer slicer(row({ tile(0, 10), tile(10, 10), tile(15, 5) }));
    QCOMPARE(slicer.sliceTiles(), 3);
    QCOMPARE(slicer.pieceOffset(0), 0);
    QCOMPARE(slicer.pieceOffset(1), 1);
    QCOMPARE(slicer.pieceOffset(2), 0);
    QCOMPARE(slicer.cell(2, 0).offset, 0);
    QCOMPARE(slicer.colours().size(), 256);
    for (int column = 0; column < 3; ++column)
        QCOMPARE(drawn(slicer, column), row({ tile(0, 10), tile(10, 10), tile(15, 5) }).copy(column * 8, 0, 8, 8));
}

void TestImageSlicer::sharedColoursKeepTheirSlots()
{
    ImageSlicer slicer(row({ tile(0, 4), tile(2, 4) })); // colours 2 and 3 in both
    QCOMPARE(slicer.sliceTiles(), 2);
    QCOMPARE(slicer.pieceOffset(1), 0);
    // Six colours in all: the two shared ones were not given second slots.
    const QList<QRgb> bank = slicer.colours().mid(0, 16);
    QCOMPARE(QSet<QRgb>(bank.begin(), bank.begin() + 6), QSet<QRgb>(Grid.begin(), Grid.begin() + 6));
    QCOMPARE(bank.at(6), QRgb(0));
}

void TestImageSlicer::seventeenColoursStopTheBuild()
{
    QImage colourful(8, 8, QImage::Format_RGB32);
    colourful.fill(Qt::black);
    for (int i = 0; i < 17; ++i)
        colourful.setPixel(i % 8, i / 8, Grid[i + 1 < Grid.size() ? i + 1 : 0]);
    QTest::ignoreMessage(QtWarningMsg, "Palette full!");
    ImageSlicer slicer(colourful);
    QCOMPARE(slicer.sliceTiles(), 1);
    QVERIFY(slicer.colours().isEmpty());
}

void TestImageSlicer::spritesAreNotMerged()
{
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    ImageSlicer slicer(picture);
    QCOMPARE(slicer.sliceSprites(16), 2);
    QCOMPARE(slicer.piece(1).size(), QSize(16, 16));
    QCOMPARE(slicer.colours(), (QList<QRgb> { qRgb(0, 0, 255) }));
    QCOMPARE(slicer.sliceSprites(0), 0);
}

void TestImageSlicer::spritePictureFillsTheBank()
{
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(Qt::white);
    picture.setPixel(17, 0, qRgb(255, 0, 0));
    Palette palette;
    SpriteBank bank(Tintorel::Sprite::EightBit);
    bank.setPalette(&palette);
    QCOMPARE(importSpritePicture(bank, picture), 2);
    QCOMPARE(bank.spriteCount(), 2); // the first piece went into the bank's own sprite
    QCOMPARE(bank.sprite(1).pixelIndex(1, 0), 1);
    QCOMPARE(palette.colour(0), QColor(Qt::white));
    QCOMPARE(palette.colour(1), QColor(Qt::red));
}

QTEST_GUILESS_MAIN(TestImageSlicer)
#include "tst_imageslicer.moc"
