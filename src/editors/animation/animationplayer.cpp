#include "editors/animation/animationplayer.h"

#include "editors/animation/frameeditorwidget.h"
#include "model/animation.h"

namespace AnimationEditor {

AnimationPlayer::AnimationPlayer(FrameEditorWidget* frames, AnimationControlWidget* controls,
                                 bool honourLoopAndPingPong, QObject* parent)
    : QObject(parent)
    , mFrames(frames)
    , mControls(controls)
    , mHonourLoop(honourLoopAndPingPong)
{
    mTimer.setTimerType(Qt::PreciseTimer);
    connect(&mTimer, &QTimer::timeout, this, &AnimationPlayer::animate);
    connect(mControls, &AnimationControlWidget::buttonClicked, this, &AnimationPlayer::buttonClicked);
    connect(mFrames, &FrameEditorWidget::currentFrameChanged, this, &AnimationPlayer::updateLabel);
    if (mHonourLoop)
        mControls->setChecked(AnimationControlWidget::Loop, true);
}

void AnimationPlayer::setAnimation(Animation* animation)
{
    stop();
    if (mAnimation)
        disconnect(mAnimation, nullptr, this, nullptr);
    mAnimation = animation;
    mFrames->setAnimation(animation);
    mFrames->setCurrentFrame(0);
    if (mAnimation) {
        connect(mAnimation, &Animation::delayChanged, this, &AnimationPlayer::setAnimationDelay);
        connect(mAnimation, &Animation::contentChanged, this, &AnimationPlayer::updateLabel);
        connect(mAnimation, &Animation::restored, this, &AnimationPlayer::updateLabel);
        setAnimationDelay(mAnimation->delay());
    }
    updateLabel();
}

void AnimationPlayer::updateLabel()
{
    const int total = mAnimation ? mAnimation->frameCount() : 1;
    mControls->setFrame(mFrames->currentFrame() + 1, total);
}

void AnimationPlayer::setAnimationDelay(int delay)
{
    mTimer.setInterval((delay + 1) * 20);
}

void AnimationPlayer::play()
{
    if (!mAnimation)
        return;
    mControls->setChecked(AnimationControlWidget::Pause, false);
    mTimer.start();
}

void AnimationPlayer::pause()
{
    mTimer.stop();
}

void AnimationPlayer::stop()
{
    mTimer.stop();
    mControls->setChecked(AnimationControlWidget::Pause, false);
    mDirection = 1;
}

void AnimationPlayer::showFrame(int index)
{
    mFrames->setCurrentFrame(index);
}

void AnimationPlayer::animate()
{
    if (!mAnimation || mAnimation->frameCount() == 0)
        return;
    const int count = mAnimation->frameCount();
    const int current = mFrames->currentFrame();
    if (!mHonourLoop) {
        showFrame((current + 1) % count);
        return;
    }
    const bool pingPong = mControls->action(AnimationControlWidget::PingPong)->isChecked();
    const bool loop = mControls->action(AnimationControlWidget::Loop)->isChecked();
    int next = current + mDirection;
    if (next >= count || next < 0) {
        if (!loop && !pingPong) {
            stop();
            return;
        }
        if (pingPong) {
            mDirection = -mDirection;
            next = qBound(0, current + mDirection, count - 1);
        } else {
            next = 0;
        }
    }
    showFrame(next);
}

void AnimationPlayer::buttonClicked(AnimationControlWidget::Action action, bool checked)
{
    const int last = mAnimation ? mAnimation->frameCount() - 1 : 0;
    switch (action) {
    case AnimationControlWidget::First: showFrame(0); break;
    case AnimationControlWidget::Previous: showFrame(mFrames->currentFrame() - 1); break;
    case AnimationControlWidget::Play: play(); break;
    case AnimationControlWidget::Pause: checked ? pause() : play(); break;
    case AnimationControlWidget::Stop:
        stop();
        showFrame(0);
        break;
    case AnimationControlWidget::Next: showFrame(mFrames->currentFrame() + 1); break;
    case AnimationControlWidget::Last: showFrame(last); break;
    case AnimationControlWidget::AddFrame: mFrames->addFrame(); break;
    case AnimationControlWidget::DeleteFrame: mFrames->deleteCurrentFrame(); break;
    case AnimationControlWidget::Loop:
    case AnimationControlWidget::PingPong: break;
    }
    updateLabel();
}

} // namespace AnimationEditor
