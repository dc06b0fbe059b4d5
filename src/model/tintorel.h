#pragma once
#include <QObject>

// Enumerations shared by the model and the interface.
namespace Tintorel {
Q_NAMESPACE

enum class Sprite { FourBit = 0, EightBit = 1 };
Q_ENUM_NS(Sprite)

enum class Position { Begin = 0, End = 1 };
Q_ENUM_NS(Position)

enum class ImageMode {
    Layer2_256x192 = 0,
    Layer2_320x256 = 1,
    Layer2_640x256 = 2,
    LoRes_128x96 = 3,
};
Q_ENUM_NS(ImageMode)

} // namespace Tintorel
