#include "model/animatedblocks.h"
#include "model/animationproperties.h"
#include "model/mapobjects.h"
#include "model/mapobjecttype.h"
#include "model/tileanimation.h"
#include "model/tileset.h"

#include <QSignalSpy>
#include <QtTest>

class TestMapObjects : public QObject
{
    Q_OBJECT
private slots:
    void typeTexts();
    void frameAt_data();
    void frameAt();
    void blockLookups();

    void createCopyAndRemove();
    void cellsFollowTheTileSet();
};

void TestMapObjects::typeTexts()
{
    QCOMPARE(mapObjectTypeText(MapObjectType::Normal), QStringLiteral("Normal"));
    QCOMPARE(mapObjectTypeText(MapObjectType::HorizontalPlatform), QStringLiteral("Horizontal Platform"));
    QCOMPARE(mapObjectTypeText(MapObjectType(7)), QString());
}

void TestMapObjects::frameAt_data()
{
    QTest::addColumn<int>("frameCount");
    QTest::addColumn<int>("delay");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("initial");
    QTest::addColumn<int>("repeat");
    QTest::addColumn<int>("tick");
    QTest::addColumn<int>("frame");
    QTest::newRow("start 5 of 3 frames clamps to 2") << 3 << 2 << 5 << 0 << 0 << 0 << 2;
    QTest::newRow("negative start counts as 0") << 3 << 2 << -4 << 0 << 0 << 2 << 1;
    QTest::newRow("start wraps: last step is the frame before") << 3 << 2 << 1 << 0 << 0 << 5 << 0;
    QTest::newRow("before the initial delay shows start") << 4 << 1 << 2 << 10 << 0 << 9 << 2;
    QTest::newRow("a tick after the initial delay steps on") << 4 << 1 << 2 << 10 << 0 << 11 << 3;
    QTest::newRow("last frame holds to the end of the gap") << 3 << 2 << 0 << 0 << 10 << 15 << 2;
    QTest::newRow("first tick of the gap") << 3 << 2 << 0 << 0 << 10 << 6 << 2;
    QTest::newRow("starts again after cycle + gap") << 3 << 2 << 0 << 0 << 10 << 16 << 0;
    QTest::newRow("negative gap counts as none") << 3 << 2 << 0 << 0 << -5 << 8 << 1;
    QTest::newRow("negative initial delay: an early clock") << 3 << 2 << 0 << -2 << 0 << 0 << 1;
    QTest::newRow("no frames gives 0") << 0 << 2 << 3 << 0 << 0 << 7 << 0;
    QTest::newRow("delay 0 shows start") << 3 << 0 << 1 << 0 << 0 << 7 << 1;
    QTest::newRow("huge numbers do not overflow") << 1000000 << 1000000 << 0 << std::numeric_limits<int>::min() << std::numeric_limits<int>::max() << std::numeric_limits<int>::max() << 4294;
}

void TestMapObjects::frameAt()
{
    QFETCH(int, frameCount);
    QFETCH(int, delay);
    QFETCH(int, start);
    QFETCH(int, initial);
    QFETCH(int, repeat);
    QFETCH(int, tick);
    QFETCH(int, frame);
    AnimationProperties placement;
    placement.setStartFrame(start);
    placement.setInitialDelay(initial);
    placement.setRepeatDelay(repeat);
    QCOMPARE(placement.frameAt(frameCount, delay, tick), frame);
}

void TestMapObjects::blockLookups()
{
    AnimatedBlocks blocks;
    const QUuid first = QUuid::createUuid();
    const QUuid second = QUuid::createUuid();
    blocks.add(QRect(0, 0, 4, 4), first);
    blocks.add(QRect(2, 2, 4, 4), second);

    QCOMPARE(blocks.find(QPoint(3, 3))->animationId(), first);
    QCOMPARE(blocks.find(QPoint(5, 5))->animationId(), second);
    QVERIFY(blocks.find(QPoint(6, 6)).isNull());
    QCOMPARE(blocks.rectAt(QPoint(5, 2)), QRect(2, 2, 4, 4));
    QVERIFY(blocks.rectAt(QPoint(0, 7)).isEmpty());
    QCOMPARE(blocks.at(QRect(2, 2, 4, 4))->animationId(), second);
    QVERIFY(blocks.at(QRect(2, 2, 4, 3)).isNull());

    // Only blocks lying wholly inside go.
    QVERIFY(!blocks.removeInRect(QRect(0, 0, 3, 3)));
    QVERIFY(blocks.removeInRect(QRect(0, 0, 4, 4)));
    QCOMPARE(blocks.find(QPoint(3, 3))->animationId(), second);
}

void TestMapObjects::createCopyAndRemove()
{
    MapObjects set;
    QSignalSpy changed(&set, &MapObjects::animationsChanged);
    const QSharedPointer<TileAnimation> block = set.createTileAnimation("Door");
    block->setSize(QSize(2, 2));
    block->addFrame();
    block->setIndex(0, 3, 6);
    block->setMapObjectType(MapObjectType::HorizontalPlatform);
    QCOMPARE(set.tileAnimation(block->id()), block);

    const QSharedPointer<TileAnimation> copy = set.copyTileAnimation(block->id());
    QCOMPARE(copy->name(), QStringLiteral("Door (Copy)"));
    QVERIFY(copy->id() != block->id());
    QVERIFY(copy->frame(0)->id() != block->frame(0)->id());
    QCOMPARE(copy->frame(0)->cells(), block->frame(0)->cells());
    QCOMPARE(copy->mapObjectType(), MapObjectType::HorizontalPlatform);
    QVERIFY(set.copyTileAnimation(QUuid::createUuid()).isNull());

    set.removeTileAnimation(block->id());
    set.removeTileAnimation(block->id());
    QCOMPARE(changed.count(), 3);
    QCOMPARE(set.animations().keys(), QList<QUuid> { copy->id() });
}

void TestMapObjects::cellsFollowTheTileSet()
{
    TileSet tiles(8);
    TileSet other(8);
    MapObjects set;
    set.setTileSet(&other);
    set.setTileSet(&tiles);
    QCOMPARE(set.tileSetId(), tiles.id());
    const QSharedPointer<TileAnimation> block = set.createTileAnimation("b");
    QCOMPARE(block->tileSet().data(), &tiles);
    block->setSize(QSize(3, 1));
    block->addFrame();
    for (int cell = 0; cell < 3; ++cell)
        block->setIndex(0, cell, cell + 3); // 3 4 5

    auto indices = [&] {
        QList<int> result;
        const AnimationFrame::Cells cells = block->frame(0)->cells();
        for (const auto& cell : cells.first())
            result << cell.index;
        return result;
    };
    tiles.deleteTile(4);
    QCOMPARE(indices(), (QList<int> { 3, 0, 4 }));
    tiles.insertTile(3);
    QCOMPARE(indices(), (QList<int> { 4, 0, 5 }));
    set.swapTiles(0, 5);
    QCOMPARE(indices(), (QList<int> { 4, 5, 0 }));
    other.deleteTile(0);
    QCOMPARE(indices(), (QList<int> { 4, 5, 0 }));
}

QTEST_GUILESS_MAIN(TestMapObjects)
#include "tst_mapobjects.moc"
