#include "model/palette.h"
#include "model/tilemap.h"
#include "model/tileset.h"

#include <QMimeData>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

using TileData = TileMap::TileData;

class TestTileMap : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void packedBytes_data();
    void packedBytes();
    void setCellGuards();
    void setCellRepaintsLikeAFullRender();
    void blankWithoutTileSetInvisibleOrCleared();
    void previewScalesByCellWithTransparencyInEveryBank();
    void shiftTiles_data();
    void shiftTiles();
    void followsTileSetDeleteInsertAndSwap();
    void resize_data();
    void resize();
    void rowsAndColumns();
    void clipboardRoundTrip();
    void clipboardRejectsBadData_data();
    void clipboardRejectsBadData();

private:
    Palette* mPalette = nullptr;
    TileSet* mTiles = nullptr;
};

namespace {

TileData tile(int index, bool visible = true, int offset = 0)
{
    TileData data;
    data.index = index;
    data.visible = visible;
    data.offset = offset;
    return data;
}

QList<int> indices(const TileMap& map)
{
    QList<int> result;
    for (const auto& row : map.cells())
        for (const auto& data : row)
            result << data.index;
    return result;
}

} // namespace

void TestTileMap::init()
{
    mPalette = new Palette;
    mPalette->loadStandard();
    mTiles = new TileSet(8);
    mTiles->setPalette(mPalette);
    // Tile n is filled with n, with a marker in its top-left pixel so that
    // orientations can be told apart.
    for (int n = 0; n < mTiles->count(); ++n) {
        QImage image(8, 8, QImage::Format_Indexed8);
        image.setColorTable(mPalette->rgbTable());
        image.fill(n);
        image.setPixel(0, 0, 15);
        mTiles->setTileImage(n, image);
    }
}

void TestTileMap::cleanup()
{
    delete mTiles;
    delete mPalette;
}

void TestTileMap::packedBytes_data()
{
    QTest::addColumn<TileData>("data");
    QTest::addColumn<QByteArray>("bytes");
    TileData big = tile(300, true, 5);
    big.rotate = true;
    big.mirror = true;
    QTest::newRow("index 300, offset 5, rotate and mirror") << big << QByteArray::fromHex("2c5b");
    TileData flipped = tile(7, false);
    flipped.flip = true;
    QTest::newRow("flip, visibility not stored") << flipped << QByteArray::fromHex("0704");
    QTest::newRow("blank") << TileData() << QByteArray::fromHex("0000");
    QTest::newRow("offset above 15 keeps its low bits") << tile(1, true, 17) << QByteArray::fromHex("0110");
}

void TestTileMap::packedBytes()
{
    QFETCH(TileData, data);
    QFETCH(QByteArray, bytes);
    QCOMPARE(data.packed(), bytes);
    TileMap map(1, 1);
    map.setCell({ 0, 0 }, data);
    QCOMPARE(map.toNextData(), bytes);
}

void TestTileMap::setCellGuards()
{
    TileMap map(3, 2);
    QVERIFY(map.setCell({ 2, 1 }, tile(4)));
    QVERIFY(!map.setCell({ 2, 1 }, tile(4)));
    QVERIFY(!map.setCell({ 3, 0 }, tile(4)));
    QVERIFY(!map.setCell({ -1, 0 }, tile(4)));
    QCOMPARE(map.cell({ 2, 1 }), tile(4));
    map.setCells(map.rect(), 3, false, false, false, true);
    QCOMPARE(map.cell({ 5, 5 }), TileData()); // outside is blank
    QCOMPARE(map.cell({ -1, 0 }), TileData());
}

void TestTileMap::setCellRepaintsLikeAFullRender()
{
    TileMap map(16, 12);
    map.setTileSet(mTiles);
    map.scaledPreview(map.rect(), 8, -1); // builds the picture
    const TileMap::Grid start = map.cells();
    QRandomGenerator random(7);
    for (int i = 0; i < 300; ++i) {
        // Halfway, the grid is put back as an undo does, redrawing what differs.
        if (i == 150)
            map.setGrid(start);
        TileData data = tile(random.bounded(8), random.bounded(4) != 0, random.bounded(16));
        data.rotate = random.bounded(2);
        data.flip = random.bounded(2);
        data.mirror = random.bounded(2);
        map.setCell({ random.bounded(16), random.bounded(12) }, data);
    }
    const QImage painted = map.scaledPreview(map.rect(), 8, -1);
    const QImage rendered = map.renderRect(map.rect());
    QCOMPARE(painted.size(), rendered.size());
    for (int y = 0; y < rendered.height(); ++y)
        QVERIFY2(memcmp(painted.constScanLine(y), rendered.constScanLine(y), rendered.width()) == 0,
                 qPrintable(QString("row %1").arg(y)));
}

