#include "model/animatedblocks.h"

#include "model/animationproperties.h"

AnimatedBlocks::AnimatedBlocks(QObject* parent)
    : QObject(parent)
{
}

QSharedPointer<AnimationProperties> AnimatedBlocks::add(const QRect& rect, const QUuid& animationId)
{
    QSharedPointer<AnimationProperties> block(new AnimationProperties(rect, animationId));
    mBlocks.append(block);
    return block;
}

QSharedPointer<AnimationProperties> AnimatedBlocks::at(const QRect& rect) const
{
    for (const QSharedPointer<AnimationProperties>& block : mBlocks) {
        if (block->rect() == rect)
            return block;
    }
    return {};
}

QSharedPointer<AnimationProperties> AnimatedBlocks::find(const QPoint& cell) const
{
    for (const QSharedPointer<AnimationProperties>& block : mBlocks) {
        if (block->rect().contains(cell))
            return block;
    }
    return {};
}

QRect AnimatedBlocks::rectAt(const QPoint& cell) const
{
    const QSharedPointer<AnimationProperties> block = find(cell);
    return block ? block->rect() : QRect();
}

bool AnimatedBlocks::removeInRect(const QRect& rect)
{
    if (!rect.isValid())
        return false;
    return mBlocks.removeIf([&rect](const QSharedPointer<AnimationProperties>& block) {
        return rect.contains(block->rect());
    }) > 0;
}

void AnimatedBlocks::clear()
{
    mBlocks.clear();
}
