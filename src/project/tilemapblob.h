#pragma once
#include "model/tilemap.h"

#include <QByteArray>

class QSize;

// The tile layer of a map as a project file keeps it: height, width, one
// record per cell row by row, then the tile set's id, in a default
// big-endian QDataStream.
QByteArray tileMapBlob(const TileMap& tiles);

// The cells of a blob; the trailing tile set id is not read. False for a
// blob whose length does not match the size it claims, or a side above
// 65,536, so that a damaged size never becomes an allocation.
bool readTileMapBlob(const QByteArray& bytes, QSize& size, TileMap::Grid& cells);
