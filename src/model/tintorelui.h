#pragma once
#include <QObject>

// Enumerations of the interface that the core also has to name (tools,
// image types, directions), kept here so no core header needs a widget.
namespace Tintorel {
namespace Ui {
Q_NAMESPACE

// Every tool and momentary action of the editors. Values below
// _end_toggles exclude each other within one tool palette.
enum ToolButton {
    Draw = 0,
    Line = 1,
    Rectangle = 2,
    RectangleFill = 3,
    Circle = 4,
    CircleFill = 5,
    Select = 6,
    Paste = 7,
    Fill = 8,
    Pick = 9,
    _end_toggles = 10,
    Resize = 11,
    Grid = 12,
    ZoomIn = 13,
    ZoomOut = 14,
    RotateCW = 15,
    RotateCCW = 16,
    MoveUp = 17,
    MoveDown = 18,
    MoveLeft = 19,
    MoveRight = 20,
    Cut = 21,
    Copy = 22,
    Crop = 23,
    Erase = 24,
    Flip = 25,
    Mirror = 26,
    PaintPalette = 27,
    Open = 28,
    Save = 29,
    AnimPlay = 30,
    AnimStop = 31,
    ExpandToFit = 32,
    PlaceAnim = 33,
    PlaceSprite = 34,
    ShrinkToFit = 35,
    ToggleViewport = 36,
};
Q_ENUM_NS(ToolButton)

enum class ImageType { Ula = 0, UlaPlus = 1, Offset16 = 2, Full256 = 3, Undefined = 4 };
Q_ENUM_NS(ImageType)

enum class Direction {
    None = 0,
    North = 1,
    NorthEast = 2,
    East = 3,
    SouthEast = 4,
    South = 5,
    SouthWest = 6,
    West = 7,
    NorthWest = 8,
};
Q_ENUM_NS(Direction)

enum class DialogPosition { TopCentre = 0, RightOf, LeftOf, Above, Below, Default = TopCentre };
Q_ENUM_NS(DialogPosition)

} // namespace Ui
} // namespace Tintorel
