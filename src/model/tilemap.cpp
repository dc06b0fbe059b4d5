#include "model/tilemap.h"

#include "model/palette.h"
#include "model/tileset.h"

#include <QDataStream>
#include <QDebug>
#include <QIODevice>
#include <QMimeData>
#include <cstring>

namespace {

constexpr int CellPixels = 8;

// Where the old cells land on one axis of a resize: the first old cell
// copied, the first new cell it goes to, and how many.
struct AxisCopy
{
    int source = 0;
    int target = 0;
    int count = 0;
};

AxisCopy axisCopy(int oldSize, int newSize, bool centre, bool end)
{
    AxisCopy copy;
    const int d = qAbs(newSize - oldSize);
    const int start = centre ? d / 2 : end ? d : 0;
    if (newSize < oldSize) {
        copy.source = start;
        copy.count = newSize;
    } else {
        copy.target = start;
        copy.count = oldSize;
    }
    return copy;
}

TileMap::Grid blankGrid(int width, int height)
{
    return TileMap::Grid(height, QList<TileMap::TileData>(width));
}

} // namespace

bool TileMap::TileData::operator==(const TileData& other) const
{
    return index == other.index && rotate == other.rotate && flip == other.flip && mirror == other.mirror
        && offset == other.offset && visible == other.visible;
}

QByteArray TileMap::TileData::packed() const
{
    QByteArray bytes(2, '\0');
    bytes[0] = char(index & 0xFF);
    bytes[1] = char(((offset & 15) << 4) | (mirror ? 8 : 0) | (flip ? 4 : 0) | (rotate ? 2 : 0) | ((index >> 8) & 1));
    return bytes;
}

TileMap::TileMap(int width, int height, QObject* parent)
    : QObject(parent)
    , mId(QUuid::createUuid())
{
    setGridAndSize(blankGrid(qMax(0, width), qMax(0, height)), qMax(0, width), qMax(0, height));
}

void TileMap::setGridAndSize(const Grid& cells, int width, int height)
{
    const Grid before = mCells;
    const bool sameSize = width == mWidth && height == mHeight;
    mCells = cells;
    mWidth = width;
    mHeight = height;
    if (!sameSize) {
        mPicture = QImage(); // never show a picture of another grid
        return;
    }
    // An undo puts back rows that mostly share their data with the present
    // ones: only the cells that differ are drawn again.
    if (mPicture.isNull())
        return;
    for (int y = 0; y < height; ++y) {
        const QList<TileData>& old = before.at(y);
        const QList<TileData>& now = mCells.at(y);
        if (old.constData() == now.constData())
            continue;
        for (int x = 0; x < width; ++x)
            if (old.at(x) != now.at(x))
                blitCell(mPicture, QPoint(x, y), now.at(x));
    }
}

void TileMap::setGrid(const Grid& cells)
{
    const int height = int(cells.size());
    int width = 0;
    for (const auto& row : cells)
        width = qMax(width, int(row.size()));
    // Rows already of the width stay shared with the caller's.
    Grid rectangular = cells;
    for (qsizetype y = 0; y < rectangular.size(); ++y)
        if (rectangular.at(y).size() != width)
            rectangular[y].resize(width);
    setGridAndSize(rectangular, width, height);
}

void TileMap::setTileSet(QPointer<TileSet> tileSet)
{
    if (mTileSet)
        disconnect(mTileSet, nullptr, this, nullptr);
    mTileSet = tileSet;
    invalidate();
    if (!mTileSet)
        return;
    // Cells refer to tiles by position, so they follow the list's changes.
    connect(mTileSet, &TileSet::tileDeleted, this, [this](int index) { shiftTiles(index, -1); });
    connect(mTileSet, &TileSet::tileInserted, this, [this](int index) { shiftTiles(index, 1); });
    connect(mTileSet, &TileSet::tileSwapped, this, &TileMap::swapTiles);
    connect(mTileSet, &TileSet::tileChanged, this, &TileMap::invalidate);
    connect(mTileSet, &TileSet::restored, this, &TileMap::invalidate);
}

void TileMap::invalidate()
{
    mTileCache.clear();
    mPicture = QImage();
}

TileMap::TileData TileMap::cell(const QPoint& position) const
{
    if (!rect().contains(position))
        return {};
    return mCells.at(position.y()).at(position.x());
}

bool TileMap::setCell(const QPoint& position, const TileData& data)
{
    if (!rect().contains(position) || mCells.at(position.y()).at(position.x()) == data)
        return false;
    mCells[position.y()][position.x()] = data;
    if (!mPicture.isNull())
        blitCell(mPicture, position, data);
    return true;
}

void TileMap::setCells(const QRect& area, int index, bool rotate, bool flip, bool mirror, bool visible)
{
    const int offset = mTileSet ? mTileSet->tileOffset(index) : 0;
    const TileData data { index, rotate, flip, mirror, offset, visible };
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            setCell(QPoint(x, y), data);
}

