#include "project/projectschema.h"

#include "model/animatedblocks.h"
#include "model/animationproperties.h"
#include "model/image.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "model/tile.h"
#include "model/tileanimation.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr int FormatVersion = 2;

QString idText(const QUuid& id)
{
    return id.toString();
}

QJsonObject paletteObject(const Palette& palette)
{
    QJsonArray colours;
    for (int i = 0; i < Palette::Size; ++i)
        colours.append(int(palette.entry(i)));
    return { { "id", idText(palette.id()) },
             { "name", palette.name() },
             { "transparency_index", palette.transparencyIndex() },
             { "colours", colours } };
}

QJsonObject tileSetObject(const TileSet& tiles)
{
    // `offsets` repeats what `tiles` holds, for readers that know only it.
    QJsonArray offsets;
    QJsonArray records;
    for (int i = 0; i < tiles.count(); ++i) {
        const Tile* tile = tiles.tile(i);
        offsets.append(tile->offset());
        records.append(QJsonObject { { "offset", tile->offset() },
                                     { "attributes", tile->attributes() },
                                     { "value", tile->value() } });
    }
    return { { "count", tiles.count() },
             { "id", idText(tiles.id()) },
             { "name", tiles.name() },
             { "hires", tiles.hiRes() },
             { "palette", idText(tiles.paletteId()) },
             { "offsets", offsets },
             { "tiles", records } };
}

QJsonArray cellArray(const AnimationFrame& frame)
{
    QJsonArray cells;
    for (const QList<AnimationFrame::Cell>& row : frame.cells())
        for (const AnimationFrame::Cell& cell : row)
            cells.append(QJsonObject { { "index", cell.index },
                                       { "offset", cell.offset },
                                       { "flip", cell.flip },
                                       { "mirror", cell.mirror },
                                       { "rotate", cell.rotate } });
    return cells;
}

QJsonArray frameArray(const Animation& animation, const QString& cellKey)
{
    QJsonArray frames;
    for (const QSharedPointer<AnimationFrame>& frame : animation.frames())
        frames.append(QJsonObject { { "id", idText(frame->id()) }, { cellKey, cellArray(*frame) } });
    return frames;
}

QJsonObject placedBlockObject(const AnimationProperties& block)
{
    const QRect rect = block.rect();
    return { { "id", idText(block.animationId()) },
             { "x", rect.x() },
             { "y", rect.y() },
             { "width", rect.width() },
             { "height", rect.height() },
             { "initialDelay", block.initialDelay() },
             { "repeatDelay", block.repeatDelay() },
             { "startFrame", block.startFrame() } };
}

QJsonObject placedSpriteObject(const Map::PlacedSprite& sprite)
{
    return { { "bank", idText(sprite.bank) },
             { "animation", idText(sprite.animation) },
             { "sprite", sprite.sprite },
             { "x", sprite.x },
             { "y", sprite.y },
             { "mirror", sprite.mirror },
             { "flip", sprite.flip },
             { "rotate", sprite.rotate },
             { "startFrame", sprite.startFrame },
             { "initialDelay", sprite.initialDelay },
             { "repeatDelay", sprite.repeatDelay },
             { "paletteOffset", sprite.paletteOffset },
             { "name", sprite.name } };
}

QJsonObject mapObject(const Map& map)
{
    QJsonArray blocks;
    for (const QSharedPointer<AnimationProperties>& block : map.blocks()->list())
        blocks.append(placedBlockObject(*block));
    QJsonArray sprites;
    for (const Map::PlacedSprite& sprite : map.sprites())
        sprites.append(placedSpriteObject(sprite));
    return { { "id", idText(map.id()) },
             { "name", map.name() },
             { "tileset", idText(map.tileSetId()) },
             { "tile_transparency", map.tileTransparencyIndex() },
             { "grid_visible", map.gridVisible() },
             { "tileLayerVisible", map.tileLayerVisible() },
             { "objectLayerVisible", map.objectLayerVisible() },
             { "spriteLayerVisible", map.spriteLayerVisible() },
             { "backgroundTileIndex", map.backgroundTileIndex() },
             { "animations", blocks },
             { "sprites", sprites } };
}

