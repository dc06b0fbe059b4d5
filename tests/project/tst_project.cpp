#include "model/image.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tile.h"
#include "model/tileset.h"
#include "project/deletionrefusal.h"
#include "project/project.h"

#include <QSignalSpy>
#include <QtTest>

class TestProject : public QObject
{
    Q_OBJECT
private slots:
    void tileSetWithoutPaletteMakesOne();
    void addingAnnouncesEachKind_data();
    void addingAnnouncesEachKind();
    void paletteFill_data();
    void paletteFill();
    void clonesCopyContentUnderASuffix();
    void paletteGuard_data();
    void paletteGuard();
    void tileSetGuard();
    void blocksGuardAndUnguardedDeletes();
    void refusalTexts();
    void movingASpriteFollowsOnMaps();
};

void TestProject::tileSetWithoutPaletteMakesOne()
{
    Project project;
    QSignalSpy palettes(&project, &Project::paletteCreated);
    const auto tiles = project.createTileSet("Forest", QUuid(), 512, true);
    QCOMPARE(palettes.count(), 1);
    QCOMPARE(project.palettes().size(), 1);
    const auto palette = project.palettes().first();
    QCOMPARE(palette->name(), QStringLiteral("Forest"));
    QCOMPARE(tiles->palette(), palette);
    QCOMPARE(tiles->paletteId(), palette->id());
    QCOMPARE(tiles->count(), 512);
    QVERIFY(tiles->hiRes());
    QCOMPARE(palette->colour(200), QColor(Qt::black));
    QCOMPARE(project.tileSet(tiles->id()), tiles);
}

void TestProject::addingAnnouncesEachKind_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("message");
    QTest::newRow("palette") << "palette" << "New palette added: P";
    QTest::newRow("map") << "map" << "New map added: P";
    QTest::newRow("block set") << "blocks" << "New block set added: P";
    QTest::newRow("sprite bank") << "sprites" << "New Sprite Bank Added";
    QTest::newRow("image is silent") << "image" << "";
}

void TestProject::addingAnnouncesEachKind()
{
    QFETCH(QString, kind);
    QFETCH(QString, message);
    Project project;
    QSignalSpy messages(&project, qOverload<QString>(&Project::showMessage));
    if (kind == "palette")
        project.createPalette(CreateAction::Blank, "P");
    else if (kind == "map")
        project.createMap("P", QUuid(), QSize(4, 4));
    else if (kind == "blocks")
        project.createBlockList("P", QUuid());
    else if (kind == "sprites")
        project.createSpriteBank(Tintorel::Sprite::FourBit, "P", QUuid());
    else
        project.createImage(Tintorel::ImageMode::LoRes_128x96, "P", QUuid());
    QCOMPARE(messages.count(), message.isEmpty() ? 0 : 1);
    if (!message.isEmpty())
        QCOMPARE(messages.at(0).at(0).toString(), message);
}

void TestProject::paletteFill_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<QString>("source"); // "known", "unknown with default", "unknown"
    QTest::addColumn<int>("entry255");
    QTest::newRow("0 black") << 0 << "unknown" << 0x0000;
    QTest::newRow("2 standard") << 2 << "unknown" << 0xFF01;
    QTest::newRow("3 black") << 3 << "unknown" << 0x0000;
    QTest::newRow("1 copies the source") << 1 << "known" << 0x1C00;
    QTest::newRow("1 falls back to the default") << 1 << "unknown with default" << 0xE000;
    QTest::newRow("1 with neither is black") << 1 << "unknown" << 0x0000;
}

void TestProject::paletteFill()
{
    QFETCH(int, action);
    QFETCH(QString, source);
    QFETCH(int, entry255);
    Project project;
    const auto known = project.createPalette(CreateAction::Blank, "known");
    known->setEntry(255, 0x1C00);
    const auto fallback = project.createPalette(CreateAction::Blank, "default");
    fallback->setEntry(255, 0xE000);
    if (source == "unknown with default")
        project.setDefaultPalette(fallback);
    const QUuid from = source == "known" ? known->id() : QUuid::createUuid();
    const auto palette = project.createPalette(CreateAction(action), "new", from);
    QCOMPARE(int(palette->entry(255)), entry255);
}

void TestProject::clonesCopyContentUnderASuffix()
{
    Project project;
    const auto palette = project.createPalette(CreateAction::Standard, "Sky");
    const auto copyOfCopy = project.clonePalette(project.clonePalette(palette->id())->id());
    QCOMPARE(copyOfCopy->name(), QStringLiteral("Sky (copy) (copy)"));
    QCOMPARE(copyOfCopy->entry(255), ushort(0xFF01));

    const auto tiles = project.createTileSet("T", QUuid(), 3);
    tiles->tile(2)->setAttributes(Tile::TA_LADDER);
    const auto tilesCopy = project.cloneTileSet(tiles->id());
    QCOMPARE(tilesCopy->name(), QStringLiteral("T (copy)"));
    QCOMPARE(tilesCopy->count(), 3);
    QCOMPARE(tilesCopy->paletteId(), tiles->paletteId());
    QCOMPARE(tilesCopy->tile(2)->attributes(), int(Tile::TA_LADDER));
    QVERIFY(tilesCopy->tile(2) != tiles->tile(2));

    const auto map = project.createMap("M", tiles->id(), QSize(3, 2));
    map->setTile({ 2, 1 }, { 5, true, false, false, 1, true });
    map->addSprite(Map::PlacedSprite());
    map->setGridVisible(true);
    const auto mapCopy = project.cloneMap(map->id());
    QCOMPARE(mapCopy->name(), QStringLiteral("M (copy)"));
    QCOMPARE(mapCopy->tileSet(), tiles);
    QVERIFY(mapCopy->state() == map->state());
    QVERIFY(mapCopy->gridVisible());
    QVERIFY(mapCopy->tileMap() != map->tileMap());

    const QUuid stranger = QUuid::createUuid();
    QVERIFY(!project.clonePalette(stranger) && !project.cloneTileSet(stranger) && !project.cloneMap(stranger));
}

