#include "project/tilemapblob.h"

#include "model/map.h"
#include "model/tileset.h"

#include <QDataStream>
#include <QIODevice>
#include <QSize>
#include <QtEndian>
#include <cstring>

namespace {

constexpr qint64 HeaderBytes = 8;
// index int32, filled int8, offset int32, rotate, flip and mirror int8
constexpr qint64 CellBytes = 12;
constexpr qint64 TileSetIdBytes = 16;

} // namespace

QByteArray tileMapBlob(const TileMap& tiles)
{
    // The layout of a default big-endian QDataStream, packed by hand: a map
    // has up to a million fields, and a stream call per field is most of the
    // cost of building the entry.
    const qint64 cells = qint64(tiles.width()) * tiles.height();
    QByteArray bytes(HeaderBytes + cells * CellBytes + TileSetIdBytes, Qt::Uninitialized);
    uchar* out = reinterpret_cast<uchar*>(bytes.data());
    qToBigEndian<qint32>(tiles.height(), out);
    qToBigEndian<qint32>(tiles.width(), out + 4);
    out += HeaderBytes;
    for (const auto& row : tiles.cells())
        for (const TileMap::TileData& cell : row) {
            qToBigEndian<qint32>(cell.index, out);
            out[4] = cell.visible ? 1 : 0;
            qToBigEndian<qint32>(cell.offset, out + 5);
            out[9] = cell.rotate ? 1 : 0;
            out[10] = cell.flip ? 1 : 0;
            out[11] = cell.mirror ? 1 : 0;
            out += CellBytes;
        }
    const QPointer<TileSet> tileSet = tiles.tileSet();
    const QByteArray id = (tileSet ? tileSet->id() : QUuid()).toRfc4122();
    std::memcpy(out, id.constData(), TileSetIdBytes);
    return bytes;
}

QSize tileMapBlobSize(const QByteArray& bytes)
{
    if (bytes.size() < HeaderBytes)
        return {};
    const auto* header = reinterpret_cast<const uchar*>(bytes.constData());
    return QSize(qFromBigEndian<qint32>(header + 4), qFromBigEndian<qint32>(header));
}

bool readTileMapBlob(const QByteArray& bytes, QSize& size, TileMap::Grid& cells)
{
    if (bytes.size() < HeaderBytes)
        return false;
    QDataStream stream(bytes);
    qint32 height = 0;
    qint32 width = 0;
    stream >> height >> width;
    // The size must account for every byte, so that a damaged header is
    // caught here rather than read as cells from the trailing id.
    if (width < 0 || height < 0 || width > Map::MaxSide || height > Map::MaxSide
        || bytes.size() != HeaderBytes + qint64(width) * height * CellBytes + TileSetIdBytes)
        return false;

    TileMap::Grid grid(height, QList<TileMap::TileData>(width));
    for (QList<TileMap::TileData>& row : grid)
        for (TileMap::TileData& cell : row) {
            qint32 index = 0;
            qint32 offset = 0;
            qint8 filled = 0;
            qint8 rotate = 0;
            qint8 flip = 0;
            qint8 mirror = 0;
            stream >> index >> filled >> offset >> rotate >> flip >> mirror;
            cell = { index, rotate != 0, flip != 0, mirror != 0, offset, filled != 0 };
        }
    if (stream.status() != QDataStream::Ok)
        return false;
    size = QSize(width, height);
    cells = grid;
    return true;
}
