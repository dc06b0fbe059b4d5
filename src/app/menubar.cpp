#include "app/menubar.h"

#include "app/editmenu.h"
#include "app/filemenu.h"
#include "app/helpmenu.h"
#include "app/imagemenu.h"
#include "app/mapmenu.h"
#include "app/palettemenu.h"
#include "app/spritemenu.h"
#include "app/tilemenu.h"
#include "app/viewmenu.h"
#include "project/project.h"

MenuBar::MenuBar(QWidget* parent)
    : QMenuBar(parent)
    , mFiles(parent)
    , mFileMenu(new FileMenu(&mFiles, this))
    , mEditMenu(new EditMenu(this))
    , mViewMenu(new ViewMenu(this))
    , mTileMenu(new TileMenu(&mFiles, this))
    , mSpriteMenu(new SpriteMenu(&mFiles, this))
    , mPaletteMenu(new PaletteMenu(&mFiles, this))
    , mMapMenu(new MapMenu(&mFiles, this))
    , mImageMenu(new ImageMenu(&mFiles, this))
    , mHelpMenu(new HelpMenu(this))
{
    for (QMenu* menu : std::initializer_list<QMenu*> { mFileMenu, mEditMenu, mViewMenu, mTileMenu, mSpriteMenu,
                                                       mPaletteMenu, mMapMenu, mImageMenu, mHelpMenu })
        addMenu(menu);
}

void MenuBar::setProject(QPointer<Project> project)
{
    mFileMenu->setProjectOpen(project);
    mTileMenu->setProject(project);
    mSpriteMenu->setProject(project);
    mPaletteMenu->setProject(project);
    mMapMenu->setProject(project);
    mImageMenu->setProject(project);
}
