#include "project/project.h"

#include "model/image.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tilemap.h"
#include "model/tileset.h"

namespace {

const QString CopySuffix = QStringLiteral(" (copy)");

template<typename T>
void take(QHash<QUuid, QPointer<T>>& table, T* asset, QObject* owner)
{
    asset->setParent(owner);
    table.insert(asset->id(), asset);
}

// Removes and deletes at once, so that every view's pointer is null before
// anything else runs. An unknown id counts as done.
template<typename T>
bool remove(QHash<QUuid, QPointer<T>>& table, const QUuid& id)
{
    const QPointer<T> asset = table.take(id);
    delete asset.data();
    return true;
}

// The asset's name, or a null string when the table does not hold it.
template<typename T>
QString nameIn(const QHash<QUuid, QPointer<T>>& table, const QUuid& id)
{
    const QPointer<T> asset = table.value(id);
    return asset ? asset->name() : QString();
}

template<typename T>
QHash<QUuid, QString> namesOf(const QHash<QUuid, QPointer<T>>& table)
{
    QHash<QUuid, QString> names;
    for (auto it = table.cbegin(); it != table.cend(); ++it)
        if (it.value())
            names.insert(it.key(), it.value()->name());
    return names;
}

} // namespace

Project::Project(QObject* parent)
    : QObject(parent)
    , mId(QUuid::createUuid())
    , mScratchImage(256, 192, QImage::Format_Indexed8)
{
    mScratchImage.fill(0);
}

void Project::addPalette(Palette* palette)
{
    take(mPalettes, palette, this);
    emit showMessage(tr("New palette added: %1").arg(palette->name()));
}

void Project::addTileSet(TileSet* tileSet)
{
    take(mTileSets, tileSet, this);
    emit showMessage(tr("New tile set added: %1").arg(tileSet->name()));
    emit tileSetsChanged(tileSetNames());
}

void Project::addMap(Map* map)
{
    take(mMaps, map, this);
    emit showMessage(tr("New map added: %1").arg(map->name()));
}

void Project::addSpriteBank(SpriteBank* bank)
{
    take(mSpriteBanks, bank, this);
    // Placed sprites name a sprite by its position in the bank.
    const QUuid bankId = bank->id();
    connect(bank, &SpriteBank::spriteMoved, this,
            [this, bankId](int from, int to) { moveSpriteOnMaps(bankId, from, to); });
    emit showMessage(tr("New Sprite Bank Added"));
}

void Project::addImage(Image* image)
{
    take(mImages, image, this);
}

void Project::addBlocks(MapObjects* blocks)
{
    take(mMapObjects, blocks, this);
    emit showMessage(tr("New block set added: %1").arg(blocks->name()));
}

void Project::moveSpriteOnMaps(const QUuid& bank, int from, int to)
{
    for (const auto& map : std::as_const(mMaps))
        if (map)
            map->moveSpriteInBank(bank, from, to);
}

QHash<QUuid, QString> Project::tileSetNames() const
{
    return namesOf(mTileSets);
}

QHash<QUuid, QString> Project::paletteNames() const
{
    return namesOf(mPalettes);
}

QPointer<Palette> Project::createPalette(CreateAction action, const QString& name, const QUuid& source)
{
    auto* palette = new Palette;
    palette->setName(name);
    const Palette* from = nullptr;
    switch (action) {
    case CreateAction::Standard:
        palette->loadStandard();
        break;
    case CreateAction::Copy:
        from = mPalettes.value(source) ? mPalettes.value(source).data() : mDefaultPalette.data();
        if (from) {
            palette->copyEntries(from);
            break;
        }
        Q_FALLTHROUGH();
    case CreateAction::Blank:
    case CreateAction::NewBlank:
        palette->fill(Qt::black, false);
        break;
    }
    addPalette(palette);
    emit paletteCreated(palette);
    return palette;
}

QPointer<Palette> Project::createPalette(CreateAction action, const QString& name)
{
    return createPalette(action, name, QUuid());
}

QPointer<Palette> Project::clonePalette(const QUuid& id)
{
    const QPointer<Palette> source = palette(id);
    if (!source)
        return nullptr;
    return createPalette(CreateAction::Copy, source->name() + CopySuffix, id);
}

QString Project::nameOf(const QUuid& id) const
{
    // Ids are unique across the kinds, so at most one table knows it.
    for (const QString& name : { nameIn(mPalettes, id), nameIn(mTileSets, id), nameIn(mMaps, id),
                                 nameIn(mSpriteBanks, id), nameIn(mImages, id), nameIn(mMapObjects, id) })
        if (!name.isNull())
            return name;
    return {};
}

bool Project::inUse(const QUuid& id) const
{
    if (mPalettes.contains(id))
        return paletteInUse(id);
    if (mTileSets.contains(id))
        return tileSetInUse(id);
    if (const QPointer<MapObjects> set = mMapObjects.value(id))
        return tileSetInUse(set->tileSetId());
    return false;
}