void TileMap::clear()
{
    for (auto& row : mCells)
        for (auto& data : row)
            data.visible = false;
    mPicture = QImage();
}

QByteArray TileMap::toNextData() const
{
    QByteArray bytes;
    bytes.reserve(mWidth * mHeight * 2);
    for (const auto& row : mCells)
        for (const auto& data : row)
            bytes += data.packed();
    return bytes;
}

quint64 TileMap::lookKey(const TileData& data)
{
    // Only the low four bits of the offset change a drawing.
    return (quint64(quint32(data.index)) << 8) | quint64((data.offset & 15) << 3)
        | (data.rotate ? 4 : 0) | (data.flip ? 2 : 0) | (data.mirror ? 1 : 0);
}

const QImage& TileMap::drawnTile(const TileData& data)
{
    const quint64 key = lookKey(data);
    auto it = mTileCache.constFind(key);
    if (it == mTileCache.constEnd())
        it = mTileCache.insert(key, mTileSet->render(data.index, data.rotate, data.flip, data.mirror, data.offset));
    return *it;
}

void TileMap::blitCell(QImage& target, const QPoint& block, const TileData& data)
{
    const QImage* tile = data.visible && mTileSet ? &drawnTile(data) : nullptr;
    const bool usable = tile && tile->format() == QImage::Format_Indexed8 && tile->width() >= CellPixels
        && tile->height() >= CellPixels;
    for (int row = 0; row < CellPixels; ++row) {
        uchar* line = target.scanLine(block.y() * CellPixels + row) + block.x() * CellPixels;
        if (usable)
            std::memcpy(line, tile->constScanLine(row), CellPixels);
        else
            std::memset(line, 0, CellPixels);
    }
}

