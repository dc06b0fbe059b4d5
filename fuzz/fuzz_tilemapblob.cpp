#include "fuzzsupport.h"
#include "project/tilemapblob.h"

#include <QSize>

// A map's tile layer as the archive keeps it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QSize mapSize;
    TileMap::Grid cells;
    if (!readTileMapBlob(Fuzz::bytes(data, size), mapSize, cells))
        return 0;
    // The map is made at this size and then given these cells.
    if (cells.size() != mapSize.height())
        Fuzz::fail(QStringLiteral("%1 rows for a height of %2").arg(cells.size()).arg(mapSize.height()));
    for (const QList<TileMap::TileData>& row : cells)
        if (row.size() != mapSize.width())
            Fuzz::fail(QStringLiteral("a row of %1 cells for a width of %2").arg(row.size()).arg(mapSize.width()));
    return 0;
}
