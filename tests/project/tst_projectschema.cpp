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
#include "project/projectschema.h"
#include "project/tilemapblob.h"

#include <QBuffer>
#include <QDataStream>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

using Entries = QMap<QString, QByteArray>;

namespace {

bool load(Project& project, const Entries& entries, QString& error)
{
    return readProjectJson(project, [&entries](const QString& name) { return entries.value(name); }, error);
}

QByteArray blankPng(int width, int height)
{
    QImage image(width, height, QImage::Format_Indexed8);
    image.setColorCount(256);
    image.fill(0);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return bytes;
}

QByteArray blob(qint32 height, qint32 width, int cells)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << height << width;
    for (int i = 0; i < cells; ++i)
        stream << qint32(i) << qint8(1) << qint32(0) << qint8(0) << qint8(0) << qint8(0);
    stream << QUuid();
    return bytes;
}

Entries documentOnly(const QJsonObject& root)
{
    return { { ProjectEntry::document(), QJsonDocument(root).toJson() } };
}

QString id(const QUuid& uuid)
{
    return uuid.toString();
}

// A project with one of every asset, each with something to lose.
void buildProject(Project& project)
{
    project.setName("Forest");
    project.setScreenSize(QSize(256, 192));
    project.setPlayArea(QRect(8, 16, 240, 160));
    const auto palette = project.createPalette(CreateAction::Standard, "Greens");
    palette->setTransparencyIndex(7);
    palette->setEntry(3, 0x1234);
    project.setScratchPalette(palette->id());

    const auto tiles = project.createTileSet("Ground", palette->id(), 4, true);
    tiles->setTileOffset(1, 3);
    tiles->tile(2)->setAttributes(Tile::TA_SOLID);
    tiles->tile(2)->setValue(42);
    QImage picture = Tile::blankImage(palette->rgbTable());
    picture.setPixel(1, 1, 5);
    tiles->setTileImage(3, picture);

    const auto blocks = project.createBlockList("Props", tiles->id());
    const auto door = blocks->createTileAnimation("Door");
    door->setSize(QSize(2, 1));
    door->addFrame();
    door->addFrame();
    door->setIndex(0, 1, 2);
    door->setMapObjectType(MapObjectType::HorizontalPlatform);

    const auto map = project.createMap("Level 1", tiles->id(), QSize(5, 3));
    map->setTiles(QRect(0, 2, 5, 1), 1, false, true, false, true);
    map->placeAnimation(door.data(), QPoint(1, 0));
    map->blocks()->list().first()->setRepeatDelay(9);
    map->addSprite({ QUuid::createUuid(), QUuid(), 1, 12, 0, true, false, false, 0, 0, 0, 2, "Hero" });
    map->setGridVisible(false);
    map->setObjectLayerVisible(true);

    const auto bank = project.createSpriteBank(Tintorel::Sprite::FourBit, "Hero", palette->id());
    bank->addSprite();
    bank->setOffset(1, 0xFF);
    bank->setTransparency(3);
    SpriteAnim* walk = bank->createAnimation("Walk");
    walk->setSize(QSize(2, 1));
    walk->addFrame();
    walk->setIndex(0, 1, 1);

    const auto image = project.createImage(Tintorel::ImageMode::LoRes_128x96, "Title", palette->id());
    QImage pixels = image->image();
    pixels.setPixel(2, 2, 9);
    image->setImage(pixels);
    QImage scratch = project.scratchImage();
    scratch.setColorTable(palette->rgbTable());
    scratch.setPixel(0, 0, 4);
    project.setScratchImage(scratch);
    project.setOpenDocuments({ id(map->id()) });
}

} // namespace

class TestProjectSchema : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void roundTripKeepsIdsAndContent();
    void secondWriteGivesTheSameEntries_data();
    void secondWriteGivesTheSameEntries();
    void entriesAreNamedAndOrdered();
    void formatVersion_data();
    void formatVersion();
    void garbledDocumentLoadsEmpty();
    void failures_data();
    void failures();
    void paletteColours_data();
    void paletteColours();
    void tilesOverrideOffsets();
    void unknownTileSetOnAMap();
    void spriteBankOffsets_data();
    void spriteBankOffsets();
    void twoMapsShowTheSameBlock();
    void badValuesReadAsDefaults();
    void tileMapBlobSize_data();
    void tileMapBlobSize();

