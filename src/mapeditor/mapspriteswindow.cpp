#include "mapeditor/mapspriteswindow.h"

#include "mapeditor/spriteanimselector.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "project/project.h"

MapSpritesWindow::MapSpritesWindow(QWidget* parent)
    : DockWidget(QStringLiteral("MapSpritesWindow"), tr("Map Sprites"), tr("No sprite banks"), parent)
    , mSelector(new SpriteAnimSelector)
{
    setContent(mSelector);
    connect(mSelector, &SpriteAnimSelector::selectionChanged, this, &MapSpritesWindow::selectionChanged);
    connect(mSelector, &SpriteAnimSelector::spriteChosen, this, &MapSpritesWindow::spriteChosen);
}

void MapSpritesWindow::setProject(QPointer<Project> project)
{
    if (mProject)
        disconnect(mProject, nullptr, this, nullptr);
    mProject = project;
    mSelector->setProject(project);
    if (mProject)
        connect(mProject, &Project::spritesCreated, this, &MapSpritesWindow::updateActive);
    updateActive();
}

// The placeholder stands while the project has no bank to choose from.
void MapSpritesWindow::updateActive()
{
    setActive(mProject && !mProject->spriteBanks().isEmpty());
}
