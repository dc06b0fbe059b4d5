#pragma once

// Every QUndoCommand::id() in the program. A stack tries to merge two
// commands only when their ids are equal, so each kind of target has its own.
namespace UndoCommandId {
enum Id : int {
    PaletteColour = 1001,
    TileAnimationFrames = 1002,
    SpriteAnimationFrames = 1003,
    TileSetStructure = 1004,
    SpriteBankStructure = 1005,

    // Pixel edits: the id of a PixelEditCommand is its Kind.
    TilePixels = 1101,
    SpritePixels = 1102,
    ImagePixels = 1103,
    ScratchPixels = 1104,
};
} // namespace UndoCommandId
