#include "interchange/maprenderer.h"
#include "mapeditor/mapanimator.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"
#include "project/project.h"
#include "testblocks.h"

#include <QSignalSpy>
#include <QtTest>

using MapEditor::MapAnimator;

// The clock of a map tab, driven tick by tick instead of by its timer.
class TestMapAnimator : public QObject
{
    Q_OBJECT
private slots:
    void spriteFrames_data();
    void spriteFrames();
    void blocksStepOnTheClock_data();
    void blocksStepOnTheClock();
    void idleMapCostsNoRepaint();
};

void TestMapAnimator::spriteFrames_data()
{
    QTest::addColumn<int>("frameCount");
    QTest::addColumn<int>("delay");
    QTest::addColumn<int>("startFrame");
    QTest::addColumn<int>("initialDelay");
    QTest::addColumn<int>("repeatDelay");
    QTest::addColumn<qint64>("ticks");
    QTest::addColumn<int>("frame");
    QTest::newRow("no frames") << 0 << 1 << 3 << 0 << 0 << qint64(5) << 0;
    QTest::newRow("still before the initial delay") << 4 << 2 << 1 << 10 << 0 << qint64(9) << 1;
    QTest::newRow("start past the end is the last") << 4 << 1 << 9 << 0 << 0 << qint64(0) << 3;
    QTest::newRow("negative start is the first") << 4 << 1 << -2 << 0 << 0 << qint64(2) << 2;
    QTest::newRow("one frame per delay") << 4 << 2 << 0 << 0 << 0 << qint64(5) << 2;
    QTest::newRow("repeat delay holds the last step") << 4 << 2 << 0 << 0 << 6 << qint64(10) << 3;
    QTest::newRow("and then starts again") << 4 << 2 << 0 << 0 << 6 << qint64(14) << 0;
    QTest::newRow("counted from the start frame") << 4 << 1 << 2 << 0 << 0 << qint64(3) << 1;
    QTest::newRow("negative initial delay started early") << 4 << 1 << 0 << -3 << 0 << qint64(0) << 3;
    QTest::newRow("no delay stands") << 4 << 0 << 2 << 0 << 0 << qint64(100) << 2;
    QTest::newRow("negative repeat delay is none") << 2 << 3 << 0 << 0 << -5 << qint64(7) << 0;
    QTest::newRow("a clock run for years") << 3 << 1 << 0 << 0 << 0 << (qint64(1) << 40) + 1 << 2;
}

void TestMapAnimator::spriteFrames()
{
    QFETCH(int, frameCount);
    QFETCH(int, delay);
    QFETCH(qint64, ticks);
    Map::PlacedSprite sprite;
    QFETCH(int, startFrame);
    QFETCH(int, initialDelay);
    QFETCH(int, repeatDelay);
    sprite.startFrame = startFrame;
    sprite.initialDelay = initialDelay;
    sprite.repeatDelay = repeatDelay;
    QTEST(MapRenderer::frameFor(sprite, frameCount, delay, ticks), "frame");
}

void TestMapAnimator::blocksStepOnTheClock_data()
{
    QTest::addColumn<int>("delay");
    QTest::addColumn<QList<int>>("frames"); // the frame shown after 1, 2, 3 ... ticks
    QTest::newRow("delay 1") << 1 << QList<int> { 0, 1, 2, 3, 0, 1, 2 };
    QTest::newRow("delay 2") << 2 << QList<int> { 0, 0, 1, 1, 2, 2, 3 };
    QTest::newRow("delay 3") << 3 << QList<int> { 0, 0, 0, 1, 1, 1, 2 };
    QTest::newRow("no delay") << 0 << QList<int> { 0, 0, 0, 0, 0, 0, 0 };
}

// Two placements of one block step together, and the command-line render
// at a tick shows what the running clock shows after as many ticks.
void TestMapAnimator::blocksStepOnTheClock()
{
    QFETCH(int, delay);
    QFETCH(QList<int>, frames);
    const auto makeMap = [delay](Project& project) {
        const QPointer<Palette> palette = project.createPalette(CreateAction::Standard, "Colours");
        const QPointer<TileSet> tiles = project.createTileSet("Tiles", palette->id(), 32);
        const QPointer<Map> map = project.createMap("Level", tiles->id(), QSize(8, 6));
        const QSharedPointer<TileAnimation> block = makeTestBlock(project, tiles, QSize(2, 2), delay);
        map->placeAnimation(block.data(), QPoint(0, 0));
        map->placeAnimation(block.data(), QPoint(5, 3));
        return map;
    };
    Project running;
    const QPointer<Map> map = makeMap(running);
    MapAnimator animator;
    animator.setMap(map);
    animator.setProject(&running);
    Project rendered;
    const QPointer<Map> still = makeMap(rendered);
    for (int tick = 1; tick <= frames.size(); ++tick) {
        animator.tick();
        QCOMPARE(animator.ticks(), quint64(tick));
        const int expected = 10 + frames.at(tick - 1);
        QCOMPARE(map->objectMap()->cell(QPoint(1, 1)).index, expected);
        QCOMPARE(map->objectMap()->cell(QPoint(6, 4)).index, expected);
        MapRenderer::showBlocksAt(rendered, *still, tick);
        QCOMPARE(still->objectMap()->cells(), map->objectMap()->cells());
    }
}

void TestMapAnimator::idleMapCostsNoRepaint()
{
    Project project;
    const QPointer<Palette> palette = project.createPalette(CreateAction::Standard, "Colours");
    const QPointer<TileSet> tiles = project.createTileSet("Tiles", palette->id(), 16);
    const QPointer<Map> map = project.createMap("Level", tiles->id(), QSize(4, 4));
    MapAnimator animator;
    animator.setProject(&project);
    QSignalSpy advanced(&animator, &MapAnimator::framesAdvanced);
    animator.tick(); // no map: the clock does not count
    QCOMPARE(animator.ticks(), quint64(0));
    animator.setMap(map);
    animator.tick();
    QCOMPARE(advanced.count(), 0);
    QCOMPARE(animator.ticks(), quint64(1));
    // A placed sprite may move on any tick.
    Map::PlacedSprite sprite;
    map->addSprite(sprite);
    animator.tick();
    QCOMPARE(advanced.count(), 1);
}

QTEST_MAIN(TestMapAnimator)
#include "tst_mapanimator.moc"
