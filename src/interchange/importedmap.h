#pragma once
#include <QtGlobal>

class Map;

// What the imports that make a map share: the size of the tile set they
// make, its cost to the project, and the count of cells left blank.
namespace ImportedMap {

constexpr int TileCount = 512;

// The palette and the tile set an import makes, besides its map.
qint64 tilesCost();

// Cells naming a tile past the first `tilesHeld`.
int cellsBeyond(const Map& map, int tilesHeld);

} // namespace ImportedMap
