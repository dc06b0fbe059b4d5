#include "project/projectschema.h"

#include "model/animatedblocks.h"
#include "model/animationproperties.h"
#include "model/image.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/mapobjecttype.h"
#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "model/tile.h"
#include "model/tileanimation.h"
#include "model/tileset.h"
#include "project/animationreader.h"
#include "project/jsonfield.h"
#include "project/project.h"
#include "project/projectbudget.h"
#include "project/tilemapblob.h"

#include <QBuffer>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <memory>

namespace {

using EntryReader = std::function<QByteArray(const QString&)>;
using namespace JsonField;

constexpr int FormatVersion = 2;
// Placed sprites stand in map pixels and move by whole cells as rows come
// and go; this keeps them far from the ends of an int.
constexpr int MaxPixel = MaxCount * 8;

// "line 3, column 14" of a byte offset, for a user who opens the file in an editor.
QString lineAndColumn(const QByteArray& text, int offset)
{
    offset = qBound(0, offset, int(text.size()));
    const QByteArray before = text.left(offset);
    const int line = int(before.count('\n')) + 1;
    const int column = offset - int(before.lastIndexOf('\n'));
    return QStringLiteral("line %1, column %2").arg(line).arg(column);
}

QUuid freshId()
{
    return QUuid::createUuid();
}

std::unique_ptr<Palette> paletteOf(const QJsonObject& object)
{
    auto palette = std::make_unique<Palette>();
    palette->setId(readId(object, "id", freshId()));
    palette->setName(readString(object, "name"));
    palette->setTransparencyIndex(readInt(object, "transparency_index", -1));
    const QJsonArray colours = readArray(object, "colours");
    for (int i = 0; i < Palette::Size && i < colours.size(); ++i)
        palette->setEntry(i, ushort(colours.at(i).toInt(0)));
    return palette;
}

void readTiles(TileSet& tiles, const QJsonObject& object)
{
    const QJsonArray offsets = readArray(object, "offsets");
    for (int i = 0; i < tiles.count() && i < offsets.size(); ++i)
        tiles.setTileOffset(i, offsets.at(i).toInt(0));
    // Read second, so that it wins where both are present.
    const QJsonArray records = readArray(object, "tiles");
    for (int i = 0; i < tiles.count() && i < records.size(); ++i) {
        const QJsonObject record = records.at(i).toObject();
        Tile* tile = tiles.tile(i);
        tile->setOffset(readInt(record, "offset", 0));
        tile->setAttributes(readInt(record, "attributes", 0));
        tile->setValue(readInt(record, "value", 0));
    }
}

QRect placedRect(const QJsonObject& object)
{
    return QRect(readCount(object, "x", 0), readCount(object, "y", 0), readCount(object, "width", 0),
                 readCount(object, "height", 0));
}

// The cells that the placed blocks cover on a map of `size`, counted once per block.
qint64 placedCells(const QJsonArray& array, const QSize& size)
{
    qint64 cells = 0;
    for (const QJsonValue& value : array) {
        const QRect rect = placedRect(value.toObject()).intersected(QRect(QPoint(0, 0), size));
        cells += qint64(rect.width()) * rect.height();
    }
    return cells;
}

void readPlacedBlocks(Map& map, const QJsonArray& array)
{
    for (const QJsonValue& value : array) {
        const QJsonObject object = value.toObject();
        if (object.isEmpty())
            continue;
        const auto block = map.blocks()->add(placedRect(object), readId(object, "id", QUuid()));
        block->setInitialDelay(readInt(object, "initialDelay", 0));
        block->setRepeatDelay(readInt(object, "repeatDelay", 0));
        block->setStartFrame(readInt(object, "startFrame", 0));
    }
}

Map::PlacedSprite placedSpriteOf(const QJsonObject& object)
{
    Map::PlacedSprite sprite;
    sprite.bank = readId(object, "bank", QUuid());
    sprite.animation = readId(object, "animation", QUuid());
    sprite.sprite = readInt(object, "sprite", -1);
    sprite.x = readBounded(object, "x", 0, -MaxPixel, MaxPixel);
    sprite.y = readBounded(object, "y", 0, -MaxPixel, MaxPixel);
    sprite.mirror = readBool(object, "mirror", false);
    sprite.flip = readBool(object, "flip", false);
    sprite.rotate = readBool(object, "rotate", false);
    sprite.startFrame = readInt(object, "startFrame", 0);
    sprite.initialDelay = readInt(object, "initialDelay", 0);
    sprite.repeatDelay = readInt(object, "repeatDelay", 0);
    sprite.paletteOffset = readInt(object, "paletteOffset", 0);
    sprite.name = readString(object, "name");
    return sprite;
}

// The load steps in their order; each returns false with mError set to
// end the load.
class Reader
{
public:
    Reader(Project& project, const EntryReader& entries)
        : mProject(project)
        , mEntries(entries)
    {
    }

