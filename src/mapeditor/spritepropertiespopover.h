#pragma once
#include "model/map.h"

#include <QFrame>

namespace MapEditor {

class SpriteProperties;

// The sprite's fields in a pop-up beside the sprite on the map.
class SpritePropertiesPopover : public QFrame
{
    Q_OBJECT
public:
    explicit SpritePropertiesPopover(QWidget* parent = nullptr);

    SpriteProperties* properties() const { return mProperties; }
    // Beside `right` when it fits on the screen, else beside `left`.
    void showFor(const Map::PlacedSprite& sprite, const QPoint& left, const QPoint& right);

signals:
    void spriteEdited(Map::PlacedSprite sprite);

private:
    SpriteProperties* mProperties;
};

} // namespace MapEditor
