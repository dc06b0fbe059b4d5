#pragma once
#include "interchange/importreport.h"

#include <QString>

class Project;

// A plain tile map as the machine's tool chain writes it, and as Tintorel
// exports one: the map, two bytes a cell row by row, its tiles (.nxt, 32
// bytes a tile) and its palette (512 bytes, 513 for .npl).
namespace TileMapImport {

struct Files
{
    QString map;
    QString tiles;   // found beside the map when empty
    QString palette; // likewise
};

// A map file of its own kind rather than a picture: .map, .bin, or a .nxm
// with no block table (.nxb) beside it.
bool isTileMapFile(const QString& path);

// The width to offer for a map of `cells`: 32, 40, 64 or 80 when one of
// them makes whole rows, else the square root when whole, else 32.
int proposedWidth(qint64 cells);

// Fills in the companions not given: NAME_tiles.nxt and NAME_palette.bin
// beside NAME_tilemap.bin, else BASE.nxt and BASE.nxp, .pal or .npl. Empty,
// or the refusal naming every file looked for.
QString findCompanions(Files& files);

// Imports the three files as a palette, a tile set and a map of `width`
// cells a row, named after the map file. Refused, with nothing made, when a
// file is missing or holds nothing usable, or the size is not whole rows.
ImportReport import(Project& project, Files files, int width);

} // namespace TileMapImport
