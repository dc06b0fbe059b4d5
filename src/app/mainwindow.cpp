#include "app/mainwindow.h"

#include "app/editmenu.h"
#include "app/filemenu.h"
#include "app/imagemenu.h"
#include "app/mapmenu.h"
#include "app/palettemenu.h"
#include "app/spritemenu.h"
#include "app/tilemenu.h"
#include "app/updatewiring.h"
#include "app/viewmenu.h"
#include "editors/tile/tilepickergrid.h"
#include "interchange/fontimport.h"
#include "model/image.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/version.h"
#include "ui/generalpage.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QJsonObject>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>

namespace {

QString droppedFile(const QMimeData* mime)
{
    if (!mime || !mime->hasUrls() || mime->urls().size() != 1 || !mime->urls().first().isLocalFile())
        return {};
    return mime->urls().first().toLocalFile();
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent)
    , mMenuBar(this)
    , mEditRouter(mMenuBar.editMenu())
    , mPreferencesDialog(this)
    , mMessageDialog(this)
    , mUpdateDialog(this)
    , mUpdates(Update::feedUrl())
    , mSaveDialog(this, tr("Save project"), QString(), tr("Project file (*.tintorel)"))
    , mViews { &mTabView,         &mProjectWindow,    &mPaletteWindow, &mTileWindow, &mSpriteWindow,
               &mTilePicker,      &mBlockSelector,    &mMapSpritesWindow, &mMapToolBar, &mMenuBar,
               &mPreferencesDialog }
    , mDocumentController(mViews, &mProjectController)
    , mProjectActions(this, mViews, &mProjectController, &mDocumentController)
    , mLayout(this,
              { &mProjectWindow, &mPaletteWindow, &mTileWindow, &mSpriteWindow, &mTilePicker, &mBlockSelector,
                &mMapSpritesWindow },
              mMenuBar.viewMenu())
{
    setUnifiedTitleAndToolBarOnMac(true);
    setDocumentMode(true);
    setAcceptDrops(true);

    auto* status = new QStatusBar(this);
    status->addPermanentWidget(&mStatusLabel);
    setStatusBar(status);
    setWindowTitle(applicationName());
    resize(1024, 768);
    setWindowIcon(QIcon(QStringLiteral(":Application")));
    setCentralWidget(&mTabView);
    mLayout.resetLayout();
    ProjectStore& store = mProjectController.store();
    connect(&store, &ProjectStore::loadError, this, &MainWindow::showError);
    connect(&store, &ProjectStore::saveError, this, &MainWindow::showError);

    setMenuBar(&mMenuBar);
    addToolBar(mMenuBar.fileMenu()->toolBar());
    // Shown while a map tab is current.
    addToolBar(&mMapToolBar);
    mMapToolBar.hide();

    connect(&store, &ProjectStore::showMessage, status, &QStatusBar::showMessage);
    connect(status, &QStatusBar::messageChanged, this, &MainWindow::messageChanged);
    connectMenus();
    connectProjectController();
    connectUpdates();

    show();
    status->showMessage(windowTitle());
    for (QDockWidget* dock : docks())
        dock->setEnabled(false);
    mTabView.setEnabled(false);
    mMenuBar.setProject(nullptr);
}

MainWindow::~MainWindow()
{
    mProjectController.close();
}

QList<QDockWidget*> MainWindow::docks()
{
    return mLayout.docks().all();
}

void MainWindow::connectMenus()
{
    FileMenu* file = mMenuBar.fileMenu();
    connect(file, &FileMenu::newProject, &mProjectController, &ProjectController::newProject);
    connect(file, &FileMenu::openProject, &mProjectController, &ProjectController::openProject);
    connect(file, &FileMenu::saveProject, &mProjectController, &ProjectController::save);
    connect(file, &FileMenu::saveProjectAs, &mProjectController, &ProjectController::saveAs);
    connect(file, &FileMenu::closeProject, this, [this] {
        if (mProjectController.confirmClose())
            mProjectController.close();
    });
    connect(file, &FileMenu::displayPreferences, &mPreferencesDialog, &QWidget::show);
    connect(&mPreferencesDialog, &QDialog::accepted, this, &MainWindow::savePreferences);
    connect(file, &FileMenu::quit, this, &QWidget::close);
    connect(&mProjectController, &ProjectController::recentFileAdded, file, &FileMenu::addRecent);

    mMenuBar.editMenu()->setUndoGroup(mDocumentController.undoGroup());

    ViewMenu* view = mMenuBar.viewMenu();
    connect(view, &ViewMenu::toggleStatusBar, statusBar(), &QStatusBar::setVisible);
    connect(view, &ViewMenu::toggleScratch, &mTabView, &DocumentTabView::setScratchEditorVisible);
    view->setScratchEnabled(false);

    TileMenu* tiles = mMenuBar.tileMenu();
    connect(tiles, &TileMenu::createTiles, &mProjectActions, &ProjectActions::createTileSet);
    connect(tiles, &TileMenu::createBlocks, &mProjectActions, &ProjectActions::createBlocks);
    connect(tiles, &TileMenu::swapPalette, this, &MainWindow::changeTilePalette);
    connect(tiles, &TileMenu::importZXFont, this, &MainWindow::importZXFont);
    connect(tiles, &TileMenu::nextTile, this, &MainWindow::nextTile);
    connect(tiles, &TileMenu::previousTile, this, &MainWindow::previousTile);
    tiles->magnificationMenu()->addActions(mTilePicker.magnifications());

    SpriteMenu* sprites = mMenuBar.spriteMenu();
    connect(sprites, &SpriteMenu::create, &mProjectActions, &ProjectActions::createSprites);
    connect(sprites, &SpriteMenu::bankImported, &mDocumentController, &DocumentController::setActiveSpriteEditor);
    connect(sprites, &SpriteMenu::swapPalette, this, &MainWindow::changeSpritePalette);

    MapMenu* maps = mMenuBar.mapMenu();
    connect(maps, &MapMenu::create, &mProjectActions, &ProjectActions::createMap);
    connect(maps, &MapMenu::importRequested, &mProjectActions, &ProjectActions::importMap);
    connect(maps, &MapMenu::tileMapImportRequested, &mProjectActions, &ProjectActions::importTileMap);

    connect(mMenuBar.imageMenu(), &ImageMenu::createImage, this,
            [this](const QString& name, Tintorel::ImageMode mode, const QUuid& paletteId) {
                if (const QPointer<Project> project = mProjectController.project())
                    if (const QPointer<Image> image = project->createImage(mode, name, paletteId))
                        mDocumentController.setActiveImageEditor(image->id());
            });

    for (AssetMenu* menu : std::initializer_list<AssetMenu*> { tiles, sprites, maps, mMenuBar.paletteMenu(),
                                                               mMenuBar.imageMenu() }) {
        menu->showError = [this](const QString& title, const QString& message) {
            mMessageDialog.showMessage(title, title, message);
        };
        menu->showImportReport = [this](const ImportReport& report) { mProjectActions.showImportReport(report); };
    }
    mProjectActions.confirmDelete = [this](const QString& question) {
        return QMessageBox::question(this, tr("Delete"), question, QMessageBox::Yes | QMessageBox::No,
                                     QMessageBox::No)
               == QMessageBox::Yes;
    };

    connect(&mDocumentController, &DocumentController::activePaletteChanged, this,
            [this](const QUuid& id) { mMenuBar.paletteMenu()->setCurrentPalette(id); });
    connect(&mDocumentController, &DocumentController::activeTileSetChanged, tiles, &TileMenu::setCurrentTileSet);
    connect(&mDocumentController, &DocumentController::activeMapChanged, maps, &MapMenu::setMap);
    connect(&mDocumentController, &DocumentController::activeSpritesChanged, this,
            [this](const QUuid& id) { mMenuBar.spriteMenu()->setCurrentBank(id); });

    connect(&mProjectWindow, &ProjectWindow::selectedPaletteChanged, &mDocumentController,
            &DocumentController::setActivePalette);
    connect(&mProjectWindow, &ProjectWindow::selectedTileSetChanged, &mDocumentController,
            &DocumentController::setActiveTileSet);
    connect(&mProjectWindow, &ProjectWindow::selectedBlocksChanged, &mDocumentController,
            &DocumentController::setActiveBlockEditor);
    connect(&mProjectWindow, &ProjectWindow::selectedSpritesChanged, &mDocumentController,
            &DocumentController::setActiveSpriteEditor);
    connect(&mProjectWindow, &ProjectWindow::selectedMapChanged, &mDocumentController,
            &DocumentController::setActiveMap);
    connect(&mProjectWindow, &ProjectWindow::selectedImageChanged, &mDocumentController,
            &DocumentController::setActiveImageEditor);
    connect(&mProjectWindow, &ProjectWindow::assetRenamed, this,
            [this](ProjectTree::ProjectNode, const QUuid& id, const QString& name) { mTabView.renameDocument(id, name); });
    // What takes no undo step still changes the project; the title's marker follows.
    connect(&mDocumentController, &DocumentController::historyChanged, &mProjectController,
            &ProjectController::noteChange);
    connect(&mMenuBar, &QMenuBar::triggered, &mProjectController, &ProjectController::noteChange);
    connect(&mProjectWindow, &ProjectWindow::assetRenamed, &mProjectController, &ProjectController::noteChange);
    connect(&mProjectActions, &ProjectActions::assetDeleted, &mProjectController, &ProjectController::noteChange);
    connect(&mProjectActions, &ProjectActions::assetDeleted, this,
            [this](ProjectTree::ProjectNode node, const QUuid& id) {
                if (node == ProjectTree::Map)
                    mMenuBar.mapMenu()->setMap(QUuid());
                if (node == ProjectTree::Sprites && mMenuBar.spriteMenu()->currentBankId() == id)
                    mMenuBar.spriteMenu()->setCurrentBank(QUuid());
                if (node == ProjectTree::TileSet && mDocumentController.activeTileSet() == id)
                    mMenuBar.tileMenu()->setCurrentTileSet(QUuid());
            });
}

void MainWindow::connectProjectController()
{
    ProjectController& projects = mProjectController;
    projects._backupOnSave = [this] { return mPreferencesDialog.general()->backupOnSave(); };
    projects.promptUnsaved = [this](const QString& name) {
        const auto answer = QMessageBox::warning(this, tr("Unsaved Changes"),
                                                 tr("Save the changes to %1 before closing it?").arg(name),
                                                 QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                                                 QMessageBox::Save);
        return answer == QMessageBox::Save      ? ProjectController::UnsavedAnswer::Save
               : answer == QMessageBox::Discard ? ProjectController::UnsavedAnswer::Discard
                                                : ProjectController::UnsavedAnswer::Cancel;
    };
    mSaveDialog.setAcceptMode(QFileDialog::AcceptSave);
    mSaveDialog.setDefaultSuffix(QStringLiteral("tintorel"));
    projects.askSavePath = [this] {
        mSaveDialog.setDirectory(mMenuBar.files()->lastPath());
        // Proposes the project's name; a slash cannot stand in a file name.
        if (const QPointer<Project> project = mProjectController.project())
            mSaveDialog.selectFile(QString(project->name()).replace(QLatin1Char('/'), QLatin1Char('_'))
                                   + QStringLiteral(".tintorel"));
        if (mSaveDialog.exec() != QDialog::Accepted || mSaveDialog.selectedFiles().isEmpty())
            return QString();
        return mSaveDialog.selectedFiles().first();
    };
    projects.setUpdatesEnabled = [this](bool enabled) { setUpdatesEnabled(enabled); };
    connect(&projects, &ProjectController::projectOpened, this, &MainWindow::projectOpened);
    connect(&projects, &ProjectController::projectClosing, this, &MainWindow::projectClosing);
    connect(&projects, &ProjectController::projectClosed, this, &MainWindow::projectClosed);
    connect(&projects, &ProjectController::error, this, &MainWindow::showError);
    connect(&projects, &ProjectController::modifiedChanged, this, &QWidget::setWindowModified);
}

void MainWindow::connectUpdates()
{
    mUpdates.preferences = [this] { return mPreferencesDialog.general()->toJson(); };
    mUpdates.savePreferences = [this](const QJsonObject& general) {
        mPreferencesDialog.general()->fromJson(general);
        savePreferences();
    };
    new UpdateWiring(this, &mUpdates, &mUpdateDialog, mMenuBar.helpMenu());
}

void MainWindow::savePreferences()
{
    mAppState.savePreferences(mPreferencesDialog.toJson());
}

void MainWindow::projectOpened(Project* project)
{
    setWindowTitle(QStringLiteral("%2 - %1[*]").arg(project->name(), applicationName()));
    // Each dock shows its placeholder until its editor has something to show.
    for (QDockWidget* dock : docks())
        dock->setEnabled(true);
    mProjectWindow.setProject(project);
    connect(project, qOverload<QString>(&Project::showMessage), statusBar(),
            [this](const QString& message) { statusBar()->showMessage(message, 2500); });
    connect(project, qOverload<QString, int>(&Project::showMessage), statusBar(), &QStatusBar::showMessage);
    connect(project, &Project::error, this, &MainWindow::showError);
    mTabView.setEnabled(true);
    mMenuBar.viewMenu()->setScratchEnabled(true);
    mMenuBar.setProject(project);
}

void MainWindow::projectClosing()
{
    mTabView.setEnabled(false);
    mTabView.clearDocuments();
    mMenuBar.viewMenu()->setScratchEnabled(false);
    for (QDockWidget* dock : docks())
        dock->setEnabled(false);
}

void MainWindow::projectClosed()
{
    setWindowTitle(applicationName());
    mProjectWindow.setProject(nullptr);
    mMenuBar.setProject(nullptr);
}

void MainWindow::showError(const QString& name)
{
    mMessageDialog.showMessage(tr("Warning!"), tr("Warning!"), name);
}

void MainWindow::messageChanged(const QString& message)
{
    const QString path = mProjectController.store().filePath();
    if (!message.isEmpty() || path.isEmpty() || !mProjectController.project())
        return;
    statusBar()->showMessage(QStringLiteral("%1 [%2]").arg(mProjectController.project()->name(), path));
}

// Stepping past either end leaves the selection where it is.
void MainWindow::nextTile()
{
    const QPointer<TileSet> tiles = mTileWindow.tileSet();
    if (!tiles)
        return;
    const int index = qMin(mTileWindow.tileNumber(), tiles->count() - 1);
    mTileWindow.setTileIndex(index + 1);
    mTilePicker.grid()->setSelectedIndex(index);
}

void MainWindow::previousTile()
{
    if (!mTileWindow.tileSet())
        return;
    const int index = qMax(mTileWindow.tileNumber() - 2, 0);
    mTileWindow.setTileIndex(index + 1);
    mTilePicker.grid()->setSelectedIndex(index);
}

void MainWindow::changeSpritePalette(const QUuid& paletteId)
{
    const QPointer<Project> project = mProjectController.project();
    if (!project)
        return;
    const QPointer<SpriteBank> bank = project->spriteBank(mMenuBar.spriteMenu()->currentBankId());
    const QPointer<Palette> palette = project->palette(paletteId);
    if (bank && palette) {
        if (mSpriteWindow.sprites() == bank)
            mSpriteWindow.setSpritePalette(palette);
        else
            bank->setPalette(palette);
        bank->setPaletteId(paletteId);
        mDocumentController.setActivePalette(paletteId);
        mProjectController.noteChange();
    }
}

void MainWindow::changeTilePalette(const QUuid& paletteId)
{
    const QPointer<Project> project = mProjectController.project();
    if (!project)
        return;
    const QPointer<TileSet> tiles = project->tileSet(mDocumentController.activeTileSet());
    const QPointer<Palette> palette = project->palette(paletteId);
    if (tiles && palette) {
        if (mTileWindow.tileSet() == tiles)
            mTileWindow.setPalette(palette);
        else
            tiles->setPalette(palette);
        mDocumentController.setActivePalette(paletteId);
        mProjectController.noteChange();
    }
}

void MainWindow::importZXFont(int index, int foreIndex, int backIndex, int offset, const QString& file)
{
    const QPointer<Project> project = mProjectController.project();
    const QPointer<TileSet> tiles = project ? project->tileSet(mDocumentController.activeTileSet()) : nullptr;
    if (!tiles)
        return;
    mProjectActions.showImportReport(::importZXFont(*tiles, index, foreIndex, backIndex, offset, file));
    mProjectController.noteChange();
}

void MainWindow::showEvent(QShowEvent* event)
{
    if (mFirstShow) {
        mAppState.load();
        mPreferencesDialog.fromJson(mAppState.loadPreferences());
        mLayout.restoreWindow(mAppState.windowState(), mAppState.windowGeometry());
        mMenuBar.fileMenu()->setRecent(mAppState.recent());
        mTilePicker.setZoom(mAppState.tileZoom());
        mMenuBar.files()->setLastPath(mAppState.lastPath());
        mFirstShow = false;
        mMenuBar.viewMenu()->setChecked(ViewMenu::StatusBar, statusBar()->isVisible());
        mUpdates.checkIfDue();
    }
    QMainWindow::showEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!mProjectController.confirmClose()) {
        event->ignore();
        return;
    }
    mTabView.clearDocuments();
    mAppState.setWindowState(mLayout.windowState());
    mAppState.setWindowGeometry(mLayout.windowGeometry());
    mAppState.setRecent(mMenuBar.fileMenu()->recent());
    mAppState.setTileZoom(mTilePicker.zoom());
    mAppState.setLastPath(mMenuBar.files()->lastPath());
    mAppState.save();
    savePreferences();
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!droppedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const QString file = droppedFile(event->mimeData());
    if (file.isEmpty())
        return;
    event->acceptProposedAction();
    // A project opens; anything else is a picture or a NextTiles set for the
    // open project.
    if (QFileInfo(file).suffix().toLower() == QLatin1String("tintorel"))
        mProjectController.openProject(file);
    else if (mProjectController.project())
        mProjectActions.importMap(file);
}
