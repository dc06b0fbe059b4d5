#pragma once
#include "interchange/importreport.h"

class TileSet;

// Tiles → Spectrum Chars: a ZX font, 8 bytes a character, into the tile set
// from tile `index` (0-based) on. A file that holds no whole character, or a
// start past the last tile, is refused and changes nothing; characters that
// find no tile and a tail shorter than a character are reported as warnings.
ImportReport importZXFont(TileSet& tiles, int index, int foreIndex, int backIndex, int offset,
                          const QString& filePath);
