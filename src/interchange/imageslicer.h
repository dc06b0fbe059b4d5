#pragma once
#include "model/tilemap.h"

#include <QBitArray>
#include <QHash>
#include <QImage>
#include <QList>
#include <QObject>
#include <limits>

// Turns a picture into what the tile hardware can show: distinct 8x8 tiles
// (any of the eight orientations counts as the same tile), a map of
// references to them, and a palette of sixteen 16-colour banks in which each
// tile uses one bank. It also cuts pictures into sprites.
class ImageSlicer : public QObject
{
    Q_OBJECT
public:
    explicit ImageSlicer(const QImage& source, QObject* parent = nullptr);

    // The number of distinct tiles; the banks are built when it is known.
    // Slicing stops at the tile past `maxTiles`, which is then the count,
    // so that a picture too varied is refused without slicing it all.
    int sliceTiles(int maxTiles = std::numeric_limits<int>::max());
    // The number of size x size pieces, none merged, no banks.
    int sliceSprites(int size);

    int pieceCount() const { return int(mPieces.size()); }
    QImage piece(int index) const;
    // The palette bank a tile was given (its palette offset).
    int pieceOffset(int index) const;
    // Tiles that found no room in the sixteen banks: they, and the palette,
    // got no colours.
    int tilesWithoutColours() const { return pieceCount() - mPlaced; }
    // The finished palette: the banks joined in order after tiles, the
    // picture's colours after sprites, empty when the banks could not be built.
    QList<QRgb> colours() const { return mColours; }

    // How many distinct colours the picture has on the machine's grid; only
    // the first 256 can be indices.
    int sourceColourCount() const { return mSourceColours; }

    int columns() const { return mColumns; }
    int rows() const { return mRows; }
    // The cell's tile, flags and bank; a blank cell outside the map.
    TileMap::TileData cell(int column, int row) const;
    // What `processed` counts up to: one step per row of pieces.
    int stepCount() const { return mRows; }

signals:
    void processed(int progress);

private:
    struct Bank
    {
        QBitArray used { 16 };
        QList<QRgb> colours = QList<QRgb>(16, 0);
    };
    struct Cell
    {
        int tile = 0;
        int flags = 0;
    };

    void reset();
    void slice(int size, bool deduplicate);
    Cell findOrAdd(const QImage& indexed, int x, int y);
    bool buildBanks();
    bool placeTile(int tile);

    QHash<QByteArray, Cell> mSeen;
    QImage mSource;
    int mColumns = 0;
    int mRows = 0;
    QList<QImage> mPieces;
    QList<int> mOffsets;
    QList<Bank> mBanks;
    QList<Cell> mCells;
    QList<QRgb> mColourTable;
    QList<QRgb> mColours;
    int mPlaced = 0;
    int mMaxPieces = std::numeric_limits<int>::max();
    int mSourceColours = 0;
};