QImage TileMap::renderRect(const QRect& area)
{
    QImage image(qMax(0, area.width()) * CellPixels, qMax(0, area.height()) * CellPixels, QImage::Format_Indexed8);
    image.fill(0);
    if (!mTileSet || !mTileSet->palette()) {
        qWarning() << "_tiles==nullptr";
        return image;
    }
    image.setColorTable(mTileSet->palette()->rgbTable());
    const QRect inside = area.intersected(rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            blitCell(image, QPoint(x, y) - area.topLeft(), mCells.at(y).at(x));
    return image;
}

const QImage& TileMap::picture()
{
    if (mPicture.isNull())
        mPicture = renderRect(rect());
    return mPicture;
}

QImage TileMap::scaledPreview(const QRect& area, double scale, int transparencyIndex)
{
    picture();
    const int width = qRound(area.width() * scale);
    const int height = qRound(area.height() * scale);
    QImage result(qMax(0, width), qMax(0, height), QImage::Format_Indexed8);
    if (result.isNull())
        return result;

    // Nearest-neighbour sampling straight from the cached picture, so that
    // nothing but the visible part is touched; outside the map is index 0.
    // A row that samples the same picture row as the one above is copied.
    const QRect source(area.topLeft() * CellPixels, area.size() * CellPixels);
    QList<int> columns(width);
    for (int x = 0; x < width; ++x) {
        const int sourceX = source.left() + int((x + 0.5) * source.width() / width);
        columns[x] = sourceX >= 0 && sourceX < mPicture.width() ? sourceX : -1;
    }
    int previousY = -1;
    for (int y = 0; y < height; ++y) {
        const int sourceY = source.top() + int((y + 0.5) * source.height() / height);
        uchar* line = result.scanLine(y);
        if (y > 0 && sourceY == previousY) {
            std::memcpy(line, result.constScanLine(y - 1), width);
            continue;
        }
        previousY = sourceY;
        if (sourceY < 0 || sourceY >= mPicture.height()) {
            std::memset(line, 0, width);
            continue;
        }
        const uchar* from = mPicture.constScanLine(sourceY);
        for (int x = 0; x < width; ++x)
            line[x] = columns[x] < 0 ? 0 : from[columns[x]];
    }

    // The low four bits are compared, so the index is transparent in every bank.
    QList<QRgb> table = mPicture.colorTable();
    for (int i = 0; i < table.size(); ++i)
        table[i] = (table[i] & 0x00FFFFFF) | ((i & 15) == transparencyIndex ? 0 : 0xFF000000);
    result.setColorTable(table);
    return result;
}

void TileMap::swapTiles(int first, int second)
{
    bool changed = false;
    for (auto& row : mCells)
        for (auto& data : row) {
            if (data.index == first) {
                data.index = second;
                changed = true;
            } else if (data.index == second) {
                data.index = first;
                changed = true;
            }
        }
    if (!changed)
        return;
    QHash<quint64, QImage> swapped;
    for (auto it = mTileCache.cbegin(); it != mTileCache.cend(); ++it) {
        const int index = int(quint32(it.key() >> 8));
        const int other = index == first ? second : index == second ? first : index;
        swapped.insert((quint64(quint32(other)) << 8) | (it.key() & 0xFF), it.value());
    }
    mTileCache = swapped;
    mPicture = QImage();
    emit tilesChanged();
}

void TileMap::shiftTiles(int index, int delta)
{
    bool changed = false;
    for (auto& row : mCells)
        for (auto& data : row) {
            int moved = data.index;
            if (delta > 0 && data.index >= index)
                moved = data.index + delta;
            else if (delta < 0 && data.index == index)
                moved = 0;
            else if (delta < 0 && data.index > index)
                moved = data.index + delta;
            if (moved != data.index) {
                data.index = moved;
                changed = true;
            }
        }
    if (changed)
        invalidate();
}

void TileMap::syncOffsets()
{
    if (!mTileSet)
        return;
    bool changed = false;
    for (auto& row : mCells)
        for (auto& data : row) {
            const int offset = mTileSet->tileOffset(data.index);
            if (offset != data.offset) {
                data.offset = offset;
                changed = true;
            }
        }
    if (changed)
        mPicture = QImage();
}

void TileMap::addRow(int where)
{
    Grid cells = mCells;
    cells.insert(where == 0 ? 0 : cells.size(), QList<TileData>(mWidth));
    setGridAndSize(cells, mWidth, mHeight + 1);
}

void TileMap::addColumn(int where)
{
    Grid cells = mCells;
    for (auto& row : cells)
        row.insert(where == 0 ? 0 : row.size(), TileData());
    setGridAndSize(cells, mWidth + 1, mHeight);
}

void TileMap::removeRow(int where)
{
    if (mHeight == 0)
        return;
    Grid cells = mCells;
    cells.removeAt(where == 0 ? 0 : cells.size() - 1);
    setGridAndSize(cells, mWidth, mHeight - 1);
}

void TileMap::removeColumn(int where)
{
    if (mWidth == 0)
        return;
    Grid cells = mCells;
    for (auto& row : cells)
        row.removeAt(where == 0 ? 0 : row.size() - 1);
    setGridAndSize(cells, mWidth - 1, mHeight);
}

QPoint TileMap::resize(const QSize& size, Qt::Alignment alignment)
{
    const int width = qMax(0, size.width());
    const int height = qMax(0, size.height());
    const AxisCopy columns = axisCopy(mWidth, width, alignment & Qt::AlignHCenter, alignment & Qt::AlignRight);
    const AxisCopy rows = axisCopy(mHeight, height, alignment & Qt::AlignVCenter, alignment & Qt::AlignBottom);
    Grid cells = blankGrid(width, height);
    for (int y = 0; y < rows.count; ++y)
        for (int x = 0; x < columns.count; ++x)
            cells[rows.target + y][columns.target + x] = mCells.at(rows.source + y).at(columns.source + x);
    setGridAndSize(cells, width, height);
    return QPoint(columns.target - columns.source, rows.target - rows.source);
}

void TileMap::copyFrom(const TileMap& other)
{
    setGridAndSize(other.mCells, other.mWidth, other.mHeight);
    mVisible = other.mVisible;
}

QMimeData* TileMap::toMimeData(const QRect& area) const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    // Rows before columns, as other programs of the machine read it.
    stream << qint32(area.height()) << qint32(area.width());
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x) {
            const TileData data = cell(QPoint(x, y));
            stream << qint32(data.index) << quint8(data.visible) << qint32(data.offset) << quint8(data.rotate)
                   << quint8(data.flip) << quint8(data.mirror);
        }
    stream << (mTileSet ? mTileSet->id() : QUuid());
    auto* mime = new QMimeData;
    mime->setData(mimeType(), bytes);
    return mime;
}

TileMap::Clip TileMap::cellsFromMimeData(const QMimeData* data)
{
    if (!data || !data->hasFormat(mimeType()))
        return {};
    const QByteArray bytes = data->data(mimeType());
    QDataStream stream(bytes);
    qint32 width = 0;
    qint32 height = 0;
    stream >> height >> width;
    // 12 bytes a cell: never trust a size that the data cannot hold.
    constexpr qint64 cellBytes = 12;
    if (width <= 0 || height <= 0 || qint64(width) > bytes.size() / cellBytes / height)
        return {};
    Clip clip;
    clip.size = QSize(width, height);
    clip.cells = blankGrid(width, height);
    for (auto& row : clip.cells)
        for (auto& cell : row) {
            qint32 index = 0, offset = 0;
            quint8 visible = 0, rotate = 0, flip = 0, mirror = 0;
            stream >> index >> visible >> offset >> rotate >> flip >> mirror;
            cell = { index, rotate != 0, flip != 0, mirror != 0, offset, visible != 0 };
        }
    stream >> clip.tileSetId;
    if (stream.status() != QDataStream::Ok)
        return {};
    return clip;
}