void TestProject::paletteGuard_data()
{
    QTest::addColumn<QString>("user");
    QTest::newRow("a tile set") << "tiles";
    QTest::newRow("a sprite bank") << "sprites";
    QTest::newRow("an image") << "image";
    QTest::newRow("the scratch image alone") << "scratch";
}

void TestProject::paletteGuard()
{
    QFETCH(QString, user);
    Project project;
    const auto palette = project.createPalette(CreateAction::Blank, "P");
    const QUuid id = palette->id();
    if (user == "tiles")
        project.createTileSet("T", id);
    else if (user == "sprites")
        project.createSpriteBank(Tintorel::Sprite::EightBit, "S", id);
    else if (user == "image")
        project.createImage(Tintorel::ImageMode::Layer2_256x192, "I", id);
    else
        project.setScratchPalette(id);
    QVERIFY(!project.deletePalette(id));
    QVERIFY(project.palette(id));

    Project free;
    const auto unused = free.createPalette(CreateAction::Blank, "P");
    QVERIFY(free.deletePalette(unused->id()));
    QVERIFY(!unused);
}

void TestProject::tileSetGuard()
{
    Project project;
    QSignalSpy changed(&project, &Project::tileSetsChanged);
    const auto tiles = project.createTileSet("T", QUuid());
    QCOMPARE(changed.count(), 1);
    using Names = QHash<QUuid, QString>;
    QCOMPARE(changed.at(0).at(0).value<Names>().value(tiles->id()), QStringLiteral("T"));
    const auto map = project.createMap("M", tiles->id(), QSize(2, 2));
    QVERIFY(!project.deleteTileSet(tiles->id()));
    QVERIFY(project.deleteMap(map->id()));
    QVERIFY(project.deleteTileSet(tiles->id()));
    QVERIFY(!tiles);
    QVERIFY(project.tileSetNames().isEmpty());
}

void TestProject::blocksGuardAndUnguardedDeletes()
{
    Project project;
    const auto tiles = project.createTileSet("T", QUuid());
    const auto blocks = project.createBlockList("B", tiles->id());
    QCOMPARE(blocks->tileSet(), tiles);
    QVERIFY(blocks->animations().isEmpty());
    project.createMap("M", tiles->id(), QSize(2, 2)); // the blocks are in use though none is placed
    QVERIFY(!project.deleteBlocks(blocks->id()));
    QVERIFY(blocks);

    const auto bank = project.createSpriteBank(Tintorel::Sprite::FourBit, "S", QUuid());
    QVERIFY(project.deleteSpriteBank(bank->id()));
    QVERIFY(!bank);
    const QUuid stranger = QUuid::createUuid();
    QVERIFY(!project.palette(stranger) && !project.map(QUuid()));
    QVERIFY(project.deletePalette(stranger));
    QVERIFY(project.deleteTileSet(stranger));
    QVERIFY(project.deleteBlocks(stranger));
    QVERIFY(project.deleteMap(stranger));
    QVERIFY(project.deleteSpriteBank(stranger));
}

void TestProject::refusalTexts()
{
    QCOMPARE(DeletionRefusal::palette().title, QStringLiteral("Palette In Use"));
    QCOMPARE(DeletionRefusal::palette().message,
             QStringLiteral("You may not delete this palette; it is used by one or more sprites, tiles or images"));
    QCOMPARE(DeletionRefusal::tileSet().title, QStringLiteral("Tile Set In Use"));
    QCOMPARE(DeletionRefusal::tileSet().message,
             QStringLiteral("You may not delete this Tile Set; it is used by one or more maps"));
    QCOMPARE(DeletionRefusal::blocks().title, QStringLiteral("Objects in use"));
    QCOMPARE(DeletionRefusal::blocks().message,
             QStringLiteral("You may not delete these objects; they are in use by one or more maps"));
}

void TestProject::movingASpriteFollowsOnMaps()
{
    Project project;
    const auto bank = project.createSpriteBank(Tintorel::Sprite::EightBit, "S", QUuid());
    for (int i = 0; i < 3; ++i)
        bank->addSprite();
    const auto map = project.createMap("M", QUuid(), QSize(4, 4));
    Map::PlacedSprite placed;
    placed.bank = bank->id();
    placed.sprite = 3;
    map->addSprite(placed);
    bank->moveSprite(3, 0);
    QCOMPARE(map->sprites().at(0).sprite, 0);
}

QTEST_GUILESS_MAIN(TestProject)
#include "tst_project.moc"