void TestTileMap::blankWithoutTileSetInvisibleOrCleared()
{
    TileMap map(2, 1);
    map.setCell({ 0, 0 }, tile(5, true, 2));
    map.setCell({ 1, 0 }, tile(5, false, 2));
    QTest::ignoreMessage(QtWarningMsg, "_tiles==nullptr");
    const QImage bare = map.renderRect(map.rect());
    QCOMPARE(bare.size(), QSize(16, 8));
    QCOMPARE(bare.pixelIndex(4, 4), 0);

    map.setTileSet(mTiles);
    const QImage image = map.renderRect(map.rect());
    QCOMPARE(image.pixelIndex(4, 4), 5 + 32); // the cell's bank in the high nibble
    QCOMPARE(image.pixelIndex(12, 4), 0);
    QCOMPARE(map.scaledPreview(map.rect(), 8, -1).pixelIndex(4, 4), 5 + 32);

    // Clearing hides every cell but keeps what it showed.
    map.clear();
    QCOMPARE(map.cell({ 0, 0 }), tile(5, false, 2));
    QCOMPARE(map.scaledPreview(map.rect(), 8, -1).pixelIndex(4, 4), 0);
}

void TestTileMap::previewScalesByCellWithTransparencyInEveryBank()
{
    TileMap map(4, 4);
    map.setTileSet(mTiles);
    map.setCell({ 1, 2 }, tile(6));
    const QImage transparent = map.scaledPreview(map.rect(), 8, 3);
    for (int i : { 3, 19, 35, 243 })
        QCOMPARE(qAlpha(transparent.color(i)), 0);
    for (int i : { 0, 4, 20, 255 })
        QCOMPARE(qAlpha(transparent.color(i)), 255);

    const QImage preview = map.scaledPreview(QRect(1, 2, 2, 1), 32, -1);
    QCOMPARE(preview.size(), QSize(64, 32));
    QCOMPARE(preview.pixelIndex(0, 0), 15); // the marker, four pixels wide
    QCOMPARE(preview.pixelIndex(3, 3), 15);
    QCOMPARE(preview.pixelIndex(4, 0), 6);
    QCOMPARE(preview.pixelIndex(40, 10), 0);
    QCOMPARE(map.scaledPreview(QRect(0, 0, 3, 3), 2.5, -1).size(), QSize(8, 8));
}

void TestTileMap::shiftTiles_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("delta");
    QTest::addColumn<QList<int>>("expected");
    // The map holds indices 3, 4, 5, 6.
    QTest::newRow("delete 4: 4 becomes 0, above go down") << 4 << -1 << QList<int> { 3, 0, 4, 5 };
    QTest::newRow("insert at 4: 4 and above go up") << 4 << 1 << QList<int> { 3, 5, 6, 7 };
    QTest::newRow("delta 0 moves nothing") << 4 << 0 << QList<int> { 3, 4, 5, 6 };
    QTest::newRow("delete above every cell") << 9 << -1 << QList<int> { 3, 4, 5, 6 };
}

void TestTileMap::shiftTiles()
{
    QFETCH(int, index);
    QFETCH(int, delta);
    QFETCH(QList<int>, expected);
    TileMap map(4, 1);
    for (int x = 0; x < 4; ++x)
        map.setCell({ x, 0 }, tile(3 + x));
    map.shiftTiles(index, delta);
    QCOMPARE(indices(map), expected);
}

void TestTileMap::followsTileSetDeleteInsertAndSwap()
{
    TileMap map(3, 1);
    map.setTileSet(mTiles);
    for (int x = 0; x < 3; ++x)
        map.setCell({ x, 0 }, tile(3 + x));
    mTiles->deleteTile(4);
    QCOMPARE(indices(map), (QList<int> { 3, 0, 4 }));
    mTiles->insertTile(3);
    QCOMPARE(indices(map), (QList<int> { 4, 0, 5 }));
    // Each cell still draws the tile it showed before both changes.
    const QImage image = map.renderRect(map.rect());
    QCOMPARE(image.pixelIndex(4, 4), 3);
    QCOMPARE(image.pixelIndex(20, 4), 5);

    QSignalSpy changed(&map, &TileMap::tilesChanged);
    map.swapTiles(6, 7);
    QCOMPARE(changed.count(), 0);
    map.swapTiles(0, 5);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(indices(map), (QList<int> { 4, 5, 0 }));
}

