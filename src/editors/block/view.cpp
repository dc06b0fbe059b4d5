#include "editors/block/view.h"

#include "editors/animation/animationlistwidget.h"
#include "editors/block/animationeditorwidget.h"
#include "editors/block/viewbuilder.h"
#include "model/mapobjects.h"
#include "model/tileanimation.h"

namespace BlockEditor {

View::View(QPointer<MapObjects> blocks, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent)
    , mBlocks(blocks)
{
    ViewBuilder(this).build();
}

View::~View() = default;

AnimationEditorWidget* View::editor() const
{
    return mEditor;
}

// The list follows the set: blocks come and go through it, and undo of a
// block's frames is the block's own business.
void View::fillList()
{
    if (!mBlocks)
        return;
    QList<Animation*> blocks;
    for (const QSharedPointer<TileAnimation>& block : mBlocks->animations())
        blocks << block.data();
    std::sort(blocks.begin(), blocks.end(), [](const Animation* a, const Animation* b) {
        return a->name() != b->name() ? a->name() < b->name() : a->id() < b->id();
    });
    const QPointer<Animation> selected = mList->selected();
    {
        const QSignalBlocker blocker(mList);
        mList->setAnimations(blocks);
    }
    if (selected && blocks.contains(selected.data()))
        mList->select(selected);
    else if (mEditor)
        mEditor->setAnimation(nullptr);
}

void View::addNewAnimation()
{
    if (!mBlocks)
        return;
    const QSharedPointer<TileAnimation> block = mBlocks->createTileAnimation(tr("New Object"));
    // Something to drop tiles on at once; told as part of the new block, so
    // that undo never takes the first frame away.
    block->addFrame();
    emit mBlocks->animationsChanged();
    mList->select(block.data());
    if (mEditor)
        mEditor->setAnimation(block.data());
    emit animationAdded(block.data());
}

void View::deleteAnimation()
{
    // The question is asked over an idle editor.
    if (mEditor) {
        mEditor->stop();
        mEditor->setAnimation(nullptr);
    }
    auto* block = qobject_cast<TileAnimation*>(mList->selected());
    if (!block || !mBlocks)
        return;
    if (confirmDelete && !confirmDelete()) {
        if (mEditor)
            mEditor->setAnimation(block);
        return;
    }
    const QUuid id = block->id();
    emit animationRemoved(block);
    mList->removeAnimation(block);
    mBlocks->removeTileAnimation(id);
}

void View::cloneAnimation(Animation* animation)
{
    if (!animation || !mBlocks)
        return;
    const QSharedPointer<TileAnimation> clone = mBlocks->copyTileAnimation(animation->id());
    if (!clone)
        return;
    mList->select(clone.data());
    if (mEditor)
        mEditor->setAnimation(clone.data());
    emit animationAdded(clone.data());
}

} // namespace BlockEditor
