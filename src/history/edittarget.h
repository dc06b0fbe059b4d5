#pragma once
#include "history/pixeleditcommand.h"

// A view that holds pixels or cells and takes the canvas's finished edits,
// making each a command on its document's stack.
class EditTarget
{
public:
    virtual ~EditTarget() = default;
    virtual void pushEdit(const QString& text, const QImage& before, const QImage& after,
                          PixelEditCommand::Kind kind) = 0;
};