    bool read();
    QString error() const { return mError; }

private:
    bool fail(const QString& message)
    {
        mError = message;
        return false;
    }
    QByteArray entry(const QString& name) const { return mEntries ? mEntries(name) : QByteArray(); }
    bool overBudget() { return fail(QStringLiteral("Invalid project file: %1").arg(mBudget.problem())); }
    // A picture entry, decoded as PNG once its size, read from its header,
    // fits the budget; null when it does not decode (mError set when over budget).
    QImage picture(const QString& name, const QString& what);

    void readHeader(const QJsonObject& root);
    bool readTileSet(const QJsonObject& object);
    bool readMap(const QJsonObject& object);
    bool readSpriteBank(const QJsonObject& object);
    bool readImage(const QJsonObject& object);
    bool readBlocks(const QJsonObject& object);
    bool readScratch();
    void rebuildObjectLayers();

    Project& mProject;
    const EntryReader& mEntries;
    QString mError;
    ProjectBudget mBudget;
};

QImage Reader::picture(const QString& name, const QString& what)
{
    QBuffer buffer;
    buffer.setData(entry(name));
    if (buffer.data().isEmpty())
        return {};
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "png");
    const QSize size = reader.size();
    if (!size.isValid())
        return {};
    if (!mBudget.charge(ProjectBudget::pictureCost(size) * 4, what)) {
        overBudget();
        return {};
    }
    reader.setAllocationLimit(0); // the budget has bounded it
    QImage image;
    reader.read(&image);
    return image;
}

bool Reader::read()
{
    const QByteArray document = entry(ProjectEntry::document());
    if (document.isEmpty())
        return fail(QStringLiteral("Invalid project file"));
    // A garbled document must not open as an empty project: saved, it would
    // replace the user's work.
    QJsonParseError parseError;
    const QJsonDocument json = QJsonDocument::fromJson(document, &parseError);
    if (parseError.error != QJsonParseError::NoError)
        return fail(QStringLiteral("Invalid project file: %1 does not parse (%2 at %3)")
                        .arg(ProjectEntry::document(), parseError.errorString(), lineAndColumn(document, parseError.offset)));
    if (!json.isObject())
        return fail(QStringLiteral("Invalid project file: %1 does not hold an object").arg(ProjectEntry::document()));
    const QJsonObject root = json.object();
    // As a double, so that 2.5 or a number past the range of int is newer too.
    if (root.value(QLatin1String("formatVersion")).toDouble(1) > FormatVersion)
        return fail(QStringLiteral("Project file is from a newer version of Tintorel"));

    readHeader(root);
    for (const QJsonValue& value : readArray(root, "palettes"))
        mProject.addPalette(paletteOf(value.toObject()).release());
    for (const QJsonValue& value : readArray(root, "tilesets"))
        if (!readTileSet(value.toObject()))
            return false;
    for (const QJsonValue& value : readArray(root, "maps"))
        if (!readMap(value.toObject()))
            return false;
    for (const QJsonValue& value : readArray(root, "sprites"))
        if (!readSpriteBank(value.toObject()))
            return false;
    for (const QJsonValue& value : readArray(root, "images"))
        if (!readImage(value.toObject()))
            return false;
    if (!readScratch())
        return false;
    for (const QJsonValue& value : readArray(root, "mapObjects"))
        if (!readBlocks(value.toObject()))
            return false;
    rebuildObjectLayers();
    return true;
}