private:
    Project mProject;
    Entries mEntries;
};

void TestProjectSchema::initTestCase()
{
    buildProject(mProject);
    mEntries = collectEntries(mProject, true);
}

// The ids and content that the file shows are checked by writing again;
// this checks what it does not show: references resolved, the rebuilt
// object layer, and which frame ids are kept.
void TestProjectSchema::roundTripKeepsIdsAndContent()
{
    Project loaded;
    QString error;
    QVERIFY(load(loaded, mEntries, error));
    QVERIFY(error.isEmpty());
    QCOMPARE(loaded.id(), mProject.id());
    const auto palette = loaded.palette(mProject.palettes().first()->id());
    const auto tiles = loaded.tileSet(mProject.tileSets().first()->id());
    QVERIFY(palette && tiles);
    QCOMPARE(tiles->palette(), palette);
    QCOMPARE(loaded.images().first()->palette(), palette);
    QCOMPARE(loaded.spriteBanks().first()->palette(), palette);
    QCOMPARE(loaded.blockLists().first()->tileSet(), tiles);
    QCOMPARE(tiles->tile(3)->image().pixelIndex(1, 1), 5);

    const auto map = mProject.maps().first();
    QCOMPARE(loaded.map(map->id())->tileSet(), tiles);
    QVERIFY(loaded.map(map->id())->state() == map->state());

    const auto door = mProject.blockLists().first()->animations().values().first();
    const auto readDoor = loaded.blockLists().first()->tileAnimation(door->id());
    QVERIFY(readDoor && readDoor->state() == door->state());

    const auto walk = mProject.spriteBanks().first()->animations().values().first();
    Animation::State expected = walk->state();
    Animation::State actual = loaded.spriteBanks().first()->animation(walk->id())->state();
    QVERIFY(actual.frames.first().id != expected.frames.first().id);
    actual.frames.first().id = expected.frames.first().id;
    QVERIFY(actual == expected);
}

void TestProjectSchema::secondWriteGivesTheSameEntries_data()
{
    QTest::addColumn<bool>("full");
    QTest::newRow("every kind of asset") << true;
    QTest::newRow("new project") << false;
}

void TestProjectSchema::secondWriteGivesTheSameEntries()
{
    QFETCH(bool, full);
    Project fresh;
    const Project& original = full ? mProject : fresh;
    const Entries first = collectEntries(original, true);
    Project loaded;
    QString error;
    QVERIFY(load(loaded, first, error));
    Entries again = collectEntries(loaded, true);
    // Sprite animation frames are the one thing made anew on each load.
    if (full) {
        const QUuid walk = mProject.spriteBanks().first()->animations().keys().first();
        const QUuid before = mProject.spriteBanks().first()->animation(walk)->frame(0)->id();
        const QUuid after = loaded.spriteBanks().first()->animation(walk)->frame(0)->id();
        again[ProjectEntry::document()].replace(id(after).toLatin1(), id(before).toLatin1());
    }
    QCOMPARE(again.keys(), first.keys());
    for (auto it = first.cbegin(); it != first.cend(); ++it)
        QVERIFY2(again.value(it.key()) == it.value(), qPrintable(it.key()));
}

void TestProjectSchema::entriesAreNamedAndOrdered()
{
    const QStringList expected {
        "images/" + id(mProject.images().first()->id()) + ".png",
        "project.json",
        "scratch.png",
        "sprite/" + id(mProject.spriteBanks().first()->id()) + ".png",
        "tilemap/" + id(mProject.maps().first()->id()),
        "tileset/" + id(mProject.tileSets().first()->id()) + ".png",
    };
    QCOMPARE(mEntries.keys(), expected);
    const auto withTabs = QJsonDocument::fromJson(writeProjectJson(mProject, true)).object();
    const auto withoutTabs = QJsonDocument::fromJson(writeProjectJson(mProject, false)).object();
    QCOMPARE(withTabs.value("opendocuments").toArray().size(), 1);
    QVERIFY(!withoutTabs.contains("opendocuments"));
    QCOMPARE(withTabs.value("formatVersion").toInt(), 2);
}

