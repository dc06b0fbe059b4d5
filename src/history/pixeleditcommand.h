#pragma once
#include "history/undocommandids.h"

#include <QImage>
#include <QPointer>
#include <QUndoCommand>
#include <QVariant>
#include <functional>

// A painted change of one picture, as the picture before and after. The
// canvas has painted already when it pushes, so the first redo is skipped.
class PixelEditCommand : public QUndoCommand
{
public:
    // What was painted; the command's id, so only edits of one kind meet in mergeWith.
    enum Kind {
        Tile = UndoCommandId::TilePixels,
        Sprite = UndoCommandId::SpritePixels,
        Image = UndoCommandId::ImagePixels,
        Scratch = UndoCommandId::ScratchPixels,
    };
    using Apply = std::function<void(const QImage&)>;

    // `apply` is called only while `target`, the asset the picture belongs
    // to, lives. Edits merge when kind, target and a non-null key are equal.
    PixelEditCommand(const QString& text, QObject* target, Kind kind, const QImage& before, const QImage& after,
                     Apply apply, const QVariant& mergeKey = QVariant(), QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;
    int id() const override { return mKind; }
    bool mergeWith(const QUndoCommand* other) override;

    Kind kind() const { return mKind; }
    QImage before() const { return mBefore; }
    QImage after() const { return mAfter; }

private:
    QPointer<QObject> mTarget;
    Kind mKind;
    QImage mBefore;
    QImage mAfter;
    Apply mApply;
    QVariant mMergeKey;
    bool mApplied = true;
};
