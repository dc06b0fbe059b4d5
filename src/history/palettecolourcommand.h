#pragma once
#include <QDateTime>
#include <QMap>
#include <QPointer>
#include <QUndoCommand>

class Palette;

// Colour edits of one palette as raw entries before and after. Edits that
// follow each other within MergeWindow ms merge, so a slider drag is one step.
class PaletteColourCommand : public QUndoCommand
{
public:
    using Entries = QMap<int, ushort>;
    static constexpr qint64 MergeWindow = 400;

    PaletteColourCommand(Palette* palette, const Entries& before, const Entries& after,
                         qint64 time = QDateTime::currentMSecsSinceEpoch(), QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

    Entries before() const { return mBefore; }
    Entries after() const { return mAfter; }
    qint64 time() const { return mTime; }

private:
    void apply(const Entries& entries);

    QPointer<Palette> mPalette;
    Entries mBefore;
    Entries mAfter;
    qint64 mTime = 0;
    // The edit has happened when the command is pushed, so the stack's first redo is skipped.
    bool mApplied = true;
};
