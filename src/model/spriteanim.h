#pragma once
#include "model/animation.h"

class SpriteBank;

// An animation of a sprite bank's sprites. The bank is its QObject parent,
// which is how a placed animation finds the pictures it draws.
class SpriteAnim : public Animation
{
    Q_OBJECT
public:
    explicit SpriteAnim(const QString& name, QObject* parent = nullptr);

    // Null when the animation is not (or no longer) in a bank.
    SpriteBank* bank() const;

protected:
    QImage cellImage(const AnimationFrame::Cell& cell) const override;
    int cellPixels() const override { return 16; }
};
