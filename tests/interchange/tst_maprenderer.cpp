#include "interchange/maprenderer.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"

#include <QPainter>
#include <QtTest>

// The map's layers as the tab and the command-line render draw them: one
// pass over the layers' pictures must give what scaling each layer's
// picture and painting them in turn over the background gives.
class TestMapRenderer : public QObject
{
    Q_OBJECT
private slots:
    void layersMatchPaintingEachLayer_data();
    void layersMatchPaintingEachLayer();
    void wholeMapMatchesTheTabAcrossBands();
};

void TestMapRenderer::layersMatchPaintingEachLayer_data()
{
    QTest::addColumn<int>("cellPixels");
    QTest::addColumn<int>("transparency");
    QTest::addColumn<int>("background");
    QTest::newRow("8 px, opaque") << 8 << -1 << -1;
    QTest::newRow("32 px, index 0 see-through") << 32 << 0 << -1;
    QTest::newRow("16 px, background tile") << 16 << 0 << 3;
    QTest::newRow("16 px, bank colour 5 see-through") << 16 << 5 << 2;
    QTest::newRow("fitted 3 px") << 3 << 0 << -1;
    QTest::newRow("fitted 13 px") << 13 << 7 << -1;
}

void TestMapRenderer::layersMatchPaintingEachLayer()
{
    QFETCH(int, cellPixels);
    QFETCH(int, transparency);
    QFETCH(int, background);
    Palette palette;
    palette.loadStandard();
    TileSet tiles(8);
    tiles.setPalette(&palette);
    for (int i = 0; i < tiles.count(); ++i) {
        QImage image(8, 8, QImage::Format_Indexed8);
        image.setColorTable(palette.rgbTable());
        for (int p = 0; p < 64; ++p)
            image.setPixel(p % 8, p / 8, (i * 3 + p * 5) % 24);
        tiles.setTileImage(i, image);
    }
    Map map("Level", QSize(6, 5));
    map.setTileSet(&tiles);
    map.setObjectLayerVisible(true);
    for (int n = 0; n < 30; ++n) {
        const QPoint cell(n % 6, n / 6);
        map.tileMap()->setCell(cell, { n % 8, bool(n & 1), bool(n & 2), bool(n & 4), n % 3, n % 7 != 0 });
        if (n % 4 == 0)
            map.objectMap()->setCell(cell, { (n + 3) % 8, false, false, false, 0, true });
    }
    MapRenderer renderer(map, nullptr);
    renderer.setTransparencyIndex(transparency);
    renderer.setBackgroundTile(background);
    const QRect cells(QPoint(0, 0), map.size());
    const QImage composed = renderer.composeLayers(cells, cellPixels).convertToFormat(QImage::Format_RGB32);

    QImage expected(composed.size(), QImage::Format_RGB32);
    expected.fill(Qt::black);
    QPainter painter(&expected);
    if (background >= 0) {
        QImage texture = tiles.render(background, false, false, false, tiles.tileOffset(background));
        texture.setColorTable(palette.rgbTable());
        painter.fillRect(expected.rect(), QBrush(texture.scaled(cellPixels, cellPixels)));
    }
    for (TileMap* layer : { map.tileMap().data(), map.objectMap().data() })
        painter.drawImage(0, 0, layer->scaledPreview(cells, cellPixels, transparency)
                                    .convertToFormat(QImage::Format_ARGB32_Premultiplied));
    painter.end();
    for (int y = 0; y < expected.height(); ++y)
        for (int x = 0; x < expected.width(); ++x)
            if (composed.pixel(x, y) != expected.pixel(x, y))
                QFAIL(qPrintable(QString("pixel (%1, %2) differs").arg(x).arg(y)));
}

// The command-line picture is drawn band by band from pictures of each
// band; a tall map crosses bands, and a sprite lies across their seam.
void TestMapRenderer::wholeMapMatchesTheTabAcrossBands()
{
    Palette palette;
    palette.loadStandard();
    TileSet tiles(4);
    tiles.setPalette(&palette);
    for (int i = 0; i < tiles.count(); ++i) {
        QImage image(8, 8, QImage::Format_Indexed8);
        image.setColorTable(palette.rgbTable());
        for (int p = 0; p < 64; ++p)
            image.setPixel(p % 8, p / 8, 16 * i + p % 9);
        tiles.setTileImage(i, image);
    }
    // 640 pixels wide at scale 2: bands of 409 rows.
    Map map("Tall", QSize(40, 900));
    map.setTileSet(&tiles);
    for (int y = 0; y < 900; ++y)
        for (int x = 0; x < 40; ++x)
            map.setTile(QPoint(x, y), { (x + y) % 4, bool(y & 1), false, bool(x & 1), (x + y) % 4, true });
    SpriteBank bank(Tintorel::Sprite::EightBit);
    bank.setPalette(&palette);
    QImage sprite(16, 16, QImage::Format_Indexed8);
    sprite.setColorTable(palette.rgbTable());
    for (int p = 0; p < 256; ++p)
        sprite.setPixel(p % 16, p / 16, p % 7 == 0 ? 0xE3 : 0x40 + p % 32);
    bank.setImage(0, sprite);
    for (int y : { 0, 8 * 409 - 5, 8 * 898 })
        map.addSprite({ bank.id(), {}, 0, 20, y });
    MapRenderer renderer(map, [&bank](const QUuid&) { return &bank; });

    const int scale = 2;
    const QImage rendered = renderer.render(scale).convertToFormat(QImage::Format_RGB32);
    QImage expected = renderer.composeLayers(QRect(QPoint(0, 0), map.size()), 8 * scale);
    QPainter painter(&expected);
    renderer.paintSprites(painter, [](const QPoint& p) { return p * scale; }, scale, 0);
    painter.end();
    QCOMPARE(rendered.size(), expected.size());
    for (int y = 0; y < expected.height(); ++y)
        if (std::memcmp(rendered.constScanLine(y), expected.constScanLine(y), size_t(expected.width()) * 4) != 0)
            QFAIL(qPrintable(QString("row %1 differs").arg(y)));

    QString problem;
    QVERIFY(renderer.render(64, 0, MapRenderer::AllLayers, &problem).isNull());
    QVERIFY(problem.contains("a render can take at most 512 MB"));
}

QTEST_MAIN(TestMapRenderer)
#include "tst_maprenderer.moc"
