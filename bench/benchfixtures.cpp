#include "benchfixtures.h"

#include "model/palette.h"
#include "model/tilemap.h"
#include "model/tileset.h"

#include <QImage>
#include <malloc.h>

void fillTiles(TileSet& tiles, Palette& palette)
{
    tiles.setPalette(&palette);
    for (int i = 0; i < tiles.count(); ++i) {
        QImage image(8, 8, QImage::Format_Indexed8);
        image.setColorTable(palette.rgbTable());
        for (int p = 0; p < 64; ++p)
            image.setPixel(p % 8, p / 8, (i + p) % 16);
        tiles.setTileImage(i, image);
    }
}

void fillMap(TileMap& map)
{
    for (int y = 0; y < map.height(); ++y)
        for (int x = 0; x < map.width(); ++x) {
            const int n = y * map.width() + x;
            TileMap::TileData data;
            data.index = n % 512;
            data.rotate = n & 1;
            data.flip = n & 2;
            data.mirror = n & 4;
            data.offset = (n / 8) % 16;
            data.visible = (n % 13) != 0;
            map.setCell(QPoint(x, y), data);
        }
}

double heapMegabytes()
{
    const struct mallinfo2 heap = mallinfo2();
    // Large blocks are mapped apart from the arena and count as much.
    return double(heap.uordblks + heap.hblkhd) / (1024.0 * 1024.0);
}
