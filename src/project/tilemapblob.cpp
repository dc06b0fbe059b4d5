#include "project/tilemapblob.h"

#include "model/tileset.h"

#include <QDataStream>
#include <QIODevice>
#include <QSize>

namespace {

constexpr qint64 HeaderBytes = 8;
// index int32, filled int8, offset int32, rotate, flip and mirror int8
constexpr qint64 CellBytes = 12;
constexpr qint64 TileSetIdBytes = 16;
constexpr qint32 MaxSide = 65536;

} // namespace

QByteArray tileMapBlob(const TileMap& tiles)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(tiles.height()) << qint32(tiles.width());
    for (int y = 0; y < tiles.height(); ++y)
        for (int x = 0; x < tiles.width(); ++x) {
            const TileMap::TileData cell = tiles.cell(QPoint(x, y));
            stream << qint32(cell.index) << qint8(cell.visible) << qint32(cell.offset) << qint8(cell.rotate)
                   << qint8(cell.flip) << qint8(cell.mirror);
        }
    const QPointer<TileSet> tileSet = tiles.tileSet();
    stream << (tileSet ? tileSet->id() : QUuid());
    return bytes;
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
    if (width < 0 || height < 0 || width > MaxSide || height > MaxSide
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
