#include "editors/sprite/view.h"

#include "editors/animation/animationlistwidget.h"
#include "editors/animation/animationplayer.h"
#include "editors/animation/animationtoolbar.h"
#include "editors/animation/frameeditorwidget.h"
#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "ui/toolpalette.h"

#include <QAction>
#include <QDebug>
#include <QScrollArea>
#include <QVBoxLayout>

using Tintorel::Ui::ToolButton;

namespace SpriteEditor {

View::View(QPointer<SpriteBank> sprites, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent)
    , mBank(sprites)
{
    build();
    if (!mBank)
        return;
    fillList();
    connect(mBank, &SpriteBank::imageChanged, this, &View::spriteChanged);
    connect(mBank, &SpriteBank::restored, this, &View::fillList);
    connect(mBank, &SpriteBank::countChanged, this, [this] { mFrames->update(); });
    if (Palette* palette = mBank->palette())
        connect(palette, &Palette::colourChanged, this, &View::updatePalette);
}

View::~View() = default;

void View::build()
{
    mList = new AnimationEditor::AnimationListWidget(AnimationEditor::AnimationListWidget::Details);
    mFrames = new AnimationEditor::FrameEditorWidget;
    mFrames->setCellPainter([bank = mBank](const AnimationFrame::Cell& cell) {
        return bank ? bank->render(cell.index, cell.offset, cell.rotate, cell.flip, cell.mirror) : QImage();
    });
    mControls = new AnimationControlWidget;
    mPlayer = new AnimationEditor::AnimationPlayer(mFrames, mControls, true, this);
    mToolBar = new AnimationEditor::AnimationToolBar;
    mTools = new ToolPalette;
    mTools->addTools({ ToolButton::ZoomIn, ToolButton::ZoomOut, ToolButton::RotateCW, ToolButton::Flip,
                       ToolButton::Mirror });
    // Here they show and set the selected cell's state.
    for (ToolButton button : { ToolButton::RotateCW, ToolButton::Flip, ToolButton::Mirror })
        mTools->action(button)->setCheckable(true);

    auto* frameArea = new QScrollArea;
    frameArea->setWidget(mFrames);
    frameArea->setAlignment(Qt::AlignCenter);
    frameArea->setWidgetResizable(false);
    auto* editor = new QWidget;
    auto* layout = new QVBoxLayout(editor);
    layout->addWidget(mToolBar);
    layout->addWidget(mTools);
    layout->addWidget(frameArea, 1);
    layout->addWidget(mControls);
    addWidget(mList);
    addWidget(editor);
    setStretchFactor(1, 1);
    setSizes({ 220, 600 });

    connect(mList, &AnimationEditor::AnimationListWidget::addRequested, this, &View::addAnimation);
    connect(mList, &AnimationEditor::AnimationListWidget::removeRequested, this, &View::deleteAnimation);
    connect(mList, &AnimationEditor::AnimationListWidget::cloneRequested, this, &View::cloneAnimation);
    connect(mList, &AnimationEditor::AnimationListWidget::selectedItemChanged, this, &View::changeAnim);
    connect(mTools, &ToolPalette::actionActivated, this, &View::toolClicked);
    connect(mFrames, &AnimationEditor::FrameEditorWidget::selectedCellChanged, this, &View::updateToolPalette);
    connect(mToolBar, &AnimationEditor::AnimationToolBar::delayChanged, this, &View::setAnimationDelay);
}

void View::fillList()
{
    QList<Animation*> animations;
    for (const QSharedPointer<SpriteAnim>& animation : mBank->animations())
        animations << animation.data();
    std::sort(animations.begin(), animations.end(),
              [](const Animation* a, const Animation* b) { return a->name() < b->name(); });
    const QPointer<Animation> current = mCurrent;
    mList->setAnimations(animations);
    mList->select(animations.contains(current.data()) ? current.data() : nullptr);
    if (!animations.contains(current.data()))
        changeAnim(nullptr);
}

void View::structure(const QString& text, const std::function<void()>& change)
{
    if (!mBank)
        return;
    emit mBank->structureAboutToChange();
    change();
    emit mBank->structureChanged(text);
}

void View::addAnimation()
{
    SpriteAnim* made = nullptr;
    structure(tr("Add Animation"), [this, &made] {
        made = mBank->createAnimation(tr("New Animation"));
        made->addFrame(); // something to drop sprites on at once
    });
    if (!made)
        return;
    mList->addAnimation(made);
    mList->select(made);
}

void View::deleteAnimation()
{
    Animation* selected = mList->selected();
    if (!selected || !mBank)
        return;
    mPlayer->stop();
    changeAnim(nullptr);
    const QUuid id = selected->id();
    mList->removeAnimation(selected);
    structure(tr("Delete Animation"), [this, id] { mBank->removeAnimation(id); });
}

void View::cloneAnimation(Animation* animation)
{
    if (!animation || !mBank)
        return;
    SpriteAnim* made = nullptr;
    structure(tr("Clone Animation"), [this, &made, animation] { made = mBank->cloneAnimation(animation->id()); });
    if (!made)
        return;
    mList->addAnimation(made);
    mList->select(made);
}

void View::changeAnim(Animation* animation)
{
    if (mCurrent)
        disconnect(mCurrent, nullptr, this, nullptr);
    mCurrent = animation;
    mPlayer->setAnimation(animation);
    mToolBar->setAnimation(animation);
    updateToolPalette();
    auto* sprite = qobject_cast<SpriteAnim*>(animation);
    if (!sprite)
        return;
    // Every edit of the frames, size, delay or name becomes an undo step.
    const auto record = [this, sprite] {
        if (recordFrames)
            recordFrames(sprite);
    };
    connect(sprite, &Animation::frameChanged, this, record);
    connect(sprite, &Animation::contentChanged, this, record);
    connect(sprite, &Animation::sizeChanged, this, record);
    connect(sprite, &Animation::delayChanged, this, record);
    connect(sprite, &Animation::nameChanged, this, record);
}

void View::animButtonClicked(AnimationControlWidget::Action action, bool checked)
{
    mPlayer->buttonClicked(action, checked);
}

void View::spriteChanged(int)
{
    mFrames->update();
}

void View::setAnimationDelay(int delay)
{
    mPlayer->setAnimationDelay(delay);
}

void View::animate()
{
    mPlayer->animate();
}

void View::updateToolPalette()
{
    const QPoint cell = mFrames->selectedCell();
    const QSharedPointer<AnimationFrame> frame = mCurrent ? mCurrent->frame(mFrames->currentFrame()) : nullptr;
    const AnimationFrame::Cell state = frame ? frame->cell(cell.y(), cell.x()) : AnimationFrame::Cell();
    mTools->action(ToolButton::RotateCW)->setChecked(state.rotate);
    mTools->action(ToolButton::Flip)->setChecked(state.flip);
    mTools->action(ToolButton::Mirror)->setChecked(state.mirror);
}

void View::updatePalette(int, const QColor&, bool)
{
    mFrames->update();
}

void View::toolClicked(ToolButton button, bool checked)
{
    if (!mFrames->applyTool(button, checked))
        qWarning() << "Unhandled sprite tool" << button;
}

} // namespace SpriteEditor
