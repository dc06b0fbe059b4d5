#include "benchfixtures.h"
#include "benchtable.h"

#include "model/map.h"
#include "model/nximage.h"
#include "model/palette.h"
#include "model/tilemap.h"
#include "model/tileset.h"

#include <QImage>

namespace {

// 2048 x 2048 with 4,000 distinct grid colours, spread so that no run of
// equal pixels hides the per-pixel cost.
QImage manyColourPicture()
{
    QImage picture(2048, 2048, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const int n = (x * 7919 + y * 104729) % 4000;
            row[x] = qRgb((n % 16) * 16, ((n / 16) % 16) * 16, (n / 256) * 16);
        }
    }
    return picture;
}

void benchTileMap(BenchTable& table)
{
    Palette palette;
    palette.loadStandard();
    TileSet tiles(512);
    fillTiles(tiles, palette);
    TileMap map(256, 256);
    map.setTileSet(&tiles);
    fillMap(map);

    table.measure("TileMap::renderRect whole 256x256 map", "ms", 20, 9, [&] {
        map.invalidate(); // every look drawn again, as after a tile edit
        map.renderRect(map.rect());
    });

    map.scaledPreview(QRect(0, 0, 1, 1), 1, -1); // builds the picture
    int step = 0;
    int painted = 0;
    constexpr int Calls = 20000;
    table.measure("TileMap::setCell, picture built (per call)", "us", 5, 9, [&] {
        for (int i = 0; i < Calls; ++i, ++step) {
            TileMap::TileData data;
            data.index = step % 511 + 1;
            data.offset = step % 16;
            data.visible = true;
            painted += map.setCell(QPoint((step * 7) % 256, (step / 256) % 256), data);
        }
    }, Calls);
    if (painted != step)
        qFatal("setCell changed %d of %d cells", painted, step);

    table.measure("TileMap::scaledPreview 64x40 cells, scale 4", "ms", 5, 15,
                  [&] { map.scaledPreview(QRect(10, 10, 64, 40), 4, 0); });
    table.measure("TileMap::scaledPreview 64x40 cells, 32 px a cell", "ms", 5, 15,
                  [&] { map.scaledPreview(QRect(10, 10, 64, 40), 32, 0); });
}

// Everything a large map holds once shown: both layers' cells and both
// layers' pictures with the tiles they drew.
void benchMapMemory(BenchTable& table)
{
    Palette palette;
    palette.loadStandard();
    TileSet tiles(512);
    tiles.setPalette(&palette);
    const double before = heapMegabytes();
    {
        Map map("big", QSize(256, 256));
        map.setTileSet(&tiles);
        fillMap(*map.tileMap());
        fillMap(*map.objectMap());
        map.tileMap()->scaledPreview(QRect(0, 0, 1, 1), 1, -1);
        map.objectMap()->scaledPreview(QRect(0, 0, 1, 1), 1, -1);
        table.record("Map 256x256, both layers and pictures built", "MB", heapMegabytes() - before, 16);
    }
}

} // namespace

void benchModel(BenchTable& table)
{
    const QImage picture = manyColourPicture();
    table.measure("NxImage::load 2048x2048, 4000 colours", "s", 0.5, 5, [&] {
        NxImage image;
        image.load(picture);
        if (image.colours().size() != 4000)
            qFatal("expected 4000 colours, got %d", int(image.colours().size()));
    });

    benchTileMap(table);
    benchMapMemory(table);
}
