#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/tile.h"
#include "model/tileanimation.h"
#include "model/tileset.h"

#include <QSignalSpy>
#include <QtTest>

class TestAnimation : public QObject
{
    Q_OBJECT
private slots:
    void setSizeKeepsCellsAndEmitsOnlyOnChange();
    void cellSettersGuardTheirCell_data();
    void cellSettersGuardTheirCell();
    void frameListOperations();
    void restoreGivesBackTheStateSilently();
    void advance_data();
    void advance();
    void tileFrameDrawsEachCell();
};

namespace {

// Two frames of 2 x 1 cells whose indices are 1 2 and 3 4.
void fill(Animation& animation)
{
    animation.setSize(QSize(2, 1));
    for (int frame = 0; frame < 2; ++frame) {
        animation.addFrame();
        for (int cell = 0; cell < 2; ++cell)
            animation.setIndex(frame, cell, frame * 2 + cell + 1);
    }
}

QList<int> indices(const Animation& animation)
{
    QList<int> result;
    for (const auto& frame : animation.frames())
        for (const auto& row : frame->cells())
            for (const auto& cell : row)
                result << cell.index;
    return result;
}

} // namespace

void TestAnimation::setSizeKeepsCellsAndEmitsOnlyOnChange()
{
    SpriteAnim animation("walk");
    animation.addFrame();
    animation.setIndex(0, 0, 7);
    QSignalSpy sized(&animation, &Animation::sizeChanged);
    QSignalSpy edited(&animation, &Animation::frameChanged);

    animation.setSize(QSize(1, 1));
    animation.setWidth(1);
    QCOMPARE(sized.count(), 0);

    animation.setWidth(3);
    animation.setHeight(2);
    QCOMPARE(sized.count(), 2);
    QCOMPARE(sized.at(1).at(0).toSize(), QSize(3, 2));
    QCOMPARE(edited.count(), 0);
    QCOMPARE(animation.frame(0)->size(), QSize(3, 2));
    QCOMPARE(animation.frame(0)->cell(0, 0).index, 7);
    QCOMPARE(animation.frame(0)->cell(1, 2), AnimationFrame::Cell());
}

void TestAnimation::cellSettersGuardTheirCell_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("cell");
    QTest::addColumn<bool>("stored");
    QTest::newRow("first cell") << 0 << 0 << true;
    QTest::newRow("last cell of the second frame") << 1 << 5 << true;
    QTest::newRow("negative frame") << -1 << 0 << false;
    QTest::newRow("frame past the end") << 2 << 0 << false;
    QTest::newRow("negative cell") << 0 << -1 << false;
    QTest::newRow("cell past the end") << 0 << 6 << false;
}

void TestAnimation::cellSettersGuardTheirCell()
{
    QFETCH(int, frame);
    QFETCH(int, cell);
    QFETCH(bool, stored);
    SpriteAnim animation("a");
    animation.setSize(QSize(3, 2));
    animation.addFrame();
    animation.addFrame();
    QSignalSpy edited(&animation, &Animation::frameChanged);

    animation.setIndex(frame, cell, 9);
    animation.setOffset(frame, cell, 4);
    animation.setRotate(frame, cell, true);
    animation.setFlip(frame, cell, true);
    animation.setMirror(frame, cell, true);

    QCOMPARE(edited.count(), stored ? 5 : 0);
    if (stored) {
        QCOMPARE(edited.at(0).at(0).toInt(), frame);
        // Numbered row by row: cell 5 of a 3 x 2 frame is row 1, column 2.
        QCOMPARE(animation.frame(frame)->cell(cell / 3, cell % 3), (AnimationFrame::Cell { 9, 4, true, true, true }));
    }
}

void TestAnimation::frameListOperations()
{
    SpriteAnim animation("a");
    fill(animation);
    QSignalSpy content(&animation, &Animation::contentChanged);

    animation.copyFrame(0);
    QVERIFY(animation.frame(1)->id() != animation.frame(0)->id());
    animation.moveFrame(2, 0);
    animation.insertFrame(3);
    const QSharedPointer<AnimationFrame> removed = animation.frame(0);
    animation.removeFrame(0);
    QCOMPARE(indices(animation), (QList<int> { 1, 2, 1, 2, 0, 0 }));
    QCOMPARE(content.count(), 4);

    animation.insertFrame(4);
    animation.removeFrame(3);
    animation.moveFrame(1, 1);
    QCOMPARE(content.count(), 4);

    // A removed frame that a view still holds no longer speaks for the animation.
    QSignalSpy edited(&animation, &Animation::frameChanged);
    removed->setCell(0, 0, AnimationFrame::Cell { 5 });
    animation.setIndex(2, 1, 8);
    QCOMPARE(edited.count(), 1);
    QCOMPARE(edited.at(0).at(0).toInt(), 2);

    animation.clearFrames();
    QCOMPARE(animation.frameCount(), 0);
    QCOMPARE(content.count(), 4);
}

