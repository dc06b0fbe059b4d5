#pragma once
#include "model/tilemap.h"

#include <QByteArray>

class QSize;

// The tile layer of a map as a project file keeps it: height, width, one
// record per cell row by row, then the tile set's id, in a default
// big-endian QDataStream.
QByteArray tileMapBlob(const TileMap& tiles);

// The size a blob claims, read from its header alone; invalid for a blob
// too short to have one.
QSize tileMapBlobSize(const QByteArray& bytes);

// The cells of a blob; the trailing tile set id is not read. False for a
// blob whose length does not match the size it claims, or a side longer
// than a map's, so that a damaged size never becomes an allocation.
bool readTileMapBlob(const QByteArray& bytes, QSize& size, TileMap::Grid& cells);
