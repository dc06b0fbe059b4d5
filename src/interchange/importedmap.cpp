#include "interchange/importedmap.h"

#include "model/map.h"
#include "model/palette.h"
#include "model/tile.h"
#include "project/projectbudget.h"

namespace ImportedMap {

qint64 tilesCost()
{
    return ProjectBudget::recordsCost(TileCount + Palette::Size)
           + ProjectBudget::pictureCost(QSize(Tile::Size, Tile::Size * TileCount));
}

int cellsBeyond(const Map& map, int tilesHeld)
{
    int count = 0;
    const QSize size = map.size();
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            if (map.tile(QPoint(x, y)).index >= tilesHeld)
                ++count;
    return count;
}

} // namespace ImportedMap
