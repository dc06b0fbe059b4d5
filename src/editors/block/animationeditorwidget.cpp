#include "editors/block/animationeditorwidget.h"

#include "editors/animation/animationplayer.h"
#include "editors/animation/frameeditorwidget.h"
#include "editors/block/blockeditortoolbar.h"
#include "model/tileanimation.h"
#include "model/tileset.h"
#include "ui/themedicon.h"
#include "ui/toolpalette.h"

#include <QAction>
#include <QDebug>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

using Tintorel::Ui::ToolButton;

namespace BlockEditor {

AnimationEditorWidget::AnimationEditorWidget(QWidget* parent)
    : QWidget(parent)
    , mFrames(new AnimationEditor::FrameEditorWidget)
    , mControls(new AnimationControlWidget)
    , mPlayer(new AnimationEditor::AnimationPlayer(mFrames, mControls, false, this))
    , mToolBar(new BlockEditorToolBar)
    , mTools(new ToolPalette)
    , mResetOffsets(new QToolButton)
{
    mFrames->setCellPainter([this](const AnimationFrame::Cell& cell) {
        const QPointer<TileSet> tiles = mAnimation ? mAnimation->tileSet() : nullptr;
        return tiles ? tiles->render(cell.index, cell.rotate, cell.flip, cell.mirror, cell.offset) : QImage();
    });
    mTools->addTools({ ToolButton::ZoomIn, ToolButton::ZoomOut, ToolButton::RotateCW, ToolButton::Flip,
                       ToolButton::Mirror });
    for (ToolButton button : { ToolButton::RotateCW, ToolButton::Flip, ToolButton::Mirror })
        mTools->action(button)->setCheckable(true);
    mResetOffsets->setIcon(themedIcon(QStringLiteral(":/Palette")));
    mResetOffsets->setIconSize(QSize(32, 32));
    mResetOffsets->setAutoRaise(true);
    mResetOffsets->setToolTip(tr("Update palette offsets to default values"));

    auto* tools = new QHBoxLayout;
    tools->addWidget(mTools, 1);
    tools->addWidget(mResetOffsets, 0, Qt::AlignTop);
    auto* frameArea = new QScrollArea;
    frameArea->setWidget(mFrames);
    frameArea->setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mToolBar);
    layout->addLayout(tools);
    layout->addWidget(frameArea, 1);
    layout->addWidget(mControls);

    connect(mTools, &ToolPalette::actionActivated, this, &AnimationEditorWidget::changeTileState);
    connect(mFrames, &AnimationEditor::FrameEditorWidget::selectedCellChanged, this,
            &AnimationEditorWidget::selectionChanged);
    connect(mResetOffsets, &QToolButton::clicked, this, &AnimationEditorWidget::resetOffsets);
    setEnabled(false);
}

void AnimationEditorWidget::setAnimation(TileAnimation* anim)
{
    stop();
    if (mAnimation)
        disconnect(mAnimation, nullptr, this, nullptr);
    mAnimation = anim;
    mPlayer->setAnimation(anim);
    mToolBar->setAnimation(anim);
    setEnabled(mAnimation);
    selectionChanged();
    if (!mAnimation)
        return;
    const auto edited = [this] { emit blockEdited(mAnimation); };
    connect(mAnimation, &Animation::frameChanged, this, edited);
    connect(mAnimation, &Animation::contentChanged, this, edited);
    connect(mAnimation, &Animation::sizeChanged, this, edited);
    connect(mAnimation, &Animation::delayChanged, this, edited);
    connect(mAnimation, &Animation::nameChanged, this, edited);
}

void AnimationEditorWidget::play()
{
    mPlayer->play();
}

void AnimationEditorWidget::pause()
{
    mPlayer->pause();
}

void AnimationEditorWidget::stop()
{
    mPlayer->stop();
}

void AnimationEditorWidget::animate()
{
    mPlayer->animate();
}

void AnimationEditorWidget::setAnimationDelay(int delay)
{
    mPlayer->setAnimationDelay(delay);
}

void AnimationEditorWidget::setCurrentFrame(int index)
{
    mFrames->setCurrentFrame(index);
}

void AnimationEditorWidget::mediaControlButtonClicked(AnimationControlWidget::Action action, bool checked)
{
    mPlayer->buttonClicked(action, checked);
}

// The tool palette shows the selected cell's turn, flip and mirror.
void AnimationEditorWidget::selectionChanged()
{
    const QPoint cell = mFrames->selectedCell();
    const QSharedPointer<AnimationFrame> frame = mAnimation ? mAnimation->frame(mFrames->currentFrame()) : nullptr;
    const AnimationFrame::Cell state = frame ? frame->cell(cell.y(), cell.x()) : AnimationFrame::Cell();
    mTools->action(ToolButton::RotateCW)->setChecked(state.rotate);
    mTools->action(ToolButton::Flip)->setChecked(state.flip);
    mTools->action(ToolButton::Mirror)->setChecked(state.mirror);
}

void AnimationEditorWidget::changeTileState(ToolButton button, bool checked)
{
    if (!mFrames->applyTool(button, checked))
        qWarning() << "Unhandled block tool" << button;
}

void AnimationEditorWidget::resetOffsets()
{
    const QPointer<TileSet> tiles = mAnimation ? mAnimation->tileSet() : nullptr;
    if (!tiles)
        return;
    for (int frame = 0; frame < mAnimation->frameCount(); ++frame)
        for (int number = 0; number < mAnimation->width() * mAnimation->height(); ++number) {
            const AnimationFrame::Cell cell =
                mAnimation->frame(frame)->cell(number / mAnimation->width(), number % mAnimation->width());
            mAnimation->setOffset(frame, number, tiles->tileOffset(cell.index));
        }
}

} // namespace BlockEditor
