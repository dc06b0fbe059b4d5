#include "model/animationproperties.h"

#include <QtGlobal>

AnimationProperties::AnimationProperties(QObject* parent)
    : QObject(parent)
{
}

AnimationProperties::AnimationProperties(const QRect& rect, const QUuid& animationId, QObject* parent)
    : QObject(parent)
    , mAnimationId(animationId)
    , mRect(rect)
{
}

int AnimationProperties::frameAt(int frameCount, int delay, int tick) const
{
    if (frameCount < 1)
        return 0;
    const int start = qBound(0, mStartFrame, frameCount - 1);
    if (delay < 1 || tick < mInitialDelay)
        return start;
    // In 64 bits: frameCount * delay and the distance from a negative
    // initial delay can both pass the range of an int.
    const qint64 cycle = qint64(frameCount) * delay;
    const qint64 gap = qMax(mRepeatDelay, 0);
    const qint64 t = (qint64(tick) - mInitialDelay) % (cycle + gap);
    const qint64 p = t < cycle ? t / delay : frameCount - 1;
    return int((p + start) % frameCount);
}
