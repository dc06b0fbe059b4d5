#include "model/spriteanim.h"

#include "model/spritebank.h"

SpriteAnim::SpriteAnim(const QString& name, QObject* parent)
    : Animation(SpriteType, name, parent)
{
}

SpriteBank* SpriteAnim::bank() const
{
    return qobject_cast<SpriteBank*>(parent());
}

QImage SpriteAnim::cellImage(const AnimationFrame::Cell& cell) const
{
    const SpriteBank* sprites = bank();
    return sprites ? sprites->render(cell.index, cell.offset, cell.rotate, cell.flip, cell.mirror)
                   : QImage();
}