void TestProjectSchema::formatVersion_data()
{
    QTest::addColumn<QJsonValue>("version");
    QTest::addColumn<QString>("error");
    const QString newer = "Project file is from a newer version of Tintorel";
    QTest::newRow("missing loads as 1") << QJsonValue(QJsonValue::Undefined) << QString();
    QTest::newRow("2") << QJsonValue(2) << QString();
    QTest::newRow("3 is refused") << QJsonValue(3) << newer;
    QTest::newRow("past the range of int is refused") << QJsonValue(1e12) << newer;
}

void TestProjectSchema::formatVersion()
{
    QFETCH(QJsonValue, version);
    QFETCH(QString, error);
    QJsonObject root { { "name", "Old" }, { "palettes", QJsonArray { QJsonObject() } } };
    if (!version.isUndefined())
        root.insert("formatVersion", version);
    Project project;
    QString message;
    QCOMPARE(load(project, documentOnly(root), message), error.isEmpty());
    QCOMPARE(message, error);
    QCOMPARE(project.palettes().size(), error.isEmpty() ? 1 : 0);
    QCOMPARE(project.name(), error.isEmpty() ? QStringLiteral("Old") : QStringLiteral("untitled"));
}

void TestProjectSchema::garbledDocumentLoadsEmpty()
{
    Project project;
    QString error;
    QVERIFY(load(project, { { "project.json", "{ \"palettes\": [ {" } }, error));
    QVERIFY(project.palettes().isEmpty());
    QVERIFY(project.id().isNull());
    QCOMPARE(project.screenSize(), QSize(320, 256));
}

void TestProjectSchema::failures_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QByteArray>("bytes"); // empty: the entry is missing
    QTest::addColumn<QString>("error");
    const QString tileSet = ProjectEntry::tileSet(mProject.tileSets().first()->id());
    const QString tileMap = ProjectEntry::tileMap(mProject.maps().first()->id());
    QTest::newRow("no document") << "project.json" << QByteArray() << "Invalid project file";
    const QString noPicture = QString("Failed to load tile set tileImage \"%1\" from project file").arg(tileSet);
    QTest::newRow("no tile set picture") << tileSet << QByteArray() << noPicture;
    QTest::newRow("tile set picture of another size")
        << tileSet << blankPng(8, 8) << "Error setting tile set anim - Ground";
    QTest::newRow("no tile map") << tileMap << QByteArray() << "Failed to load tile map anim for map Level 1";
    QTest::newRow("tile map smaller than its size")
        << tileMap << blob(3, 5, 14) << "Failed to load tile map anim for map Level 1";
    QTest::newRow("no sprite sheet") << ProjectEntry::spriteBank(mProject.spriteBanks().first()->id())
                                     << QByteArray() << "Project has a missing sprite anim";
    QTest::newRow("no image") << ProjectEntry::image(mProject.images().first()->id()) << QByteArray()
                              << "Failed to load tile image Title";
    QTest::newRow("no scratch picture is no failure") << "scratch.png" << QByteArray() << QString();
}

void TestProjectSchema::failures()
{
    QFETCH(QString, entry);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    Entries entries = mEntries;
    entries.insert(entry, bytes);
    Project project;
    QString message;
    QCOMPARE(load(project, entries, message), error.isEmpty());
    QCOMPARE(message, error);
    if (error.isEmpty())
        QCOMPARE(project.scratchImage().pixelIndex(0, 0), 0);
}

void TestProjectSchema::paletteColours_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("300 colours read 256") << 300;
    QTest::newRow("10 colours leave 246 as made") << 10;
}

void TestProjectSchema::paletteColours()
{
    QFETCH(int, count);
    QJsonArray colours;
    for (int i = 0; i < count; ++i)
        colours.append(i + 1);
    const QJsonObject root { { "palettes", QJsonArray { QJsonObject { { "colours", colours } } } } };
    Project project;
    QString error;
    QVERIFY(load(project, documentOnly(root), error));
    const auto palette = project.palettes().first();
    QVERIFY(!palette->id().isNull());
    QCOMPARE(palette->transparencyIndex(), -1);
    for (int i = 0; i < Palette::Size; ++i)
        QCOMPARE(palette->entry(i), ushort(i < count ? i + 1 : 0));
}

