#pragma once

class Palette;
class TileMap;
class TileSet;

// Content shared by the benchmarks: large enough that nothing draws cheaply.

// Every tile of `tiles` with sixteen colours in a pattern of its own, in
// `palette`'s colours.
void fillTiles(TileSet& tiles, Palette& palette);
// A map painted with all 512 tiles in every orientation and bank.
void fillMap(TileMap& map);
// The bytes the heap holds now.
double heapMegabytes();