void TestAnimation::restoreGivesBackTheStateSilently()
{
    TileAnimation animation;
    QCOMPARE(animation.name(), QStringLiteral("Blocks!"));
    fill(animation);
    animation.setDelay(4);
    const TileAnimation::State before = animation.state();

    animation.setName("b");
    animation.setSize(QSize(1, 3));
    animation.setDelay(2);
    animation.removeFrame(1);
    animation.setIndex(0, 2, 11);
    animation.setMapObjectType(MapObjectType::HorizontalPlatform);
    QVERIFY(animation.state() != before);

    QSignalSpy restored(&animation, &Animation::restored);
    QSignalSpy content(&animation, &Animation::contentChanged);
    QSignalSpy sized(&animation, &Animation::sizeChanged);
    QSignalSpy named(&animation, &Animation::nameChanged);
    animation.restore(before);
    QCOMPARE(animation.state(), before);
    QCOMPARE(restored.count(), 1);
    QCOMPARE(content.count() + sized.count() + named.count(), 0);

    // Restored frames report their edits under their position.
    QSignalSpy edited(&animation, &Animation::frameChanged);
    animation.setIndex(1, 0, 3);
    QCOMPARE(edited.count(), 1);
    QCOMPARE(edited.at(0).at(0).toInt(), 1);
}

void TestAnimation::advance_data()
{
    QTest::addColumn<int>("delay");
    QTest::addColumn<QList<int>>("ticks");
    QTest::addColumn<QList<int>>("results");
    QTest::newRow("delay 3 steps at 3, 6 and 9, wrapping")
        << 3 << QList<int> { 1, 2, 3, 4, 5, 6, 7, 8, 9 } << QList<int> { -1, -1, 1, -1, -1, 2, -1, -1, 0 };
    // Frame 0 holds for a full delay from the clock's first tick.
    QTest::newRow("a repeated tick gives the frame again")
        << 3 << QList<int> { 0, 3, 3, 4, 4 } << QList<int> { 0, 1, 1, -1, 1 };
    QTest::newRow("delay 1 steps every tick") << 1 << QList<int> { 1, 2, 3, 4 } << QList<int> { 1, 2, 0, 1 };
    QTest::newRow("delay 0 never moves, but a repeated tick still answers")
        << 0 << QList<int> { 1, 1, 2 } << QList<int> { -1, 0, -1 };
}

void TestAnimation::advance()
{
    QFETCH(int, delay);
    QFETCH(QList<int>, ticks);
    QFETCH(QList<int>, results);
    TileAnimation block;
    for (int i = 0; i < 3; ++i)
        block.addFrame();
    block.setDelay(delay);
    QList<int> actual;
    for (int tick : ticks)
        actual << block.advance(tick);
    QCOMPARE(actual, results);
}

void TestAnimation::tileFrameDrawsEachCell()
{
    Palette palette;
    palette.loadStandard();
    TileSet tiles(2);
    tiles.setPalette(&palette);
    QImage picture = Tile::blankImage(palette.rgbTable());
    picture.fill(3);
    tiles.setTileImage(1, picture);

    TileAnimation block;
    block.setTileSet(&tiles);
    block.setSize(QSize(2, 1));
    block.addFrame();
    block.setIndex(0, 1, 1);
    block.setOffset(0, 1, 2);

    const QImage frame = block.renderFrame(0);
    QCOMPARE(frame.size(), QSize(16, 8));
    QCOMPARE(frame.pixel(3, 3), palette.rgbTable().at(0));
    QCOMPARE(frame.pixel(12, 5), palette.rgbTable().at(2 * 16 + 3));
    QVERIFY(block.renderFrame(1).isNull());
    QCOMPARE(block.preview(0, QSize(64, 64)).size(), QSize(64, 32));
}

QTEST_MAIN(TestAnimation)
#include "tst_animation.moc"
