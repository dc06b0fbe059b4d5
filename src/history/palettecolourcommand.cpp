#include "history/palettecolourcommand.h"

#include "history/undocommandids.h"
#include "model/palette.h"

PaletteColourCommand::PaletteColourCommand(Palette* palette, const Entries& before, const Entries& after,
                                           qint64 time, QUndoCommand* parent)
    : QUndoCommand(QStringLiteral("Colour"), parent)
    , mPalette(palette)
    , mBefore(before)
    , mAfter(after)
    , mTime(time)
{
}

void PaletteColourCommand::undo()
{
    if (!mPalette)
        return;
    apply(mBefore);
    mApplied = false;
}

void PaletteColourCommand::redo()
{
    if (!mPalette || mApplied)
        return;
    apply(mAfter);
    mApplied = true;
}

int PaletteColourCommand::id() const
{
    return UndoCommandId::PaletteColour;
}

bool PaletteColourCommand::mergeWith(const QUndoCommand* other)
{
    const auto* next = dynamic_cast<const PaletteColourCommand*>(other);
    if (!next || !mPalette || next->mPalette != mPalette || next->mTime - mTime > MergeWindow)
        return false;
    for (auto it = next->mAfter.cbegin(); it != next->mAfter.cend(); ++it) {
        // The first edit of an index knows its value before the whole gesture.
        if (!mBefore.contains(it.key()) && next->mBefore.contains(it.key()))
            mBefore.insert(it.key(), next->mBefore.value(it.key()));
        mAfter.insert(it.key(), it.value());
    }
    mTime = next->mTime;
    // A drag that ends where it began is no step at all; the stack drops it.
    setObsolete(mBefore == mAfter);
    return true;
}

void PaletteColourCommand::apply(const Entries& entries)
{
    for (auto it = entries.cbegin(); it != entries.cend(); ++it)
        mPalette->restoreEntry(it.key(), it.value());
}