void Reader::readHeader(const QJsonObject& root)
{
    mProject.setName(readString(root, "name"));
    mProject.setId(readId(root, "id", QUuid()));
    const QJsonObject screen = root.value(QLatin1String("screen_size")).toObject();
    mProject.setScreenSize(QSize(readCount(screen, "width", 320), readCount(screen, "height", 256)));
    const QJsonObject area = root.value(QLatin1String("play_area")).toObject();
    mProject.setPlayArea(QRect(readCount(area, "x", 0), readCount(area, "y", 0), readCount(area, "width", 320),
                               readCount(area, "height", 256)));
    mProject.setScratchPalette(readId(root, "scratchPalette", QUuid()));
    QStringList open;
    for (const QJsonValue& value : readArray(root, "opendocuments"))
        if (value.isString())
            open.append(value.toString());
    mProject.setOpenDocuments(open);
}

bool Reader::readTileSet(const QJsonObject& object)
{
    const int count = readCount(object, "count", 512);
    if (!mBudget.charge(ProjectBudget::recordsCost(count), QStringLiteral("tile set \"%1\"").arg(readString(object, "name"))))
        return overBudget();
    auto tiles = std::make_unique<TileSet>(count);
    tiles->setId(readId(object, "id", freshId()));
    tiles->setName(readString(object, "name"));
    tiles->setHiRes(readBool(object, "hires", false));
    readTiles(*tiles, object);
    // A set of no tiles is written with an empty picture and needs none.
    if (tiles->count() > 0) {
        const QString name = ProjectEntry::tileSet(tiles->id());
        if (entry(name).isEmpty())
            return fail(QStringLiteral("Failed to load tile set tileImage \"%1\" from project file").arg(name));
        const QImage sheet = picture(name, QStringLiteral("tile set \"%1\"").arg(tiles->name()));
        if (!mError.isEmpty())
            return false;
        if (!tiles->setSheet(sheet))
            return fail(QStringLiteral("Error setting tile set anim - %1").arg(tiles->name()));
    }
    const QUuid palette = readId(object, "palette", freshId());
    tiles->setPaletteId(palette);
    tiles->setPalette(mProject.palette(palette));
    mProject.addTileSet(tiles.release());
    return true;
}

bool Reader::readMap(const QJsonObject& object)
{
    const QUuid id = readId(object, "id", freshId());
    const QString name = readString(object, "name");
    const QByteArray blob = entry(ProjectEntry::tileMap(id));
    QSize size = tileMapBlobSize(blob);
    if (size.width() > Map::MaxSide || size.height() > Map::MaxSide)
        return fail(QStringLiteral("Invalid project file: map %1 is %2 × %3 cells; a map can have at most %4 a side")
                        .arg(name)
                        .arg(size.width())
                        .arg(size.height())
                        .arg(Map::MaxSide));
    const QJsonArray blocks = readArray(object, "animations");
    const QJsonArray sprites = readArray(object, "sprites");
    if (!mBudget.charge(ProjectBudget::mapCost(size) + ProjectBudget::recordsCost(blocks.size() + sprites.size()),
                        QStringLiteral("map \"%1\"").arg(name)))
        return overBudget();
    TileMap::Grid cells;
    if (!readTileMapBlob(blob, size, cells))
        return fail(QStringLiteral("Failed to load tile map anim for map %1").arg(name));
    // Placing a block replaces the blocks under it, so blocks never share a
    // cell; more block cells than the map has is a damaged file, and would
    // cost the marking of the object layer the map's area again per block.
    if (placedCells(blocks, size) > qint64(size.width()) * size.height())
        return fail(QStringLiteral("Invalid project file: the blocks placed on map %1 overlap").arg(name));

    // Made at the blob's size, so the object layer has it too; it is marked at the end.
    auto map = std::make_unique<Map>(name, size);
    map->setId(id);
    map->setTileTransparencyIndex(readInt(object, "tile_transparency", -1));
    map->setGridVisible(readBool(object, "grid_visible", true));
    map->setBackgroundTileIndex(readInt(object, "backgroundTileIndex", -1));
    readPlacedBlocks(*map, blocks);
    map->setSpriteLayerVisible(readBool(object, "spriteLayerVisible", true));
    for (const QJsonValue& value : sprites)
        map->addSprite(placedSpriteOf(value.toObject()));
    map->tileMap()->setGrid(cells);
    map->setTileLayerVisible(readBool(object, "tileLayerVisible", true));
    map->setObjectLayerVisible(readBool(object, "objectLayerVisible", false));
    const QUuid tileSet = readId(object, "tileset", QUuid());
    if (const QPointer<TileSet> tiles = mProject.tileSet(tileSet))
        map->setTileSet(tiles);
    else
        map->setTileSetId(tileSet); // kept, so that a save writes back what was read
    mProject.addMap(map.release());
    return true;
}