void TestProjectSchema::tilesOverrideOffsets()
{
    const QUuid set = QUuid::createUuid();
    const QJsonObject tiles { { "id", id(set) },
                              { "count", 4 },
                              { "offsets", QJsonArray { 1, 2, 3, 4 } },
                              { "tiles", QJsonArray { QJsonObject { { "offset", 9 }, { "value", 5 } } } } };
    Entries entries = documentOnly({ { "tilesets", QJsonArray { tiles } } });
    entries.insert(ProjectEntry::tileSet(set), blankPng(8, 32));
    Project project;
    QString error;
    QVERIFY(load(project, entries, error));
    const auto loaded = project.tileSet(set);
    QCOMPARE(loaded->tileOffset(0), 9);
    QCOMPARE(loaded->tile(0)->value(), 5);
    QCOMPARE(loaded->tileOffset(3), 4);
    QVERIFY(!loaded->paletteId().isNull()); // a fresh id, which finds nothing
    QVERIFY(!loaded->palette());
}

void TestProjectSchema::unknownTileSetOnAMap()
{
    const QUuid map = QUuid::createUuid();
    const QJsonObject object { { "id", id(map) }, { "tileset", id(QUuid::createUuid()) } };
    Entries entries = documentOnly({ { "maps", QJsonArray { object } } });
    entries.insert(ProjectEntry::tileMap(map), blob(1, 2, 2));
    Project project;
    QString error;
    QVERIFY(load(project, entries, error));
    QVERIFY(error.isEmpty());
    QVERIFY(!project.map(map)->tileSet());
    QCOMPARE(project.map(map)->size(), QSize(2, 1));
    QVERIFY(project.map(map)->gridVisible());
}

void TestProjectSchema::spriteBankOffsets_data()
{
    QTest::addColumn<QJsonValue>("offsets");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("no key keeps the constructed offsets") << QJsonValue(QJsonValue::Undefined) << QByteArray(2, '\0');
    QTest::newRow("an empty array likewise") << QJsonValue(QJsonArray()) << QByteArray(2, '\0');
    QTest::newRow("each cut to a byte") << QJsonValue(QJsonArray { -1, 258 }) << QByteArray("\xFF\x02", 2);
}

void TestProjectSchema::spriteBankOffsets()
{
    QFETCH(QJsonValue, offsets);
    QFETCH(QByteArray, expected);
    const QUuid bank = QUuid::createUuid();
    QJsonObject object { { "id", id(bank) } };
    if (!offsets.isUndefined())
        object.insert("offsets", offsets);
    Entries entries = documentOnly({ { "sprites", QJsonArray { object } } });
    entries.insert(ProjectEntry::spriteBank(bank), blankPng(16, 32));
    Project project;
    QString error;
    QVERIFY(load(project, entries, error));
    const auto loaded = project.spriteBank(bank);
    QCOMPARE(loaded->offsets(), expected);
    QCOMPARE(loaded->depth(), Tintorel::Sprite::EightBit);
    QCOMPARE(loaded->transparency(), -1);
}

void TestProjectSchema::twoMapsShowTheSameBlock()
{
    const QUuid block = QUuid::createUuid();
    const QJsonObject placed { { "id", id(block) }, { "x", 1 }, { "width", 2 }, { "height", 1 } };
    const QJsonArray cells { QJsonObject { { "index", 5 } }, QJsonObject { { "index", 6 }, { "flip", true } } };
    const QJsonObject animation { { "id", id(block) },
                                  { "width", 2 },
                                  { "height", 1 },
                                  { "frames", QJsonArray { QJsonObject { { "tileData", cells } } } } };
    const QUuid first = QUuid::createUuid();
    const QUuid second = QUuid::createUuid();
    const QJsonObject root {
        { "maps",
          QJsonArray { QJsonObject { { "id", id(first) }, { "animations", QJsonArray { placed, QJsonObject() } } },
                       QJsonObject { { "id", id(second) }, { "animations", QJsonArray { placed } } } } },
        { "mapObjects", QJsonArray { QJsonObject { { "animations", QJsonArray { animation } } } } },
    };
    Entries entries = documentOnly(root);
    entries.insert(ProjectEntry::tileMap(first), blob(1, 4, 4));
    entries.insert(ProjectEntry::tileMap(second), blob(1, 4, 4));
    Project project;
    QString error;
    QVERIFY(load(project, entries, error));
    for (const QUuid& map : { first, second }) {
        const auto objects = project.map(map)->objectMap();
        QCOMPARE(project.map(map)->blocks()->count(), 1);
        QCOMPARE(objects->cell(QPoint(0, 0)), TileMap::TileData());
        QCOMPARE(objects->cell(QPoint(1, 0)), (TileMap::TileData { 5, false, false, false, 0, true }));
        QCOMPARE(objects->cell(QPoint(2, 0)), (TileMap::TileData { 6, false, true, false, 0, true }));
        QCOMPARE(project.map(map)->tile(QPoint(1, 0)).index, 1); // the tile layer is the blob's
    }
}

