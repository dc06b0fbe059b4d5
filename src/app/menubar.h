#pragma once
#include "app/filechooser.h"

#include <QMenuBar>
#include <QPointer>

class EditMenu;
class FileMenu;
class HelpMenu;
class ImageMenu;
class MapMenu;
class PaletteMenu;
class Project;
class SpriteMenu;
class TileMenu;
class ViewMenu;

// The window's menu bar: one menu per family of commands, and the file
// dialogs they share.
class MenuBar : public QMenuBar
{
    Q_OBJECT
public:
    explicit MenuBar(QWidget* parent = nullptr);

    FileMenu* fileMenu() const { return mFileMenu; }
    EditMenu* editMenu() const { return mEditMenu; }
    ViewMenu* viewMenu() const { return mViewMenu; }
    TileMenu* tileMenu() const { return mTileMenu; }
    SpriteMenu* spriteMenu() const { return mSpriteMenu; }
    PaletteMenu* paletteMenu() const { return mPaletteMenu; }
    MapMenu* mapMenu() const { return mMapMenu; }
    ImageMenu* imageMenu() const { return mImageMenu; }
    HelpMenu* helpMenu() const { return mHelpMenu; }
    FileChooser* files() { return &mFiles; }

    // The open project, or none, for the menus that work on it.
    void setProject(QPointer<Project> project);

private:
    FileChooser mFiles;
    FileMenu* mFileMenu;
    EditMenu* mEditMenu;
    ViewMenu* mViewMenu;
    TileMenu* mTileMenu;
    SpriteMenu* mSpriteMenu;
    PaletteMenu* mPaletteMenu;
    MapMenu* mMapMenu;
    ImageMenu* mImageMenu;
    HelpMenu* mHelpMenu;
};
