#pragma once
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

} // namespace TileSetFile
