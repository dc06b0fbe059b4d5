#pragma once
#include "history/pixeleditcommand.h"

// A view that holds pixels or cells and takes the canvas's finished edits,
// making each a command on its document's stack.
class EditTarget
{
public:
    // The canvas's kinds of edit: pixel moves of one picture merge into one
    // step, every other edit stands alone.
    enum CanvasKind { Painted = -1, Moved = 1 };

    virtual ~EditTarget() = default;
    virtual void pushEdit(const QString& text, const QImage& before, const QImage& after, int canvasKind) = 0;
};
