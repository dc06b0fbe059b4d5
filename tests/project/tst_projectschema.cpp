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

// True when the entries load without a message.
bool loads(Project& project, const Entries& entries)
{
    QString error;
    return load(project, entries, error) && error.isEmpty();
}

// Hand-written documents name their assets with these, as %1, %2 and %3.
const QUuid A = QUuid::fromString(u"{00000000-0000-0000-0000-00000000000a}");
const QUuid B = QUuid::fromString(u"{00000000-0000-0000-0000-00000000000b}");
const QUuid C = QUuid::fromString(u"{00000000-0000-0000-0000-00000000000c}");

Entries withDocument(QString json, Entries entries = {})
{
    json.replace("%1", A.toString()).replace("%2", B.toString()).replace("%3", C.toString());
    entries.insert(ProjectEntry::document(), json.toUtf8());
    return entries;
}

QByteArray blankPng(int width, int height)
{
    QImage image(width, height, QImage::Format_Indexed8);
    image.setColorCount(256);
    image.fill(0);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return buffer.data();
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

    const auto door = project.createBlockList("Props", tiles->id())->createTileAnimation("Door");
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
    project.setOpenDocuments({ map->id().toString() });
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
    void document_data();
    void document();
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
    QVERIFY(loads(loaded, mEntries));
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
    const Entries first = collectEntries(full ? mProject : fresh, true);
    Project loaded;
    QVERIFY(loads(loaded, first));
    Entries again = collectEntries(loaded, true);
    // Sprite animation frames are the one thing made anew on each load.
    if (full) {
        const QUuid walk = mProject.spriteBanks().first()->animations().keys().first();
        const QUuid before = mProject.spriteBanks().first()->animation(walk)->frame(0)->id();
        const QUuid after = loaded.spriteBanks().first()->animation(walk)->frame(0)->id();
        again[ProjectEntry::document()].replace(after.toString().toLatin1(), before.toString().toLatin1());
    }
    QCOMPARE(again.keys(), first.keys());
    for (auto it = first.cbegin(); it != first.cend(); ++it)
        QVERIFY2(again.value(it.key()) == it.value(), qPrintable(it.key()));
}

void TestProjectSchema::entriesAreNamedAndOrdered()
{
    const QStringList expected {
        "images/" + mProject.images().first()->id().toString() + ".png",
        "project.json",
        "scratch.png",
        "sprite/" + mProject.spriteBanks().first()->id().toString() + ".png",
        "tilemap/" + mProject.maps().first()->id().toString(),
        "tileset/" + mProject.tileSets().first()->id().toString() + ".png",
    };
    QCOMPARE(mEntries.keys(), expected);
    const auto withTabs = QJsonDocument::fromJson(writeProjectJson(mProject, true)).object();
    const auto withoutTabs = QJsonDocument::fromJson(writeProjectJson(mProject, false)).object();
    QCOMPARE(withTabs.value("opendocuments").toArray().size(), 1);
    QVERIFY(!withoutTabs.contains("opendocuments"));
    QCOMPARE(withTabs.value("formatVersion").toInt(), 2);
}

void TestProjectSchema::document_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("name");
    const auto old = [](const QJsonValue& version) {
        QJsonObject root { { "name", "Old" }, { "palettes", QJsonArray { QJsonObject() } } };
        if (!version.isUndefined())
            root.insert("formatVersion", version);
        return QJsonDocument(root).toJson();
    };
    const QString newer = "Project file is from a newer version of Tintorel";
    QTest::newRow("no version loads as 1") << old(QJsonValue::Undefined) << QString() << "Old";
    QTest::newRow("version 2") << old(2) << QString() << "Old";
    QTest::newRow("version 3 is refused") << old(3) << newer << "untitled";
    QTest::newRow("a version past the range of int is refused") << old(1e12) << newer << "untitled";
    QTest::newRow("a garbled document is refused")
        << QByteArray("{ \"name\": \"x\",\n  \"palettes\": [ {")
        << "Invalid project file: project.json does not parse (unterminated object at line 2, column 18)"
        << "untitled";
    QTest::newRow("a document that is not an object is refused")
        << QByteArray("[ 1, 2 ]") << "Invalid project file: project.json does not hold an object" << "untitled";
}

void TestProjectSchema::document()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, error);
    QFETCH(QString, name);
    Project project;
    QString message;
    QCOMPARE(load(project, { { ProjectEntry::document(), document } }, message), error.isEmpty());
    QCOMPARE(message, error);
    QCOMPARE(project.name(), name);
    QCOMPARE(project.palettes().size(), name == "Old" ? 1 : 0);
    QCOMPARE(project.id().isNull(), error.isEmpty()); // a refused file leaves the project as made
    QCOMPARE(project.screenSize(), QSize(320, 256));
}

void TestProjectSchema::failures_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QByteArray>("bytes"); // empty: the entry is missing
    QTest::addColumn<QString>("error");
    const QString tileSet = ProjectEntry::tileSet(mProject.tileSets().first()->id());
    const QString tileMap = ProjectEntry::tileMap(mProject.maps().first()->id());
    const QString noMap = "Failed to load tile map anim for map Level 1";
    QTest::newRow("no document") << "project.json" << QByteArray() << "Invalid project file";
    QTest::newRow("no tile set picture")
        << tileSet << QByteArray()
        << QString("Failed to load tile set tileImage \"%1\" from project file").arg(tileSet);
    QTest::newRow("tile set picture of another size")
        << tileSet << blankPng(8, 8) << "Error setting tile set anim - Ground";
    QTest::newRow("no tile map") << tileMap << QByteArray() << noMap;
    QTest::newRow("tile map smaller than its size") << tileMap << blob(3, 5, 14) << noMap;
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
    QStringList colours;
    for (int i = 0; i < count; ++i)
        colours << QString::number(i + 1);
    Project project;
    QVERIFY(loads(project, withDocument(R"({ "palettes": [ { "colours": [ )" + colours.join(',') + " ] } ] }")));
    const auto palette = project.palettes().first();
    QVERIFY(!palette->id().isNull());
    QCOMPARE(palette->transparencyIndex(), -1);
    for (int i = 0; i < Palette::Size; ++i)
        QCOMPARE(palette->entry(i), ushort(i < count ? i + 1 : 0));
}

