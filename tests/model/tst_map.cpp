#include "model/animatedblocks.h"
#include "model/animationproperties.h"
#include "model/map.h"
#include "model/tileanimation.h"

#include <QSignalSpy>
#include <QtTest>

using TileData = TileMap::TileData;
using PlacedSprite = Map::PlacedSprite;

class TestMap : public QObject
{
    Q_OBJECT
private slots:
    void newMapHasBothLayersAtItsSize();
    void placeAndRemoveBlock();
    void placingReplacesOverlappedBlocksAndMustFit();
    void resizeMovesAndDropsObjects();
    void rowAndColumnEditsAtTheStartShiftObjects_data();
    void rowAndColumnEditsAtTheStartShiftObjects();
    void spriteListGuards();
    void moveSpriteInBank_data();
    void moveSpriteInBank();
    void restoreGivesBackTheState();
};

namespace {

PlacedSprite spriteAt(int x, int y, int sprite = 0, const QUuid& bank = QUuid())
{
    PlacedSprite placed;
    placed.bank = bank;
    placed.sprite = sprite;
    placed.x = x;
    placed.y = y;
    return placed;
}

// A 2 x 2 block whose first frame shows tiles 5, 6, 7, 8.
std::unique_ptr<TileAnimation> makeBlock()
{
    auto block = std::make_unique<TileAnimation>();
    block->setSize(QSize(2, 2));
    block->addFrame();
    for (int cell = 0; cell < 4; ++cell)
        block->setIndex(0, cell, 5 + cell);
    return block;
}

} // namespace

void TestMap::newMapHasBothLayersAtItsSize()
{
    Map map("Level", QSize(5, 3));
    QSignalSpy named(&map, &Map::nameChanged);
    QCOMPARE(map.size(), QSize(5, 3));
    QCOMPARE(map.objectMap()->size(), QSize(5, 3));
    QCOMPARE(map.cellCount(), 30);
    map.setName("Level");
    map.setName("Cave");
    QCOMPARE(named.count(), 1);
}

void TestMap::placeAndRemoveBlock()
{
    Map map("m", QSize(6, 6));
    map.setTile({ 2, 2 }, { 3, false, false, false, 0, true });
    auto block = makeBlock();
    QVERIFY(map.placeAnimation(block.get(), { 1, 2 }));
    QCOMPARE(map.blocks()->count(), 1);
    QCOMPARE(map.rectAt({ 2, 3 }), QRect(1, 2, 2, 2));
    QCOMPARE(map.objectMap()->cell({ 2, 3 }).index, 8);
    QVERIFY(map.objectMap()->cell({ 2, 3 }).visible);
    QCOMPARE(map.tile({ 2, 2 }), TileData({ 0, false, false, false, 0, true }));

    QVERIFY(!map.removeBlock(QRect(4, 4, 2, 2)));
    QVERIFY(map.removeBlock(QRect(1, 2, 2, 2)));
    QCOMPARE(map.blocks()->count(), 0);
    QVERIFY(map.rectAt({ 2, 3 }).isEmpty());
    QCOMPARE(map.tile({ 2, 2 }), TileData());
    QCOMPARE(map.objectMap()->cell({ 2, 3 }), TileData({ 0, false, false, false, 0, true }));
}

void TestMap::placingReplacesOverlappedBlocksAndMustFit()
{
    Map map("m", QSize(6, 6));
    auto block = makeBlock();
    map.placeAnimation(block.get(), { 0, 0 });
    QVERIFY(map.placeAnimation(block.get(), { 1, 1 }));
    QCOMPARE(map.blocks()->count(), 1);
    QCOMPARE(map.rectAt({ 1, 1 }), QRect(1, 1, 2, 2));
    QVERIFY(map.rectAt({ 0, 0 }).isEmpty());
    QVERIFY(!map.placeAnimation(block.get(), { 5, 5 }));
    QVERIFY(!map.placeAnimation(nullptr, { 0, 0 }));
    QCOMPARE(map.blocks()->count(), 1);
}

void TestMap::resizeMovesAndDropsObjects()
{
    Map map("m", QSize(10, 10));
    QSignalSpy resized(&map, &Map::resized);
    auto block = makeBlock();
    map.placeAnimation(block.get(), { 4, 4 });
    map.placeAnimation(block.get(), { 0, 0 });
    map.addSprite(spriteAt(40, 40));
    map.addSprite(spriteAt(8, 8));

    map.resize(QSize(6, 6), Qt::AlignHCenter | Qt::AlignVCenter); // shift (-2, -2)
    QCOMPARE(resized.count(), 1);
    QCOMPARE(map.blocks()->count(), 1);
    QCOMPARE(map.blocks()->list().at(0)->rect(), QRect(2, 2, 2, 2));
    QCOMPARE(map.objectMap()->cell({ 2, 2 }).index, 5);
    QCOMPARE(map.sprites().size(), 1);
    QCOMPARE(map.sprites().at(0).x, 24);
    QCOMPARE(map.sprites().at(0).y, 24);
}

