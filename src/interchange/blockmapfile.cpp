#include "interchange/blockmapfile.h"

#include "model/map.h"

#include <QFile>
#include <QList>
#include <QtEndian>

namespace BlockMapFile {

namespace {

constexpr int RowBytes = 256;
constexpr int TilesPerBlock = 4;

QByteArray readAll(const QString& fileName, bool* ok)
{
    QFile file(fileName);
    *ok = file.open(QIODevice::ReadOnly);
    return *ok ? file.readAll() : QByteArray();
}

quint16 valueAt(const QByteArray& bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}

// Four tile numbers a block: top left, top right, bottom left, bottom right.
// A missing table reads as an empty one, so that the first block fails.
QList<quint16> readBlockTable(const QString& fileName)
{
    bool ok = false;
    const QByteArray bytes = readAll(fileName, &ok);
    QList<quint16> table;
    table.reserve(bytes.size() / 2);
    for (qsizetype at = 0; at + 2 <= bytes.size(); at += 2)
        table.append(valueAt(bytes, at));
    return table;
}

TileMap::TileData tileCell(int index)
{
    TileMap::TileData cell;
    cell.index = index;
    cell.visible = true;
    return cell;
}

} // namespace

bool read(Map& map, const QString& nxmFile, const QString& nxbFile)
{
    const QList<quint16> table = readBlockTable(nxbFile);
    bool ok = false;
    const QByteArray blocks = readAll(nxmFile, &ok);
    if (!ok || blocks.size() < 2)
        return false;
    const int width = qint8(blocks.at(0));
    const int height = qint8(blocks.at(1));
    if (width < 0 || height < 0)
        return false;
    map.resize(QSize(width, height), Qt::AlignLeft | Qt::AlignTop);

    static const QPoint corners[TilesPerBlock] = { { 0, 0 }, { 1, 0 }, { 0, 1 }, { 1, 1 } };
    qsizetype at = 2;
    for (int y = 0; y < height; y += 2) {
        for (int x = 0; x < width; x += 2) {
            if (at + 2 > blocks.size())
                return false;
            // Read unsigned: a block number is never negative, and a signed
            // one would pass the bounds check below with a negative index.
            const qsizetype first = qsizetype(valueAt(blocks, at)) * TilesPerBlock;
            at += 2;
            if (first + TilesPerBlock - 1 >= table.size())
                return false;
            // Cells past the map's edge (odd sizes) are refused by setTile.
            for (int c = 0; c < TilesPerBlock; ++c)
                map.setTile(QPoint(x, y) + corners[c], tileCell(table.at(first + c)));
        }
        // Each row of blocks is padded to 256 bytes, counted from the width
        // in tiles whatever its parity; a missing pad after the last row is no fault.
        at += RowBytes - width;
    }
    return true;
}

} // namespace BlockMapFile
