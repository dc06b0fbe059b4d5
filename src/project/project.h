#pragma once
#include "model/tintorel.h"
#include "project/createaction.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QStringList>
#include <QUuid>

class Image;
class Map;
class MapObjects;
class Palette;
class SpriteBank;
class TileSet;

// The open document: owns every asset, finds them by id, creates, copies and
// deletes them, and refuses to delete what is still in use. It knows
// nothing of files.
class Project : public QObject
{
    Q_OBJECT
public:
    explicit Project(QObject* parent = nullptr);

    QUuid id() const { return mId; }
    void setId(const QUuid& id) { mId = id; }
    QString name() const { return mName; }
    void setName(const QString& name) { mName = name; }
    QSize screenSize() const { return mScreenSize; }
    void setScreenSize(const QSize& size) { mScreenSize = size; }
    QRect playArea() const { return mPlayArea; }
    void setPlayArea(const QRect& area) { mPlayArea = area; }
    QPointer<Palette> defaultPalette() const { return mDefaultPalette; }
    void setDefaultPalette(QPointer<Palette> palette) { mDefaultPalette = palette; }
    QImage scratchImage() const { return mScratchImage; }
    void setScratchImage(const QImage& image) { mScratchImage = image; }
    QUuid scratchPalette() const { return mScratchPalette; }
    void setScratchPalette(const QUuid& id) { mScratchPalette = id; }
    QStringList openDocuments() const { return mOpenDocuments; }
    void setOpenDocuments(const QStringList& ids) { mOpenDocuments = ids; }

    // Null for an unknown id.
    QPointer<Palette> palette(const QUuid& id) const { return mPalettes.value(id); }
    QPointer<TileSet> tileSet(const QUuid& id) const { return mTileSets.value(id); }
    QPointer<Map> map(const QUuid& id) const { return mMaps.value(id); }
    QPointer<SpriteBank> spriteBank(const QUuid& id) const { return mSpriteBanks.value(id); }
    QPointer<Image> image(const QUuid& id) const { return mImages.value(id); }
    QPointer<MapObjects> blocks(const QUuid& id) const { return mMapObjects.value(id); }

    // In hash order.
    QList<QPointer<Palette>> palettes() const { return mPalettes.values(); }
    QList<QPointer<TileSet>> tileSets() const { return mTileSets.values(); }
    QList<QPointer<Map>> maps() const { return mMaps.values(); }
    QList<QPointer<SpriteBank>> spriteBanks() const { return mSpriteBanks.values(); }
    QList<QPointer<Image>> images() const { return mImages.values(); }
    QList<QPointer<MapObjects>> blockLists() const { return mMapObjects.values(); }

    // The one way in for each kind, shared by creation and loading; the
    // project takes ownership.
    void addPalette(Palette* palette);
    void addTileSet(TileSet* tileSet);
    void addMap(Map* map);
    void addSpriteBank(SpriteBank* bank);
    void addImage(Image* image);
    void addBlocks(MapObjects* blocks);

    QHash<QUuid, QString> tileSetNames() const;
    // The name of the asset of any kind with this id; empty for none.
    QString nameOf(const QUuid& id) const;
    // True when a delete of this asset would be refused: a palette, tile set
    // or block set that something else still uses.
    bool inUse(const QUuid& id) const;

public slots:
    QPointer<Palette> createPalette(CreateAction action, const QString& name, const QUuid& source);
    QPointer<Palette> createPalette(CreateAction action, const QString& name);
    QPointer<Palette> clonePalette(const QUuid& id);
    bool deletePalette(const QUuid& id);
    QPointer<TileSet> createTileSet(const QString& name, const QUuid& palette, int tileCount, bool hiRes);
    QPointer<TileSet> createTileSet(const QString& name, const QUuid& palette, int tileCount);
    QPointer<TileSet> createTileSet(const QString& name, const QUuid& palette);
    QPointer<TileSet> cloneTileSet(const QUuid& id);
    bool deleteTileSet(const QUuid& id);
    QPointer<MapObjects> createBlockList(const QString& name, const QUuid& tileSet);
    bool deleteBlocks(const QUuid& id);
    QPointer<Map> createMap(const QString& name, const QUuid& tileSet, const QSize& size);
    QPointer<Map> cloneMap(const QUuid& id);
    bool deleteMap(const QUuid& id);
    QPointer<SpriteBank> createSpriteBank(Tintorel::Sprite depth, const QString& name, const QUuid& palette);
    bool deleteSpriteBank(const QUuid& id);
    QPointer<Image> createImage(Tintorel::ImageMode mode, const QString& name, const QUuid& paletteId);
    bool deleteImage(const QUuid& id);
    QHash<QUuid, QString> paletteNames() const;

signals:
    void showMessage(QString message, int duration);
    void showMessage(QString message);
    void error(QString message);
    void tileSetsChanged(QHash<QUuid, QString> list);
    void imageCreated(QPointer<Image> image);
    void paletteCreated(QPointer<Palette> palette);
    void tilesetCreated(QPointer<TileSet> tileset);
    void blocksCreated(QPointer<MapObjects> blocks);
    void mapCreated(QPointer<Map> map);
    void spritesCreated(QPointer<SpriteBank> sprites);

private:
    bool paletteInUse(const QUuid& id) const;
    bool tileSetInUse(const QUuid& id) const;
    void moveSpriteOnMaps(const QUuid& bank, int from, int to);

    QUuid mId;
    QString mName = QStringLiteral("untitled");
    QSize mScreenSize { 320, 256 };
    QRect mPlayArea { 0, 0, 320, 256 };
    QHash<QUuid, QPointer<Palette>> mPalettes;
    QHash<QUuid, QPointer<TileSet>> mTileSets;
    QHash<QUuid, QPointer<SpriteBank>> mSpriteBanks;
    QHash<QUuid, QPointer<Image>> mImages;
    QHash<QUuid, QPointer<Map>> mMaps;
    QHash<QUuid, QPointer<MapObjects>> mMapObjects;
    QPointer<Palette> mDefaultPalette;
    QImage mScratchImage;
    QUuid mScratchPalette;
    QStringList mOpenDocuments;
};
