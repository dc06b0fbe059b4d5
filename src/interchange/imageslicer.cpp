#include "interchange/imageslicer.h"

#include "model/nximage.h"

#include <QCryptographicHash>
#include <QDebug>
#include <array>
#include <cstring>

namespace {

constexpr int TileSize = 8;
constexpr int BankCount = 16;
constexpr int BankSize = 16;
using TileBytes = std::array<uchar, TileSize * TileSize>;

// The bytes that transformedByFlags() would give for an 8x8 tile, without
// making an image: pixel (x, y) of the result comes from the source pixel
// that rotating (bit 2) and then mirroring (bit 1) and flipping (bit 0) moves
// there.
TileBytes oriented(const TileBytes& tile, int flags)
{
    TileBytes result;
    const bool rotate = flags & 4;
    const bool mirror = flags & 2;
    const bool flip = flags & 1;
    for (int y = 0; y < TileSize; ++y)
        for (int x = 0; x < TileSize; ++x) {
            const int rx = mirror ? TileSize - 1 - x : x;
            const int ry = flip ? TileSize - 1 - y : y;
            // A quarter turn clockwise puts source (sx, sy) at (7 - sy, sx).
            const int sx = rotate ? ry : rx;
            const int sy = rotate ? TileSize - 1 - rx : ry;
            result[y * TileSize + x] = tile[sy * TileSize + sx];
        }
    return result;
}

QByteArray hashOf(const TileBytes& bytes)
{
    return QCryptographicHash::hash(
        QByteArrayView(reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size())),
        QCryptographicHash::Sha1);
}

} // namespace

ImageSlicer::ImageSlicer(const QImage& source, QObject* parent)
    : QObject(parent)
    , mSource(source)
{
}

void ImageSlicer::reset()
{
    mSeen.clear();
    mPieces.clear();
    mOffsets.clear();
    mCells.clear();
    mColourTable.clear();
    mColours.clear();
    mBanks = QList<Bank>(BankCount);
    mColumns = 0;
    mRows = 0;
    mPlaced = 0;
    mMaxPieces = std::numeric_limits<int>::max();
}

int ImageSlicer::sliceTiles(int maxTiles)
{
    reset();
    mMaxPieces = maxTiles;
    slice(TileSize, true);
    if (pieceCount() > maxTiles)
        return pieceCount();
    if (buildBanks())
        for (const Bank& bank : std::as_const(mBanks))
            mColours += bank.colours;
    return pieceCount();
}

int ImageSlicer::sliceSprites(int size)
{
    reset();
    if (size < 1)
        return 0;
    slice(size, false);
    mColours = mColourTable;
    mPlaced = pieceCount();
    return pieceCount();
}

QImage ImageSlicer::piece(int index) const
{
    return index >= 0 && index < mPieces.size() ? mPieces.at(index) : QImage();
}

int ImageSlicer::pieceOffset(int index) const
{
    return index >= 0 && index < mOffsets.size() ? mOffsets.at(index) : 0;
}

TileMap::TileData ImageSlicer::cell(int column, int row) const
{
    if (column < 0 || row < 0 || column >= mColumns || row >= mRows || row * mColumns + column >= mCells.size())
        return {};
    const Cell& cell = mCells.at(row * mColumns + column);
    TileMap::TileData data;
    data.index = cell.tile;
    data.flip = cell.flags & 1;
    data.mirror = cell.flags & 2;
    data.rotate = cell.flags & 4;
    data.offset = pieceOffset(cell.tile);
    data.visible = true;
    return data;
}

void ImageSlicer::slice(int size, bool deduplicate)
{
    NxImage snapped;
    snapped.load(mSource);
    const QImage indexed = snapped.toIndexed();
    mSourceColours = int(snapped.colours().size());
    mColourTable = snapped.colours().mid(0, 256);
    mColumns = indexed.width() / size;
    mRows = indexed.height() / size;
    for (int row = 0; row < mRows; ++row) {
        for (int column = 0; column < mColumns; ++column) {
            if (deduplicate) {
                mCells.append(findOrAdd(indexed, column * size, row * size));
                // One past the most the caller takes is enough to refuse.
                if (mPieces.size() > mMaxPieces)
                    return;
            } else
                mPieces.append(indexed.copy(column * size, row * size, size, size));
        }
        emit processed(row + 1);
    }
}

ImageSlicer::Cell ImageSlicer::findOrAdd(const QImage& indexed, int x, int y)
{
    TileBytes bytes;
    for (int row = 0; row < TileSize; ++row)
        std::memcpy(bytes.data() + row * TileSize, indexed.constScanLine(y + row) + x, TileSize);
    const auto known = mSeen.constFind(hashOf(bytes));
    if (known != mSeen.constEnd())
        return *known;

    // A new tile enters under all eight of its orientations, each with the
    // flags that draw the tile that way; the lowest flags win where a
    // symmetric tile looks the same in several. A later piece is then one
    // probe, and its flags reproduce it when the tile is drawn with them.
    const int tile = int(mPieces.size());
    mPieces.append(indexed.copy(x, y, TileSize, TileSize));
    for (int flags = 0; flags < 8; ++flags) {
        const QByteArray hash = hashOf(oriented(bytes, flags));
        if (!mSeen.contains(hash))
            mSeen.insert(hash, { tile, flags });
    }
    return { tile, 0 };
}

bool ImageSlicer::buildBanks()
{
    mOffsets = QList<int>(mPieces.size(), 0);
    for (mPlaced = 0; mPlaced < mPieces.size(); ++mPlaced)
        if (!placeTile(mPlaced))
            return false;
    return true;
}

// Puts one tile's colours into the first bank that can take them and
// renumbers its pixels to that bank's slots.
bool ImageSlicer::placeTile(int tile)
{
    const QImage used = NxImage::compacted(mPieces.at(tile));
    const QList<QRgb> colours = used.colorTable();

    int chosen = -1;
    for (int b = 0; b < mBanks.size() && chosen < 0; ++b) {
        const Bank& bank = mBanks.at(b);
        int held = 0;
        for (QRgb colour : colours)
            for (int slot = 0; slot < BankSize; ++slot)
                if (bank.used.testBit(slot) && bank.colours.at(slot) == colour) {
                    ++held;
                    break;
                }
        const int free = BankSize - bank.used.count(true);
        if (held == colours.size() || free >= colours.size() - held)
            chosen = b;
    }
    if (chosen < 0) {
        qWarning() << "Palette full!";
        return false;
    }

    Bank& bank = mBanks[chosen];
    QList<int> slotOf;
    for (QRgb colour : colours) {
        int found = -1;
        for (int slot = 0; slot < BankSize && found < 0; ++slot)
            if (bank.used.testBit(slot) && bank.colours.at(slot) == colour)
                found = slot;
        for (int slot = 0; slot < BankSize && found < 0; ++slot)
            if (!bank.used.testBit(slot)) {
                bank.used.setBit(slot);
                bank.colours[slot] = colour;
                found = slot;
            }
        if (found < 0) {
            qWarning() << "Palette index out of range";
            return false;
        }
        slotOf.append(found);
    }

    QImage target(TileSize, TileSize, QImage::Format_Indexed8);
    target.setColorCount(256);
    for (int y = 0; y < TileSize; ++y) {
        const uchar* from = used.constScanLine(y);
        uchar* to = target.scanLine(y);
        for (int x = 0; x < TileSize; ++x)
            to[x] = uchar(slotOf.value(from[x]));
    }
    mPieces[tile] = target;
    mOffsets[tile] = chosen;
    return true;
}
