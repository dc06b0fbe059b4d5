#pragma once
#include "app/documenttabview.h"
#include "app/layoutcontroller.h"
#include "app/menubar.h"
#include "app/projectwindow.h"
#include "editors/block/blockselectorwindow.h"
#include "editors/palette/palettewindow.h"
#include "editors/sprite/spritewindow.h"
#include "editors/tile/tilepickertool.h"
#include "editors/tile/tilewindow.h"
#include "mapeditor/mapspriteswindow.h"

#include <QLabel>
#include <QMainWindow>

// The one top-level window. It owns every long-lived object of the
// application as a member, built in a fixed order and torn down in reverse.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    ProjectWindow* projectWindow() { return &mProjectWindow; }
    PaletteWindow* paletteWindow() { return &mPaletteWindow; }
    TileWindow* tileWindow() { return &mTileWindow; }
    SpriteWindow* spriteWindow() { return &mSpriteWindow; }
    TilePickerTool* tilePicker() { return &mTilePicker; }
    BlockSelectorWindow* blockSelector() { return &mBlockSelector; }
    MapSpritesWindow* mapSpritesWindow() { return &mMapSpritesWindow; }
    DocumentTabView* tabView() { return &mTabView; }
    MenuBar* menus() { return &mMenuBar; }
    LayoutController* layoutController() { return &mLayout; }

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    ProjectWindow mProjectWindow;
    PaletteWindow mPaletteWindow;
    TileWindow mTileWindow;
    SpriteWindow mSpriteWindow;
    TilePickerTool mTilePicker;
    BlockSelectorWindow mBlockSelector;
    MapSpritesWindow mMapSpritesWindow;
    DocumentTabView mTabView;
    QLabel mStatusLabel;
    MenuBar mMenuBar;
    bool mFirstShow = true;
    LayoutController mLayout;
};