void TestProjectSchema::tilesOverrideOffsets()
{
    const QString json = R"({ "tilesets": [ { "id": "%1", "count": 4, "offsets": [ 1, 2, 3, 4 ],
                                               "tiles": [ { "offset": 9, "value": 5 } ] } ] })";
    Project project;
    QVERIFY(loads(project, withDocument(json, { { ProjectEntry::tileSet(A), blankPng(8, 32) } })));
    const auto loaded = project.tileSet(A);
    QCOMPARE(loaded->tileOffset(0), 9);
    QCOMPARE(loaded->tile(0)->value(), 5);
    QCOMPARE(loaded->tileOffset(3), 4);
    QVERIFY(!loaded->paletteId().isNull()); // a fresh id, which finds nothing
    QVERIFY(!loaded->palette());
}

void TestProjectSchema::unknownTileSetOnAMap()
{
    Project project;
    QVERIFY(loads(project, withDocument(R"({ "maps": [ { "id": "%1", "tileset": "%2" } ] })",
                                        { { ProjectEntry::tileMap(A), blob(1, 2, 2) } })));
    QVERIFY(!project.map(A)->tileSet());
    QCOMPARE(project.map(A)->tileSetId(), B); // kept for the next save
    QCOMPARE(project.map(A)->size(), QSize(2, 1));
    QVERIFY(project.map(A)->gridVisible());
}

void TestProjectSchema::spriteBankOffsets_data()
{
    QTest::addColumn<QString>("offsets");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("no key keeps the constructed offsets") << "" << QByteArray(2, '\0');
    QTest::newRow("an empty array likewise") << R"(, "offsets": [])" << QByteArray(2, '\0');
    QTest::newRow("each cut to a byte") << R"(, "offsets": [ -1, 258 ])" << QByteArray("\xFF\x02", 2);
}

void TestProjectSchema::spriteBankOffsets()
{
    QFETCH(QString, offsets);
    QFETCH(QByteArray, expected);
    Project project;
    QVERIFY(loads(project, withDocument(R"({ "sprites": [ { "id": "%1" )" + offsets + " } ] }",
                                        { { ProjectEntry::spriteBank(A), blankPng(16, 32) } })));
    const auto loaded = project.spriteBank(A);
    QCOMPARE(loaded->offsets(), expected);
    QCOMPARE(loaded->depth(), Tintorel::Sprite::EightBit);
    QCOMPARE(loaded->transparency(), -1);
}

void TestProjectSchema::twoMapsShowTheSameBlock()
{
    // Block %3 at x = 1 on maps %1 and %2; the empty placement on %1 finds no block.
    const QString json = R"({
        "maps": [ { "id": "%1", "animations": [ { "id": "%3", "x": 1, "width": 2, "height": 1 }, {} ] },
                  { "id": "%2", "animations": [ { "id": "%3", "x": 1, "width": 2, "height": 1 } ] } ],
        "mapObjects": [ { "animations": [ { "id": "%3", "width": 2, "height": 1, "frames": [
            { "tileData": [ { "index": 5 }, { "index": 6, "flip": true } ] } ] } ] } ] })";
    Project project;
    QVERIFY(loads(project, withDocument(json, { { ProjectEntry::tileMap(A), blob(1, 4, 4) },
                                                { ProjectEntry::tileMap(B), blob(1, 4, 4) } })));
    for (const QUuid& map : { A, B }) {
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
    const QString json = R"({ "name": 7, "play_area": { "x": 2147483647, "width": 2147483647 },
        "tilesets": [ { "id": "%1", "count": 70000, "hires": "yes" } ],
        "sprites": [ { "id": "%2", "depth": 5, "offsets": "none", "animations": [
            { "width": 70000, "frames": [ {} ] }, { "width": 60000, "height": 60000 } ] } ],
        "mapObjects": [ { "animations": [ { "width": 3, "height": -5, "frames": [ {} ] } ] } ],
        "maps": [ { "id": "%3", "grid_visible": "no",
                    "animations": [ { "x": 2147483647, "width": 2147483647 } ] } ] })";
    Project project;
    QVERIFY(loads(project, withDocument(json, { { ProjectEntry::tileSet(A), blankPng(8, 8 * 512) },
                                                { ProjectEntry::spriteBank(B), blankPng(16, 16) },
                                                { ProjectEntry::tileMap(C), blob(2, 2, 4) } })));
    QCOMPARE(project.name(), QString());
    QCOMPARE(project.playArea(), QRect(0, 0, 320, 256));
    QCOMPARE(project.tileSet(A)->count(), 512);
    QVERIFY(!project.tileSet(A)->hiRes());
    QCOMPARE(project.spriteBank(B)->depth(), Tintorel::Sprite::EightBit);
    QCOMPARE(project.spriteBank(B)->animations().size(), 2);
    for (const auto& animation : project.spriteBank(B)->animations())
        QCOMPARE(animation->size(), QSize(1, 1));
    QCOMPARE(project.blockLists().first()->animations().values().first()->size(), QSize(3, 0));
    QVERIFY(project.map(C)->gridVisible());
    QCOMPARE(project.map(C)->blocks()->list().first()->rect(), QRect(0, 0, 0, 0));
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