void TestTileMap::resize_data()
{
    QTest::addColumn<QSize>("from");
    QTest::addColumn<QSize>("to");
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QPoint>("shift");
    const int centre = Qt::AlignHCenter | Qt::AlignVCenter;
    QTest::newRow("10 to 6 centred keeps 2..7") << QSize(10, 10) << QSize(6, 6) << centre << QPoint(-2, -2);
    QTest::newRow("10 to 13 centred starts at 1") << QSize(10, 10) << QSize(13, 13) << centre << QPoint(1, 1);
    QTest::newRow("shrink top left cuts the end") << QSize(10, 10) << QSize(6, 6)
                                                  << int(Qt::AlignLeft | Qt::AlignTop) << QPoint(0, 0);
    QTest::newRow("shrink bottom right cuts the start") << QSize(10, 10) << QSize(6, 7)
                                                        << int(Qt::AlignRight | Qt::AlignBottom) << QPoint(-4, -3);
    QTest::newRow("grow bottom right") << QSize(4, 4) << QSize(6, 9) << int(Qt::AlignRight | Qt::AlignBottom)
                                       << QPoint(2, 5);
    QTest::newRow("centre wins over right") << QSize(4, 4) << QSize(8, 4)
                                            << int(Qt::AlignHCenter | Qt::AlignRight) << QPoint(2, 0);
    QTest::newRow("to nothing") << QSize(3, 3) << QSize(0, 0) << int(Qt::AlignTop) << QPoint(0, 0);
}

void TestTileMap::resize()
{
    QFETCH(QSize, from);
    QFETCH(QSize, to);
    QFETCH(int, alignment);
    QFETCH(QPoint, shift);
    TileMap map(from.width(), from.height());
    for (int y = 0; y < from.height(); ++y)
        for (int x = 0; x < from.width(); ++x)
            map.setCell({ x, y }, tile(y * 100 + x));
    QCOMPARE(map.resize(to, Qt::Alignment(alignment)), shift);
    QCOMPARE(map.size(), to);
    QCOMPARE(int(map.cells().size()), to.height());
    for (int y = 0; y < to.height(); ++y) {
        QCOMPARE(int(map.cells().at(y).size()), to.width());
        for (int x = 0; x < to.width(); ++x) {
            const QPoint old = QPoint(x, y) - shift;
            const bool kept = QRect(QPoint(), from).contains(old);
            QCOMPARE(map.cell({ x, y }), kept ? tile(old.y() * 100 + old.x()) : TileData());
        }
    }
}

void TestTileMap::rowsAndColumns()
{
    TileMap map(2, 2);
    map.setCell({ 0, 0 }, tile(1));
    map.setCell({ 1, 1 }, tile(4));
    map.addRow(0);
    map.addColumn(1);
    QCOMPARE(map.size(), QSize(3, 3));
    QCOMPARE(map.cell({ 0, 1 }), tile(1));
    QCOMPARE(map.cell({ 2, 2 }), TileData());
    map.removeRow(0);
    map.removeColumn(0);
    QCOMPARE(map.size(), QSize(2, 2));
    QCOMPARE(map.cell({ 0, 1 }), tile(4));
    map.removeRow(7);
    map.removeRow(7);
    map.removeRow(7); // nothing left to remove
    QCOMPARE(map.size(), QSize(2, 0));
}

void TestTileMap::clipboardRoundTrip()
{
    TileMap map(3, 3);
    map.setTileSet(mTiles);
    TileData data = tile(300, true, 7);
    data.flip = true;
    map.setCell({ 2, 2 }, data);
    std::unique_ptr<QMimeData> mime(map.toMimeData(QRect(2, 2, 2, 1)));
    QVERIFY(mime->hasFormat("tintorel-map-toNextData"));
    const TileMap::Clip clip = TileMap::cellsFromMimeData(mime.get());
    QCOMPARE(clip.size, QSize(2, 1));
    QCOMPARE(clip.cells.at(0).at(0), data);
    QCOMPARE(clip.cells.at(0).at(1), TileData()); // outside the map
    QCOMPARE(clip.tileSetId, mTiles->id());
}

void TestTileMap::clipboardRejectsBadData_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("negative width") << QByteArray::fromHex("ffffffff00000001");
    QTest::newRow("huge size, no cells") << QByteArray::fromHex("7fffffff7fffffff");
    QTest::newRow("one cell cut short") << QByteArray::fromHex("000000010000000100000005");
}

void TestTileMap::clipboardRejectsBadData()
{
    QFETCH(QByteArray, bytes);
    QMimeData mime;
    mime.setData("tintorel-map-toNextData", bytes);
    QVERIFY(TileMap::cellsFromMimeData(&mime).isEmpty());
    QMimeData other;
    other.setText("hello");
    QVERIFY(TileMap::cellsFromMimeData(&other).isEmpty());
    QVERIFY(TileMap::cellsFromMimeData(nullptr).isEmpty());
}

QTEST_GUILESS_MAIN(TestTileMap)
#include "tst_tilemap.moc"
