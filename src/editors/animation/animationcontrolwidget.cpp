#include "editors/animation/animationcontrolwidget.h"

#include "ui/themedicon.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace {

struct Button
{
    AnimationControlWidget::Action action;
    const char* tip;
    const char* icon;
    bool checkable;
};

const Button kButtons[] = {
    { AnimationControlWidget::First, QT_TRANSLATE_NOOP("AnimationControlWidget", "Goto first frame"), ":Media/Start", false },
    { AnimationControlWidget::Previous, QT_TRANSLATE_NOOP("AnimationControlWidget", "Previous frame"), ":Arrow/W", false },
    { AnimationControlWidget::Play, QT_TRANSLATE_NOOP("AnimationControlWidget", "Play"), ":Media/Play", false },
    { AnimationControlWidget::Pause, QT_TRANSLATE_NOOP("AnimationControlWidget", "Pause playback"), ":Media/Pause", true },
    { AnimationControlWidget::Stop, QT_TRANSLATE_NOOP("AnimationControlWidget", "Stop"), ":Media/Stop", false },
    { AnimationControlWidget::Next, QT_TRANSLATE_NOOP("AnimationControlWidget", "Next frame"), ":Arrow/E", false },
    { AnimationControlWidget::Last, QT_TRANSLATE_NOOP("AnimationControlWidget", "Goto last frame"), ":Media/End", false },
    { AnimationControlWidget::AddFrame, QT_TRANSLATE_NOOP("AnimationControlWidget", "Add a frame"), ":NewIcon", false },
    { AnimationControlWidget::DeleteFrame, QT_TRANSLATE_NOOP("AnimationControlWidget", "Delete current frame"), ":Trashcan",
      false },
    { AnimationControlWidget::Loop, QT_TRANSLATE_NOOP("AnimationControlWidget", "Loop"), ":Media/Loop", true },
    { AnimationControlWidget::PingPong, QT_TRANSLATE_NOOP("AnimationControlWidget", "Ping pong"), ":Media/PingPong", true },
};

} // namespace

AnimationControlWidget::AnimationControlWidget(QWidget* parent)
    : QWidget(parent)
    , mFrame(new QLabel(tr("Frame 1 of 1"), this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    for (const Button& button : kButtons) {
        auto* action = new QAction(themedIcon(QString::fromLatin1(button.icon)), tr(button.tip), this);
        action->setCheckable(button.checkable);
        connect(action, &QAction::triggered, this,
                [this, which = button.action](bool checked) { emit buttonClicked(which, checked); });
        mActions.insert(button.action, action);
        auto* tool = new QToolButton(this);
        tool->setDefaultAction(action);
        tool->setAutoRaise(true);
        tool->setIconSize(QSize(20, 20));
        layout->addWidget(tool);
        // The frame number sits between the transport and the frame list buttons.
        if (button.action == Last)
            layout->addWidget(mFrame);
    }
    layout->addStretch();
}

QString AnimationControlWidget::frameText() const
{
    return mFrame->text();
}

void AnimationControlWidget::setFrame(int frame, int total)
{
    frame = qMin(qMax(frame, 1), total);
    mFrame->setText(tr("Frame %1 of %2").arg(frame).arg(total));
}

void AnimationControlWidget::setChecked(Action action, bool checked)
{
    if (QAction* made = mActions.value(action))
        made->setChecked(checked);
}