void TestMap::rowAndColumnEditsAtTheStartShiftObjects_data()
{
    QTest::addColumn<QString>("edit");
    QTest::addColumn<QPoint>("blockAt");
    QTest::addColumn<QSize>("size");
    QTest::newRow("add row at the start") << "addRow0" << QPoint(2, 3) << QSize(6, 7);
    QTest::newRow("add row at the end") << "addRow1" << QPoint(2, 2) << QSize(6, 7);
    QTest::newRow("add column at the start") << "addColumn0" << QPoint(3, 2) << QSize(7, 6);
    QTest::newRow("remove row at the start") << "removeRow0" << QPoint(2, 1) << QSize(6, 5);
    QTest::newRow("remove column at the end") << "removeColumn1" << QPoint(2, 2) << QSize(5, 6);
    QTest::newRow("remove column at the start") << "removeColumn0" << QPoint(1, 2) << QSize(5, 6);
}

void TestMap::rowAndColumnEditsAtTheStartShiftObjects()
{
    QFETCH(QString, edit);
    QFETCH(QPoint, blockAt);
    QFETCH(QSize, size);
    Map map("m", QSize(6, 6));
    auto block = makeBlock();
    map.placeAnimation(block.get(), { 2, 2 });
    map.addSprite(spriteAt(16, 16));
    const int where = edit.right(1).toInt();
    if (edit.startsWith("addRow"))
        map.addRow(where);
    else if (edit.startsWith("addColumn"))
        map.addColumn(where);
    else if (edit.startsWith("removeRow"))
        map.removeRow(where);
    else
        map.removeColumn(where);
    QCOMPARE(map.size(), size);
    QCOMPARE(map.blocks()->list().at(0)->rect().topLeft(), blockAt);
    QCOMPARE(QPoint(map.sprites().at(0).x, map.sprites().at(0).y), blockAt * 8);
    QCOMPARE(map.objectMap()->cell(blockAt).index, 5); // the layer moved with it
}

void TestMap::spriteListGuards()
{
    Map map("m", QSize(4, 4));
    QCOMPARE(map.addSprite(spriteAt(1, 1)), 0);
    QCOMPARE(map.addSprite(spriteAt(2, 2)), 1);
    QVERIFY(!map.setSprite(2, spriteAt(0, 0)));
    QVERIFY(!map.setSprite(-1, spriteAt(0, 0)));
    QVERIFY(!map.removeSprite(5));
    QVERIFY(map.setSprite(1, spriteAt(3, 3)));
    QVERIFY(map.removeSprite(0));
    QCOMPARE(map.sprites(), (QList<PlacedSprite> { spriteAt(3, 3) }));
}

void TestMap::moveSpriteInBank_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QList<int>>("expected"); // placed sprites 0..5 of the bank
    QTest::newRow("up the list") << 4 << 1 << QList<int> { 0, 2, 3, 4, 1, 5 };
    QTest::newRow("down the list") << 1 << 4 << QList<int> { 0, 4, 1, 2, 3, 5 };
    QTest::newRow("to itself") << 3 << 3 << QList<int> { 0, 1, 2, 3, 4, 5 };
}

void TestMap::moveSpriteInBank()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QList<int>, expected);
    Map map("m", QSize(4, 4));
    const QUuid bank = QUuid::createUuid();
    for (int i = 0; i < 6; ++i)
        map.addSprite(spriteAt(0, 0, i, bank));
    map.addSprite(spriteAt(0, 0, 4, QUuid::createUuid())); // another bank stays
    map.moveSpriteInBank(bank, from, to);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(map.sprites().at(i).sprite, expected[i]);
    QCOMPARE(map.sprites().at(6).sprite, 4);
}

void TestMap::restoreGivesBackTheState()
{
    Map map("m", QSize(4, 4));
    auto block = makeBlock();
    map.placeAnimation(block.get(), { 0, 0 });
    map.blocks()->list().at(0)->setRepeatDelay(9);
    map.setTile({ 3, 3 }, { 2, true, false, false, 4, true });
    map.addSprite(spriteAt(5, 5));
    const Map::State before = map.state();

    map.removeBlock(QRect(0, 0, 2, 2));
    map.resize(QSize(2, 2), Qt::AlignTop);
    map.removeSprite(0);
    QVERIFY(map.state() != before);

    QSignalSpy restored(&map, &Map::restored);
    map.restore(before);
    QCOMPARE(restored.count(), 1);
    QCOMPARE(map.size(), QSize(4, 4));
    QVERIFY(map.state() == before);
    QCOMPARE(map.blocks()->list().at(0)->repeatDelay(), 9);
}

QTEST_GUILESS_MAIN(TestMap)
#include "tst_map.moc"
