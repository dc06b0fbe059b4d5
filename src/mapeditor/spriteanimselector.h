#pragma once
#include <QPointer>
#include <QUuid>
#include <QWidget>

class Project;
class QComboBox;
class QLabel;
class QListWidget;
class SpriteAnim;
class SpriteBank;
namespace AnimationEditor {
class AnimationListWidget;
}

// Chooses what the map editor places: a sprite animation or a single sprite
// of one of the project's banks.
class SpriteAnimSelector : public QWidget
{
    Q_OBJECT
public:
    explicit SpriteAnimSelector(QWidget* parent = nullptr);

    void setProject(QPointer<Project> project);
    QPointer<SpriteBank> bank() const { return mBank; }
    QComboBox* bankCombo() const { return mBanks; }
    AnimationEditor::AnimationListWidget* animationList() const { return mAnimations; }
    QListWidget* spriteList() const { return mSprites; }
    QLabel* messageLabel() const { return mMessage; }

signals:
    void selectionChanged(QPointer<SpriteAnim> anim);
    void spriteChosen(QUuid bankId, int index);

private:
    void fillBanks();
    void showBank(int index);
    void fillBank();

    QPointer<Project> mProject;
    QPointer<SpriteBank> mBank;
    QComboBox* mBanks;
    AnimationEditor::AnimationListWidget* mAnimations;
    QLabel* mMessage;
    QListWidget* mSprites;
};
