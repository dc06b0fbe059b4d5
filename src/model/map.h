#pragma once
#include "model/tilemap.h"

#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QUuid>
#include <functional>

class AnimatedBlocks;
class TileAnimation;
class TileSet;

// The document a user edits as a map: a tile layer and an object layer of
// equal size, the animated blocks placed on it, the sprites placed on it,
// and a few display settings.
class Map : public QObject
{
    Q_OBJECT
public:
    // The longest side a map can have, in cells: imports, dialogs, resizing
    // and the project reader all keep to it, so that what one makes the
    // others take.
    static constexpr int MaxSide = 2048;

    // One sprite on a map; x and y are map pixels (8 to a cell).
    struct PlacedSprite
    {
        QUuid bank;
        QUuid animation; // null for a plain sprite
        int sprite = 0;
        int x = 0;
        int y = 0;
        bool mirror = false;
        bool flip = false;
        bool rotate = false;
        int startFrame = 0;
        int initialDelay = 0;
        int repeatDelay = 0;
        int paletteOffset = 0;
        QString name;

        bool operator==(const PlacedSprite& other) const;
        bool operator!=(const PlacedSprite& other) const { return !(*this == other); }
    };

    // A placed block as a value, for snapshots.
    struct Block
    {
        QUuid animationId;
        QRect rect;
        int startFrame = 0;
        int initialDelay = 0;
        int repeatDelay = 0;
        bool operator==(const Block& other) const;
    };

    // Everything an edit on the map can change; equal states mean no edit.
    struct State
    {
        TileMap::Grid tiles;
        TileMap::Grid objects;
        QList<Block> blocks;
        QList<PlacedSprite> sprites;
        bool operator==(const State& other) const;
        bool operator!=(const State& other) const { return !(*this == other); }
    };

    Map(const QString& name, const QSize& size, QObject* parent = nullptr);
    ~Map() override;

    QUuid id() const { return mId; }
    void setId(const QUuid& id) { mId = id; }
    QString name() const { return mName; }
    QUuid tileSetId() const { return mTileSetId; }
    // For a map whose tile set is not (yet) known; setTileSet sets both.
    void setTileSetId(const QUuid& id) { mTileSetId = id; }
    QPointer<TileSet> tileSet() const { return mTileSet; }
    void setTileSet(QPointer<TileSet> tileSet);

    QPointer<TileMap> tileMap() const { return mTileMap.data(); }
    QPointer<TileMap> objectMap() const { return mObjectMap.data(); }
    QPointer<AnimatedBlocks> blocks() const;

    QSize size() const;
    int cellCount() const;
    TileMap::TileData tile(const QPoint& cell) const;
    bool setTile(const QPoint& cell, const TileMap::TileData& data);
    void setTiles(const QRect& area, int index, bool rotate, bool flip, bool mirror, bool visible);
    bool tileLayerVisible() const;
    void setTileLayerVisible(bool visible);
    bool objectLayerVisible() const;
    void setObjectLayerVisible(bool visible);
    bool spriteLayerVisible() const { return mSpriteLayerVisible; }
    void setSpriteLayerVisible(bool visible) { mSpriteLayerVisible = visible; }
    bool gridVisible() const { return mGridVisible; }
    void setGridVisible(bool visible) { mGridVisible = visible; }
    int tileTransparencyIndex() const { return mTileTransparencyIndex; }
    int backgroundTileIndex() const { return mBackgroundTileIndex; }

    void addRow(int where);
    void addColumn(int where);
    void removeRow(int where);
    void removeColumn(int where);
    void resize(const QSize& size, Qt::Alignment alignment);
    void shiftObjects(const QPoint& delta);

    // Blocks: the object layer shows the block's first frame where it stands.
    bool placeAnimation(const TileAnimation* animation, const QPoint& position);
    // Marks the object layer afresh, at the map's size, from the placed blocks'
    // first frames; the placements and their timing stay. A block whose
    // animation is not found keeps its place and marks nothing.
    void rebuildObjectLayer(const std::function<const TileAnimation*(const QUuid&)>& findAnimation);
    bool removeBlock(const QRect& rect);
    // Writes one frame of a block into the object layer from `topLeft`, as
    // the clock shows it; outside any undo step. False when nothing changed.
    bool showBlockFrame(const QPoint& topLeft, const TileAnimation& block, int frame);
    // The rectangle of the block that covers `cell`, or an empty one.
    QRect rectAt(const QPoint& cell) const;

    const QList<PlacedSprite>& sprites() const { return mSprites; }
    int addSprite(const PlacedSprite& sprite);
    bool setSprite(int index, const PlacedSprite& sprite);
    bool removeSprite(int index);
    void moveSpriteInBank(const QUuid& bank, int from, int to);

    State state() const;
    void restore(const State& state);

    // The tile layer in the machine's packed form (.map); the size isn't stored.
    bool exportData(const QString& fileName) const;
    // "<name>_tilemap.bin" in `directory`.
    bool exportBinary(const QString& directory) const;
    // Takes size and tiles from a block map and its block table.
    bool importNextTiles(const QString& nxmFile, const QString& nxbFile);

public slots:
    void setName(const QString& name);
    void setTileTransparencyIndex(int index) { mTileTransparencyIndex = index; }
    void setBackgroundTileIndex(int index) { mBackgroundTileIndex = index; }

signals:
    void nameChanged(QString name);
    void resized(QPointer<Map> map);
    void restored();

private:
    void afterRowOrColumnEdit(const QPoint& shift);
    void setBlocks(const QList<Block>& blocks);
    void clearBlockCells(const QRect& rect);

    QUuid mId;
    QString mName;
    QUuid mTileSetId;
    QPointer<TileSet> mTileSet;
    QSharedPointer<TileMap> mTileMap;
    QSharedPointer<TileMap> mObjectMap;
    QSharedPointer<AnimatedBlocks> mBlocks;
    QList<PlacedSprite> mSprites;
    bool mSpriteLayerVisible = true;
    bool mGridVisible = false;
    int mTileTransparencyIndex = -1;
    int mBackgroundTileIndex = -1;
};
