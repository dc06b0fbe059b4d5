#pragma once
#include <QObject>
#include <QRect>
#include <QUuid>

// One placement of a block on a map: where it stands, in cells, and how its
// frames are timed there.
class AnimationProperties : public QObject
{
    Q_OBJECT
public:
    explicit AnimationProperties(QObject* parent = nullptr);
    AnimationProperties(const QRect& rect, const QUuid& animationId, QObject* parent = nullptr);

    QUuid animationId() const { return mAnimationId; }
    void setAnimationId(const QUuid& id) { mAnimationId = id; }
    QRect rect() const { return mRect; }
    void setRect(const QRect& rect) { mRect = rect; }
    int startFrame() const { return mStartFrame; }
    void setStartFrame(int frame) { mStartFrame = frame; }
    int initialDelay() const { return mInitialDelay; }
    void setInitialDelay(int ticks) { mInitialDelay = ticks; }
    int repeatDelay() const { return mRepeatDelay; }
    void setRepeatDelay(int ticks) { mRepeatDelay = ticks; }

    // The frame this placement shows at a clock tick: after `initialDelay`
    // it plays from `startFrame`, then holds the last step for `repeatDelay`.
    int frameAt(int frameCount, int delay, int tick) const;

private:
    QUuid mAnimationId;
    QRect mRect;
    int mStartFrame = 0;
    int mInitialDelay = 0;
    int mRepeatDelay = 0;
};