bool Project::paletteInUse(const QUuid& id) const
{
    if (id == mScratchPalette)
        return true;
    for (const auto& tiles : mTileSets)
        if (tiles && tiles->paletteId() == id)
            return true;
    for (const auto& bank : mSpriteBanks)
        if (bank && bank->paletteId() == id)
            return true;
    for (const auto& image : mImages)
        if (image && image->paletteId() == id)
            return true;
    return false;
}

bool Project::deletePalette(const QUuid& id)
{
    if (!mPalettes.contains(id))
        return true;
    if (paletteInUse(id))
        return false;
    return remove(mPalettes, id);
}

QPointer<TileSet> Project::createTileSet(const QString& name, const QUuid& palette, int tileCount, bool hiRes)
{
    auto* tiles = new TileSet(tileCount);
    tiles->setHiRes(hiRes);
    // A tile set always ends up with a palette of its own if none was chosen.
    const QPointer<Palette> colours = palette.isNull() ? createPalette(CreateAction::NewBlank, name)
                                                       : this->palette(palette);
    tiles->setName(name);
    tiles->setPaletteId(colours ? colours->id() : palette);
    tiles->setPalette(colours);
    addTileSet(tiles);
    emit tilesetCreated(tiles);
    return tiles;
}

QPointer<TileSet> Project::createTileSet(const QString& name, const QUuid& palette, int tileCount)
{
    return createTileSet(name, palette, tileCount, false);
}

QPointer<TileSet> Project::createTileSet(const QString& name, const QUuid& palette)
{
    return createTileSet(name, palette, 256, false);
}

QPointer<TileSet> Project::cloneTileSet(const QUuid& id)
{
    const QPointer<TileSet> source = tileSet(id);
    if (!source)
        return nullptr;
    const QPointer<TileSet> copy =
        createTileSet(source->name() + CopySuffix, source->paletteId(), source->count(), source->hiRes());
    copy->assign(source);
    return copy;
}

bool Project::tileSetInUse(const QUuid& id) const
{
    for (const auto& map : mMaps)
        if (map && map->tileSetId() == id)
            return true;
    return false;
}

bool Project::deleteTileSet(const QUuid& id)
{
    if (!mTileSets.contains(id))
        return true;
    if (tileSetInUse(id))
        return false;
    remove(mTileSets, id);
    emit tileSetsChanged(tileSetNames());
    return true;
}

QPointer<MapObjects> Project::createBlockList(const QString& name, const QUuid& tileSet)
{
    auto* blocks = new MapObjects;
    blocks->setTileSetId(tileSet);
    blocks->setTileSet(this->tileSet(tileSet));
    blocks->setName(name);
    addBlocks(blocks);
    emit blocksCreated(blocks);
    return blocks;
}

bool Project::deleteBlocks(const QUuid& id)
{
    if (!mMapObjects.contains(id))
        return true;
    // In use as soon as a map shares the tile set, placed or not.
    if (inUse(id))
        return false;
    return remove(mMapObjects, id);
}

QPointer<Map> Project::createMap(const QString& name, const QUuid& tileSet, const QSize& size)
{
    auto* map = new Map(name, size);
    map->setTileSet(this->tileSet(tileSet));
    if (!this->tileSet(tileSet))
        map->setTileSetId(tileSet);
    addMap(map);
    emit mapCreated(map);
    return map;
}

QPointer<Map> Project::cloneMap(const QUuid& id)
{
    const QPointer<Map> source = map(id);
    if (!source)
        return nullptr;
    const QPointer<Map> copy = createMap(source->name() + CopySuffix, source->tileSetId(), source->size());
    copy->restore(source->state());
    copy->setTileLayerVisible(source->tileLayerVisible());
    copy->setObjectLayerVisible(source->objectLayerVisible());
    copy->setSpriteLayerVisible(source->spriteLayerVisible());
    copy->setGridVisible(source->gridVisible());
    copy->setTileTransparencyIndex(source->tileTransparencyIndex());
    copy->setBackgroundTileIndex(source->backgroundTileIndex());
    return copy;
}

bool Project::deleteMap(const QUuid& id)
{
    return remove(mMaps, id);
}

QPointer<SpriteBank> Project::createSpriteBank(Tintorel::Sprite depth, const QString& name, const QUuid& palette)
{
    auto* bank = new SpriteBank(depth);
    bank->setName(name);
    bank->setPaletteId(palette);
    bank->setPalette(this->palette(palette));
    addSpriteBank(bank);
    emit spritesCreated(bank);
    return bank;
}

bool Project::deleteSpriteBank(const QUuid& id)
{
    return remove(mSpriteBanks, id);
}

QPointer<Image> Project::createImage(Tintorel::ImageMode mode, const QString& name, const QUuid& paletteId)
{
    auto* image = new Image(mode);
    image->setName(name);
    image->setPalette(palette(paletteId));
    addImage(image);
    emit imageCreated(image);
    return image;
}

bool Project::deleteImage(const QUuid& id)
{
    return remove(mImages, id);
}
