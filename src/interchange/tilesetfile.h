#pragma once
#include "interchange/importreport.h"

#include <QByteArray>

class TileSet;

// The bytes of the tile set's hardware files, built whole so that the
// writers of TileSet can hand them to BinaryFile in one write.
namespace TileSetFile {

// .nxt: 32 bytes a tile, two pixels a byte, the left one in the high nibble.
QByteArray packedTiles(const TileSet& tiles);

// 64 bytes a tile, each pixel drawn in the tile's own bank. `first` and
// `last` count from 1, inclusive, and are clamped to the set; `rotate`
// writes each tile transposed, by columns.
QByteArray eightBitTiles(const TileSet& tiles, int first, int last, bool rotate);

// One byte a tile: the low byte of its attributes.
QByteArray attributes(const TileSet& tiles);

// The attribute names as assembler constants, then the attributes of all
// tiles in `db` lines of sixteen.
QByteArray attributesAsm(const TileSet& tiles);

// Why a .nxt cannot give even one tile, or an empty string when it can.
QString nxtProblem(const QString& path);

// Reads a .nxt into the set from tile 0 on: refused when the file holds no
// whole tile, with warnings for a tail and for tiles past the set's count.
ImportReport readNxt(TileSet& tiles, const QString& path);

} // namespace TileSetFile
