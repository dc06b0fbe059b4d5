#include "editors/animation/animationcontrolwidget.h"
#include "editors/animation/animationlistwidget.h"
#include "editors/animation/animationplayer.h"
#include "editors/animation/frameeditorwidget.h"
#include "editors/block/animationeditorwidget.h"
#include "editors/block/view.h"
#include "history/editrecorder.h"
#include "model/mapobjects.h"
#include "model/spriteanim.h"
#include "model/tileanimation.h"
#include "model/tileset.h"

#include <QDataStream>
#include <QMimeData>
#include <QUndoStack>
#include <QtTest>

// The animation widgets shared by the sprite and block editors, and the
// block editor built on them.
class TestAnimationEditors : public QObject
{
    Q_OBJECT
private slots:
    void drops_data();
    void drops();
    void framesAndZoomStayInRange();
    void previewStepsAndWraps();
    void blockEditsAreStepsAndDeleteAsks();
};

namespace {

void drop(AnimationEditor::FrameEditorWidget& editor, const QString& format, const QByteArray& payload,
          const QPoint& at)
{
    QMimeData mime;
    mime.setData(format, payload);
    QDragMoveEvent move(at, Qt::MoveAction, &mime, Qt::LeftButton, {});
    static_cast<QObject&>(editor).event(&move);
    QDropEvent dropped(at, Qt::MoveAction, &mime, Qt::LeftButton, {});
    static_cast<QObject&>(editor).event(&dropped);
}

QByteArray ints(std::initializer_list<qint32> values)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (qint32 value : values)
        stream << value;
    return bytes;
}

} // namespace

void TestAnimationEditors::drops_data()
{
    QTest::addColumn<bool>("sprite");
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("offset");
    QTest::newRow("a sprite reads one integer") << true << QPoint(130, 5) << 7 << 0;
    QTest::newRow("a tile reads two") << false << QPoint(70, 5) << 7 << 9;
    QTest::newRow("outside the cells nothing") << false << QPoint(500, 500) << 0 << 0;
}

void TestAnimationEditors::drops()
{
    QFETCH(bool, sprite);
    QFETCH(QPoint, at);
    QFETCH(int, index);
    QFETCH(int, offset);
    SpriteAnim spriteAnimation("walk");
    TileAnimation block;
    Animation& animation = sprite ? static_cast<Animation&>(spriteAnimation) : block;
    animation.setSize(QSize(2, 1));
    animation.addFrame();
    AnimationEditor::FrameEditorWidget editor;
    editor.setAnimation(&animation);
    const QString format = sprite ? "tintorel/sprite-drag-anim" : "tintorel/tile-drag-anim";
    QCOMPARE(editor.dragFormat(), format);
    drop(editor, format, ints({ 7, 9 }), at);
    const AnimationFrame::Cell cell = animation.frame(0)->cell(0, 1);
    QCOMPARE(cell.index, index);
    QCOMPARE(cell.offset, offset);
    QCOMPARE(editor.selectedCell(), index ? QPoint(1, 0) : QPoint(-1, -1));
}

void TestAnimationEditors::framesAndZoomStayInRange()
{
    TileAnimation block;
    block.addFrame();
    block.addFrame();
    AnimationEditor::FrameEditorWidget editor;
    editor.setAnimation(&block);
    editor.setCurrentFrame(-1);
    QCOMPARE(editor.currentFrame(), 0);
    editor.setCurrentFrame(1000);
    QCOMPARE(editor.currentFrame(), 1);
    for (int i = 0; i < 8; ++i)
        editor.zoomIn();
    QCOMPARE(editor.scale(), 64);
    for (int i = 0; i < 8; ++i)
        editor.zoomOut();
    QCOMPARE(editor.scale(), 1);

    AnimationControlWidget controls;
    QCOMPARE(controls.frameText(), QStringLiteral("Frame 1 of 1"));
    controls.setFrame(0, 0);
    QCOMPARE(controls.frameText(), QStringLiteral("Frame 0 of 0"));
    controls.setFrame(9, 4);
    QCOMPARE(controls.frameText(), QStringLiteral("Frame 4 of 4"));
}

void TestAnimationEditors::previewStepsAndWraps()
{
    TileAnimation block;
    for (int i = 0; i < 3; ++i)
        block.addFrame();
    block.setDelay(2);
    BlockEditor::AnimationEditorWidget editor;
    editor.setAnimation(&block);
    QCOMPARE(editor.player()->interval(), 60); // (delay + 1) * 20 ms
    block.setDelay(0);
    QCOMPARE(editor.player()->interval(), 20);
    editor.controls()->setChecked(AnimationControlWidget::Loop, false); // the block preview ignores it
    QList<int> frames;
    for (int i = 0; i < 4; ++i) {
        editor.animate();
        frames << editor.frameEditor()->currentFrame();
    }
    QCOMPARE(frames, (QList<int> { 1, 2, 0, 1 }));
    editor.play();
    QVERIFY(editor.player()->isPlaying());
    editor.setAnimation(nullptr); // a change of block stops it
    QVERIFY(!editor.player()->isPlaying());
}

void TestAnimationEditors::blockEditsAreStepsAndDeleteAsks()
{
    TileSet tiles(8);
    MapObjects blocks;
    blocks.setTileSet(&tiles);
    QUndoStack stack;
    EditRecorder recorder([&stack](const QUuid&) { return &stack; });
    recorder.trackBlocks(&blocks);
    BlockEditor::View view(&blocks);
    view.recordBlock = [&recorder, &blocks](TileAnimation* block) { recorder.tileAnimationChanged(block, blocks.id()); };
    view.addNewAnimation();
    auto* block = qobject_cast<TileAnimation*>(view.animationList()->selected());
    QVERIFY(block);
    QCOMPARE(block->name(), QStringLiteral("New Object"));
    QCOMPARE(view.editor()->animation().data(), block);

    drop(*view.editor()->frameEditor(), "tintorel/tile-drag-anim", ints({ 5, 2 }), QPoint(3, 3));
    QCOMPARE(block->frame(0)->cell(0, 0).index, 5);
    QCOMPARE(stack.count(), 1); // index and offset, one drop, one step
    QCOMPARE(stack.undoText(), QStringLiteral("Edit Frames"));
    stack.undo();
    QCOMPARE(block->frame(0)->cell(0, 0).index, 0);

    view.confirmDelete = [] { return false; };
    view.deleteAnimation();
    QCOMPARE(blocks.animations().size(), 1);
    QCOMPARE(view.editor()->animation().data(), block); // shown again
    QCOMPARE(view.animationList()->selected(), block);
    view.confirmDelete = [] { return true; };
    QSignalSpy removed(&view, &BlockEditor::View::animationRemoved);
    view.deleteAnimation();
    QCOMPARE(removed.count(), 1);
    QVERIFY(blocks.animations().isEmpty());
    view.cloneAnimation(nullptr); // with nothing selected, nothing
    QVERIFY(blocks.animations().isEmpty());
}

QTEST_MAIN(TestAnimationEditors)
#include "tst_animationeditors.moc"
