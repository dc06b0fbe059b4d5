#pragma once
#include <QString>

class Map;

// Reads a map kept as blocks of 2 x 2 tiles: a block table (.nxb) and a
// map of block numbers (.nxm), as earlier tools for the machine write them.
namespace BlockMapFile {

// Resizes `map` to the size in the .nxm file and fills its tile layer.
// False for a missing or malformed file, or a block number the table lacks;
// the cells read before the failure stay in the map.
bool read(Map& map, const QString& nxmFile, const QString& nxbFile);

} // namespace BlockMapFile
