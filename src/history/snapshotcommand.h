#pragma once
#include <QDateTime>
#include <QPointer>
#include <QUndoCommand>
#include <functional>

// A structural edit undone by whole snapshots: `apply` restores the target
// to `before` or `after`. Child commands (the dependants that followed the
// edit) run after the target in both directions.
template<typename T>
class SnapshotCommand : public QUndoCommand
{
public:
    // Called only while the target lives; it should touch nothing else.
    using Apply = std::function<void(const T&)>;

    // A negative merge window merges any two edits of the target; 0 only
    // those of the same millisecond.
    SnapshotCommand(const QString& text, QObject* target, const T& before, const T& after, Apply apply, int id,
                    qint64 mergeWindow, qint64 time = QDateTime::currentMSecsSinceEpoch(),
                    QUndoCommand* parent = nullptr)
        : QUndoCommand(text, parent)
        , mTarget(target)
        , mBefore(before)
        , mAfter(after)
        , mApply(std::move(apply))
        , mId(id)
        , mMergeWindow(mergeWindow)
        , mTime(time)
    {
    }

    void undo() override
    {
        if (!mTarget)
            return;
        mApply(mBefore);
        mApplied = false;
        QUndoCommand::undo();
    }

    void redo() override
    {
        // The target holds `after` already when the command is pushed.
        if (!mTarget || mApplied)
            return;
        mApply(mAfter);
        mApplied = true;
        QUndoCommand::redo();
    }

    int id() const override { return mId; }

    bool mergeWith(const QUndoCommand* other) override
    {
        const auto* next = dynamic_cast<const SnapshotCommand<T>*>(other);
        if (!next || !mTarget || next->mTarget != mTarget)
            return false;
        if (mMergeWindow >= 0 && mMergeWindow < next->mTime - mTime)
            return false;
        // Children can't move between commands, so an edit with dependants stays whole.
        if (childCount() > 0 || next->childCount() > 0)
            return false;
        mAfter = next->mAfter;
        mTime = next->mTime;
        setObsolete(mBefore == mAfter);
        return true;
    }

    QObject* target() const { return mTarget; }
    const T& before() const { return mBefore; }
    const T& after() const { return mAfter; }
    qint64 time() const { return mTime; }

private:
    QPointer<QObject> mTarget;
    T mBefore;
    T mAfter;
    Apply mApply;
    int mId = -1;
    qint64 mMergeWindow = 0;
    qint64 mTime = 0;
    bool mApplied = true;
};