void TestProjectSchema::badValuesReadAsDefaults()
{
    const QUuid set = QUuid::createUuid();
    const QUuid bank = QUuid::createUuid();
    const QUuid map = QUuid::createUuid();
    const int huge = 2147483647;
    const QJsonArray oneFrame { QJsonObject() };
    const QJsonArray spriteAnimations { QJsonObject { { "width", 70000 }, { "frames", oneFrame } },
                                       QJsonObject { { "width", 60000 }, { "height", 60000 } } };
    const QJsonArray blockAnimations { QJsonObject { { "width", 3 }, { "height", -5 }, { "frames", oneFrame } } };
    const QJsonObject placed { { "x", huge }, { "width", huge } };
    const QJsonObject root {
        { "name", 7 },
        { "play_area", QJsonObject { { "x", huge }, { "width", huge } } },
        { "tilesets", QJsonArray { QJsonObject { { "id", id(set) }, { "count", 70000 }, { "hires", "yes" } } } },
        { "sprites",
          QJsonArray { QJsonObject {
              { "id", id(bank) }, { "depth", 5 }, { "offsets", "none" }, { "animations", spriteAnimations } } } },
        { "mapObjects", QJsonArray { QJsonObject { { "animations", blockAnimations } } } },
        { "maps",
          QJsonArray { QJsonObject {
              { "id", id(map) }, { "grid_visible", "no" }, { "animations", QJsonArray { placed } } } } },
    };
    Entries entries = documentOnly(root);
    entries.insert(ProjectEntry::tileSet(set), blankPng(8, 8 * 512));
    entries.insert(ProjectEntry::spriteBank(bank), blankPng(16, 16));
    entries.insert(ProjectEntry::tileMap(map), blob(2, 2, 4));
    Project project;
    QString error;
    QVERIFY(load(project, entries, error));
    QCOMPARE(project.name(), QString());
    QCOMPARE(project.playArea(), QRect(0, 0, 320, 256));
    QCOMPARE(project.tileSet(set)->count(), 512);
    QVERIFY(!project.tileSet(set)->hiRes());
    QCOMPARE(project.spriteBank(bank)->depth(), Tintorel::Sprite::EightBit);
    QCOMPARE(project.spriteBank(bank)->animations().size(), 2);
    for (const auto& animation : project.spriteBank(bank)->animations())
        QCOMPARE(animation->size(), QSize(1, 1));
    QCOMPARE(project.blockLists().first()->animations().values().first()->size(), QSize(3, 0));
    QVERIFY(project.map(map)->gridVisible());
    QCOMPARE(project.map(map)->blocks()->list().first()->rect(), QRect(0, 0, 0, 0));
}

void TestProjectSchema::tileMapBlobSize_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QSize>("size"); // invalid: refused
    QTest::newRow("whole") << blob(2, 3, 6) << QSize(3, 2);
    QTest::newRow("empty map") << blob(0, 0, 0) << QSize(0, 0);
    QTest::newRow("too short for a header") << QByteArray(7, '\0') << QSize(-1, -1);
    QTest::newRow("claims more cells than it holds") << blob(1000, 1000, 1) << QSize(-1, -1);
    QTest::newRow("claims fewer cells than it holds") << blob(1, 1, 2) << QSize(-1, -1);
    QTest::newRow("negative height") << blob(-1, 3, 0) << QSize(-1, -1);
    QTest::newRow("side past 65,536 with no cells") << blob(70000, 0, 0) << QSize(-1, -1);
}

void TestProjectSchema::tileMapBlobSize()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QSize, size);
    QSize read;
    TileMap::Grid cells;
    QCOMPARE(readTileMapBlob(bytes, read, cells), size.isValid());
    if (!size.isValid())
        return;
    QCOMPARE(read, size);
    TileMap tiles(size.width(), size.height());
    tiles.setGrid(cells);
    QCOMPARE(tileMapBlob(tiles), bytes);
}

QTEST_GUILESS_MAIN(TestProjectSchema)
#include "tst_projectschema.moc"
