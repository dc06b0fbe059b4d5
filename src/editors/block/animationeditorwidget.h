#pragma once
#include "editors/animation/animationcontrolwidget.h"
#include "model/tintorelui.h"

#include <QPointer>
#include <QWidget>

class BlockEditorToolBar;
class TileAnimation;
class ToolPalette;
class QToolButton;
namespace AnimationEditor {
class AnimationPlayer;
class FrameEditorWidget;
}

namespace BlockEditor {

// Edits one block: its name, type, size and delay, its frames as grids of
// tiles dropped from the tile list, and a preview that plays it.
class AnimationEditorWidget : public QWidget
{
    Q_OBJECT
public:
    explicit AnimationEditorWidget(QWidget* parent = nullptr);

    QPointer<TileAnimation> animation() const { return mAnimation; }
    AnimationEditor::FrameEditorWidget* frameEditor() const { return mFrames; }
    AnimationEditor::AnimationPlayer* player() const { return mPlayer; }
    AnimationControlWidget* controls() const { return mControls; }
    BlockEditorToolBar* toolBar() const { return mToolBar; }
    ToolPalette* tools() const { return mTools; }
    QToolButton* resetOffsetsButton() const { return mResetOffsets; }

public slots:
    void setAnimation(TileAnimation* anim);
    void play();
    void pause();
    void stop();
    void selectionChanged();
    void changeTileState(Tintorel::Ui::ToolButton button, bool checked);
    void mediaControlButtonClicked(AnimationControlWidget::Action action, bool checked);
    void setCurrentFrame(int index);
    void animate();
    void setAnimationDelay(int delay);
    // Gives every cell of every frame the palette offset of its tile.
    void resetOffsets();

signals:
    // Any edit of the block, for its undo step.
    void blockEdited(TileAnimation* block);

private:
    QPointer<TileAnimation> mAnimation;
    AnimationEditor::FrameEditorWidget* mFrames;
    AnimationControlWidget* mControls;
    AnimationEditor::AnimationPlayer* mPlayer;
    BlockEditorToolBar* mToolBar;
    ToolPalette* mTools;
    QToolButton* mResetOffsets;
};

} // namespace BlockEditor
