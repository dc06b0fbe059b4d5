#pragma once
#include "ui/dockwidget.h"

#include <QPointer>
#include <QUuid>

class Project;
class SpriteAnim;
class SpriteAnimSelector;

// The Map Sprites dock: the sprites and sprite animations of the project's
// banks, for the map editor to place.
class MapSpritesWindow : public DockWidget
{
    Q_OBJECT
public:
    explicit MapSpritesWindow(QWidget* parent = nullptr);

    void setProject(QPointer<Project> project);
    SpriteAnimSelector* selector() const { return mSelector; }

signals:
    void selectionChanged(QPointer<SpriteAnim> anim);
    void spriteChosen(QUuid bankId, int index);

private:
    void updateActive();

    QPointer<Project> mProject;
    SpriteAnimSelector* mSelector;
};
