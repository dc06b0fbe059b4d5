#pragma once
#include <QPointer>
#include <QSplitter>
#include <functional>

class Animation;
class MapObjects;
class TileAnimation;
namespace AnimationEditor {
class AnimationListWidget;
}

namespace BlockEditor {

class AnimationEditorWidget;

// The tab of a block set: the list of its blocks beside the editor of the
// chosen one.
class View : public QSplitter
{
    Q_OBJECT
public:
    explicit View(QPointer<MapObjects> blocks, QWidget* parent = nullptr);
    ~View() override;

    QPointer<MapObjects> blocks() const { return mBlocks; }
    AnimationEditor::AnimationListWidget* animationList() const { return mList; }
    AnimationEditorWidget* editor() const;

    // Asked before a block is removed; true goes on. Set by whoever shows
    // the view; a test answers without a box.
    std::function<bool()> confirmDelete;
    // Called after each edit of a block, for its undo step.
    std::function<void(TileAnimation* block)> recordBlock;

public slots:
    void addNewAnimation();
    void deleteAnimation();
    void cloneAnimation(Animation* animation);

signals:
    void tileDoubleClicked(int index);
    void animationRemoved(TileAnimation* animation);
    void animationAdded(TileAnimation* animation);

private:
    friend class ViewBuilder;
    void fillList();

    QPointer<MapObjects> mBlocks;
    AnimationEditor::AnimationListWidget* mList = nullptr;
    QPointer<AnimationEditorWidget> mEditor;
};

} // namespace BlockEditor