QJsonObject blockAnimationObject(const TileAnimation& animation)
{
    // `type` holds the block's MapObjectType, not Animation::type(), which is
    // 0 for every block: files holding 0 read as Normal either way, and a
    // Horizontal Platform survives a save.
    return { { "id", idText(animation.id()) },
             { "name", animation.name() },
             { "width", animation.width() },
             { "height", animation.height() },
             { "delay", animation.delay() },
             { "type", int(animation.mapObjectType()) },
             { "frames", frameArray(animation, QStringLiteral("tileData")) } };
}

QJsonObject blockSetObject(const MapObjects& blocks)
{
    QJsonArray animations;
    for (const QSharedPointer<TileAnimation>& animation : blocks.animations())
        animations.append(blockAnimationObject(*animation));
    return { { "id", idText(blocks.id()) },
             { "name", blocks.name() },
             { "tiles", idText(blocks.tileSetId()) },
             { "animations", animations } };
}

QJsonObject spriteAnimationObject(const SpriteAnim& animation)
{
    return { { "id", idText(animation.id()) },
             { "name", animation.name() },
             { "delay", animation.delay() },
             { "width", animation.width() },
             { "height", animation.height() },
             { "frames", frameArray(animation, QStringLiteral("anim")) } };
}

QJsonObject spriteBankObject(const SpriteBank& bank)
{
    QJsonArray offsets;
    for (const char offset : bank.offsets())
        offsets.append(int(qint8(offset)));
    QJsonArray animations;
    for (const QSharedPointer<SpriteAnim>& animation : bank.animations())
        animations.append(spriteAnimationObject(*animation));
    return { { "depth", int(bank.depth()) },
             { "id", idText(bank.id()) },
             { "name", bank.name() },
             { "transparency", bank.transparency() },
             { "palette", idText(bank.paletteId()) },
             { "offsets", offsets },
             { "animations", animations } };
}

QJsonObject imageObject(const Image& image)
{
    return { { "id", idText(image.id()) },
             { "name", image.name() },
             { "type", int(image.mode()) },
             { "palette", idText(image.paletteId()) } };
}

template<typename Asset, typename ToObject>
QJsonArray arrayOf(const QList<QPointer<Asset>>& assets, ToObject toObject)
{
    QJsonArray array;
    for (const QPointer<Asset>& asset : assets)
        if (asset)
            array.append(toObject(*asset));
    return array;
}

} // namespace

QByteArray writeProjectJson(const Project& project, bool includeOpenDocuments)
{
    const QSize screen = project.screenSize();
    const QRect area = project.playArea();
    QJsonObject root {
        { "formatVersion", FormatVersion },
        { "id", idText(project.id()) },
        { "name", project.name() },
        { "screen_size", QJsonObject { { "width", screen.width() }, { "height", screen.height() } } },
        { "play_area",
          QJsonObject {
              { "x", area.x() }, { "y", area.y() }, { "width", area.width() }, { "height", area.height() } } },
        { "scratchPalette", idText(project.scratchPalette()) },
        { "palettes", arrayOf(project.palettes(), paletteObject) },
        { "tilesets", arrayOf(project.tileSets(), tileSetObject) },
        { "maps", arrayOf(project.maps(), mapObject) },
        { "mapObjects", arrayOf(project.blockLists(), blockSetObject) },
        { "sprites", arrayOf(project.spriteBanks(), spriteBankObject) },
        { "images", arrayOf(project.images(), imageObject) },
    };
    if (includeOpenDocuments)
        root.insert(QStringLiteral("opendocuments"), QJsonArray::fromStringList(project.openDocuments()));
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}