bool Reader::readSpriteBank(const QJsonObject& object)
{
    const int depth = readBounded(object, "depth", 1, 0, 1);
    auto bank = std::make_unique<SpriteBank>(Tintorel::Sprite(depth));
    bank->setId(readId(object, "id", freshId()));
    bank->setName(readString(object, "name"));
    bank->setTransparency(readInt(object, "transparency", -1));
    const QImage sheet = picture(ProjectEntry::spriteBank(bank->id()), QStringLiteral("sprite bank \"%1\"").arg(bank->name()));
    if (!mError.isEmpty())
        return false;
    if (sheet.isNull())
        return fail(QStringLiteral("Project has a missing sprite anim"));
    bank->setBankImage(sheet);

    // After the picture, which sets the number of sprites the offsets fit.
    const QJsonArray offsets = readArray(object, "offsets");
    if (!offsets.isEmpty()) {
        QByteArray bytes;
        for (const QJsonValue& value : offsets)
            bytes.append(char(uchar(value.toInt(0) & 0xFF)));
        bank->setOffsets(bytes);
    }
    if (!readSpriteAnimations(*bank, readArray(object, "animations"), mBudget))
        return overBudget();
    const QUuid palette = readId(object, "palette", QUuid());
    bank->setPaletteId(palette);
    bank->setPalette(mProject.palette(palette));
    mProject.addSpriteBank(bank.release());
    return true;
}

bool Reader::readImage(const QJsonObject& object)
{
    const int mode = readBounded(object, "type", 0, 0, int(Tintorel::ImageMode::LoRes_128x96));
    auto image = std::make_unique<Image>(Tintorel::ImageMode(mode));
    image->setId(readId(object, "id", QUuid()));
    image->setName(readString(object, "name"));
    const QImage pixels = picture(ProjectEntry::image(image->id()), QStringLiteral("image \"%1\"").arg(image->name()));
    if (!mError.isEmpty())
        return false;
    if (pixels.isNull())
        return fail(QStringLiteral("Failed to load tile image %1").arg(image->name()));
    image->setImage(pixels);
    image->setPalette(mProject.palette(readId(object, "palette", QUuid())));
    mProject.addImage(image.release());
    return true;
}

bool Reader::readScratch()
{
    const QList<QPointer<Palette>> palettes = mProject.palettes();
    if (!mProject.palette(mProject.scratchPalette()) && !palettes.isEmpty() && palettes.first())
        mProject.setScratchPalette(palettes.first()->id());
    const QImage scratch = picture(ProjectEntry::scratch(), QStringLiteral("the scratch image"));
    if (!scratch.isNull())
        mProject.setScratchImage(scratch);
    return mError.isEmpty();
}

bool Reader::readBlocks(const QJsonObject& object)
{
    auto blocks = std::make_unique<MapObjects>();
    blocks->setId(readId(object, "id", QUuid()));
    blocks->setName(readString(object, "name"));
    const QUuid tileSet = readId(object, "tiles", QUuid());
    blocks->setTileSetId(tileSet);
    blocks->setTileSet(mProject.tileSet(tileSet));
    if (!readBlockAnimations(*blocks, readArray(object, "animations"), mBudget))
        return overBudget();
    mProject.addBlocks(blocks.release());
    return true;
}

void Reader::rebuildObjectLayers()
{
    const QList<QPointer<MapObjects>> sets = mProject.blockLists();
    const auto find = [&sets](const QUuid& id) -> const TileAnimation* {
        for (const QPointer<MapObjects>& blocks : sets)
            if (blocks)
                if (const QSharedPointer<TileAnimation> animation = blocks->tileAnimation(id))
                    return animation.data();
        return nullptr;
    };
    for (const QPointer<Map>& map : mProject.maps())
        if (map)
            map->rebuildObjectLayer(find);
}

} // namespace

bool readProjectJson(Project& project, const std::function<QByteArray(const QString&)>& entryReader,
                     QString& errorOut)
{
    Reader reader(project, entryReader);
    if (reader.read())
        return true;
    errorOut = reader.error();
    return false;
}
