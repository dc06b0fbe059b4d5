#include "history/pixeleditcommand.h"

#include "model/indexedpixels.h"

PixelEditCommand::PixelEditCommand(const QString& text, QObject* target, Kind kind, const QImage& before,
                                   const QImage& after, Apply apply, const QVariant& mergeKey, QUndoCommand* parent)
    : QUndoCommand(text, parent)
    , mTarget(target)
    , mKind(kind)
    , mBefore(before)
    , mAfter(after)
    , mApply(std::move(apply))
    , mMergeKey(mergeKey)
{
}

void PixelEditCommand::undo()
{
    if (!mTarget || !mApply)
        return;
    mApply(mBefore);
    mApplied = false;
}

void PixelEditCommand::redo()
{
    if (!mTarget || !mApply || mApplied)
        return;
    mApply(mAfter);
    mApplied = true;
}

bool PixelEditCommand::mergeWith(const QUndoCommand* other)
{
    const auto* next = dynamic_cast<const PixelEditCommand*>(other);
    // Without a key every stroke stands alone; an editor that wants a run of
    // edits to be one step (a nudge, say) gives them a key.
    if (!next || next->mKind != mKind || !mTarget || next->mTarget != mTarget || !mMergeKey.isValid()
        || next->mMergeKey != mMergeKey)
        return false;
    mAfter = next->mAfter;
    setObsolete(sameIndexedPixels(mBefore, mAfter));
    return true;
}
