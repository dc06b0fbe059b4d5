#pragma once
#include "editors/animation/animationcontrolwidget.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class Animation;

namespace AnimationEditor {

class FrameEditorWidget;

// Plays an animation in a frame editor and answers its media buttons: one
// step every (delay + 1) * 20 milliseconds, back to the first frame after
// the last. Loop and ping-pong are honoured only where the holder asks.
class AnimationPlayer : public QObject
{
    Q_OBJECT
public:
    AnimationPlayer(FrameEditorWidget* frames, AnimationControlWidget* controls, bool honourLoopAndPingPong,
                    QObject* parent = nullptr);

    void setAnimation(Animation* animation);
    bool isPlaying() const { return mTimer.isActive(); }
    int interval() const { return mTimer.interval(); }

public slots:
    void play();
    void pause();
    void stop();
    // One step of the playing.
    void animate();
    void setAnimationDelay(int delay);
    void buttonClicked(AnimationControlWidget::Action action, bool checked);

private:
    void showFrame(int index);
    void updateLabel();

    FrameEditorWidget* mFrames;
    AnimationControlWidget* mControls;
    bool mHonourLoop;
    QPointer<Animation> mAnimation;
    QTimer mTimer;
    int mDirection = 1;
};

} // namespace AnimationEditor
