#pragma once
#include "app/appstate.h"
#include "app/documentcontroller.h"
#include "app/documenttabview.h"
#include "app/documentviews.h"
#include "app/editrouter.h"
#include "app/layoutcontroller.h"
#include "app/menubar.h"
#include "app/projectactions.h"
#include "app/projectcontroller.h"
#include "app/projectwindow.h"
#include "editors/block/blockselectorwindow.h"
#include "editors/palette/palettewindow.h"
#include "editors/sprite/spritewindow.h"
#include "editors/tile/tilepickertool.h"
#include "editors/tile/tilewindow.h"
#include "mapeditor/mapspriteswindow.h"
#include "mapeditor/toolbar.h"
#include "ui/messagedialog.h"
#include "ui/preferencesdialog.h"
#include "ui/updatecontroller.h"
#include "ui/updatedialog.h"

#include <QFileDialog>
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
    ProjectController* projectController() { return &mProjectController; }
    AppState* appState() { return &mAppState; }
    MessageDialog* messageDialog() { return &mMessageDialog; }
    PreferencesDialog* preferencesDialog() { return &mPreferencesDialog; }
    UpdateDialog* updateDialog() { return &mUpdateDialog; }
    UpdateController* updateController() { return &mUpdates; }
    DocumentController* documentController() { return &mDocumentController; }
    ProjectActions* projectActions() { return &mProjectActions; }
    LayoutController* layoutController() { return &mLayout; }

public slots:
    void showError(const QString& name);
    void messageChanged(const QString& message);
    void nextTile();
    void previousTile();
    void changeSpritePalette(const QUuid& paletteId);
    void changeTilePalette(const QUuid& paletteId);
    void importZXFont(int index, int foreIndex, int backIndex, int offset, const QString& file);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void connectMenus();
    void connectProjectController();
    void connectUpdates();
    void savePreferences();
    void projectOpened(Project* project);
    void projectClosing();
    void projectClosed();
    QList<QDockWidget*> docks();

    ProjectWindow mProjectWindow;
    PaletteWindow mPaletteWindow;
    TileWindow mTileWindow;
    SpriteWindow mSpriteWindow;
    TilePickerTool mTilePicker;
    BlockSelectorWindow mBlockSelector;
    MapSpritesWindow mMapSpritesWindow;
    MapEditor::ToolBar mMapToolBar;
    DocumentTabView mTabView;
    QLabel mStatusLabel;
    MenuBar mMenuBar;
    EditRouter mEditRouter;
    ProjectController mProjectController;
    AppState mAppState;
    bool mFirstShow = true;
    PreferencesDialog mPreferencesDialog;
    MessageDialog mMessageDialog;
    UpdateDialog mUpdateDialog;
    UpdateController mUpdates;
    QFileDialog mSaveDialog;
    DocumentViews mViews;
    DocumentController mDocumentController;
    ProjectActions mProjectActions;
    LayoutController mLayout;
};
