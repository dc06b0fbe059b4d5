#pragma once
#include "model/map.h"

#include <QWidget>

class QCheckBox;
class QLineEdit;
class QSpinBox;

namespace MapEditor {

// The fields of one placed sprite: each change is sent at once, as one
// edit, and only when a field really changed.
class SpriteProperties : public QWidget
{
    Q_OBJECT
public:
    explicit SpriteProperties(QWidget* parent = nullptr);

    // Loads a sprite without sending anything; null disables the form.
    void setSprite(const Map::PlacedSprite* sprite);
    Map::PlacedSprite sprite() const { return mSprite; }

signals:
    void spriteEdited(Map::PlacedSprite sprite);

private:
    void read();

    Map::PlacedSprite mSprite;
    bool mLoading = false;
    QLineEdit* mName;
    QCheckBox* mMirror;
    QCheckBox* mFlip;
    QCheckBox* mRotate;
    QSpinBox* mStartFrame;
    QSpinBox* mInitialDelay;
    QSpinBox* mRepeatDelay;
    QSpinBox* mPaletteOffset;
};

} // namespace MapEditor
