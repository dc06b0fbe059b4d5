#pragma once
#include <QHash>
#include <QWidget>

class Animation;
class QListWidget;
class QListWidgetItem;
class QToolButton;

namespace AnimationEditor {

// The animations of a sprite bank or a block set, with buttons to add,
// delete and clone them. It only lists and asks; its holder changes the set.
class AnimationListWidget : public QWidget
{
    Q_OBJECT
public:
    enum Flag { NoFlags = 0, Details = 1 };
    Q_DECLARE_FLAGS(Flags, Flag)

    explicit AnimationListWidget(Flags flags = NoFlags, QWidget* parent = nullptr);

    // Replaces the entries, in the order given.
    void setAnimations(const QList<Animation*>& animations);
    void addAnimation(Animation* animation);
    void removeAnimation(Animation* animation);
    void select(Animation* animation);
    Animation* selected() const;
    QList<Animation*> animations() const;
    QListWidget* list() const { return mList; }
    QToolButton* addButton() const { return mAdd; }
    QToolButton* deleteButton() const { return mDelete; }
    QToolButton* cloneButton() const { return mClone; }

signals:
    void addRequested();
    void removeRequested();
    void cloneRequested(Animation* animation);
    void selectedItemChanged(Animation* animation);

private:
    void refresh(Animation* animation);
    QString textOf(const Animation* animation) const;

    Flags mFlags;
    QListWidget* mList;
    QToolButton* mAdd;
    QToolButton* mDelete;
    QToolButton* mClone;
    QHash<Animation*, QListWidgetItem*> mItems;
};

} // namespace AnimationEditor

Q_DECLARE_OPERATORS_FOR_FLAGS(AnimationEditor::AnimationListWidget::Flags)
