#pragma once
#include <QHash>
#include <QImage>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QUuid>

class QMimeData;
class TileSet;

// A rectangular grid of cells over a tile set. It keeps the rendered map and
// one drawn image per look of a tile, so painting a cell redraws 64 pixels.
class TileMap : public QObject
{
    Q_OBJECT
public:
    // One cell; all-zero is the blank cell.
    struct TileData
    {
        int index = 0;
        bool rotate = false;
        bool flip = false;
        bool mirror = false;
        int offset = 0;
        bool visible = false;

        bool operator==(const TileData& other) const;
        bool operator!=(const TileData& other) const { return !(*this == other); }
        // The machine's two bytes: index low byte, then offset, mirror,
        // flip, rotate and index bit 8.
        QByteArray packed() const;
    };
    using td = TileData;
    using Grid = QList<QList<TileData>>;

    // Cells taken from the clipboard.
    struct Clip
    {
        QSize size;
        Grid cells;
        QUuid tileSetId;
        bool isEmpty() const { return size.isEmpty(); }
    };

    static QString mimeType() { return QStringLiteral("tintorel-map-toNextData"); }

    TileMap(int width, int height, QObject* parent = nullptr);

    QUuid id() const { return mId; }
    void setId(const QUuid& id) { mId = id; }
    int width() const { return mWidth; }
    int height() const { return mHeight; }
    QSize size() const { return { mWidth, mHeight }; }
    QRect rect() const { return QRect(0, 0, mWidth, mHeight); }
    const Grid& cells() const { return mCells; }
    // Takes a whole grid (undo, load); rows are padded or cut to a rectangle.
    void setGrid(const Grid& cells);

    QPointer<TileSet> tileSet() const { return mTileSet; }
    void setTileSet(QPointer<TileSet> tileSet);
    bool isVisible() const { return mVisible; }
    void setVisible(bool visible) { mVisible = visible; }

    TileData cell(const QPoint& position) const;
    bool setCell(const QPoint& position, const TileData& data);
    void setCells(const QRect& area, int index, bool rotate, bool flip, bool mirror, bool visible);
    void clear();
    QByteArray toNextData() const;

    QImage renderRect(const QRect& area);
    // The whole layer, 8 pixels a cell, built at first need and kept up to
    // date cell by cell after that.
    const QImage& picture();
    QImage scaledPreview(const QRect& area, double scale, int transparencyIndex);

    void swapTiles(int first, int second);
    void shiftTiles(int index, int delta);
    void syncOffsets();

    void addRow(int where);
    void addColumn(int where);
    void removeRow(int where);
    void removeColumn(int where);
    QPoint resize(const QSize& size, Qt::Alignment alignment);
    void copyFrom(const TileMap& other);

    QMimeData* toMimeData(const QRect& area) const;
    static Clip cellsFromMimeData(const QMimeData* data);

    // Drops every drawn tile and the picture, for a change of the tiles.
    void invalidate();

signals:
    void tilesChanged();

private:
    static quint64 lookKey(const TileData& data);
    const QImage& drawnTile(const TileData& data);
    void blitCell(QImage& target, const QPoint& block, const TileData& data);
    void setGridAndSize(const Grid& cells, int width, int height);

    QUuid mId;
    int mWidth = 0;
    int mHeight = 0;
    Grid mCells;
    QPointer<TileSet> mTileSet;
    QImage mPicture;
    QHash<quint64, QImage> mTileCache;
    bool mVisible = true;
};
