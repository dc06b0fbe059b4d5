#pragma once
#include "editors/animation/animationcontrolwidget.h"
#include "model/tintorelui.h"

#include <QColor>
#include <QPointer>
#include <QSplitter>
#include <functional>

class Animation;
class SpriteAnim;
class SpriteBank;
class ToolPalette;
namespace AnimationEditor {
class AnimationListWidget;
class AnimationPlayer;
class AnimationToolBar;
class FrameEditorWidget;
}

namespace SpriteEditor {

// The tab of a sprite bank: its animations, one frame of the chosen one as
// a grid of sprites dropped from the sprite list, and their playing.
class View : public QSplitter
{
    Q_OBJECT
public:
    explicit View(QPointer<SpriteBank> sprites, QWidget* parent = nullptr);
    ~View() override;

    QPointer<SpriteBank> sprites() const { return mBank; }
    AnimationEditor::AnimationListWidget* animationList() const { return mList; }
    AnimationEditor::FrameEditorWidget* frameEditor() const { return mFrames; }
    AnimationEditor::AnimationPlayer* player() const { return mPlayer; }
    AnimationEditor::AnimationToolBar* toolBar() const { return mToolBar; }
    ToolPalette* tools() const { return mTools; }

    // Called after each edit of an animation, for its undo step.
    std::function<void(SpriteAnim* animation)> recordFrames;

public slots:
    void addAnimation();
    void changeAnim(Animation* animation);
    void animButtonClicked(AnimationControlWidget::Action action, bool checked);
    void deleteAnimation();
    void spriteChanged(int index);
    void setAnimationDelay(int delay);
    void animate();
    void updateToolPalette();
    void updatePalette(int index, const QColor& colour, bool priority);
    void cloneAnimation(Animation* animation);
    void toolClicked(Tintorel::Ui::ToolButton button, bool checked);

private:
    void build();
    void fillList();
    // One structural step of the bank: its animations are part of its snapshot.
    void structure(const QString& text, const std::function<void()>& change);

    QPointer<SpriteBank> mBank;
    QPointer<Animation> mCurrent;
    AnimationEditor::AnimationListWidget* mList = nullptr;
    AnimationEditor::FrameEditorWidget* mFrames = nullptr;
    AnimationControlWidget* mControls = nullptr;
    AnimationEditor::AnimationPlayer* mPlayer = nullptr;
    AnimationEditor::AnimationToolBar* mToolBar = nullptr;
    ToolPalette* mTools = nullptr;
};

} // namespace SpriteEditor
