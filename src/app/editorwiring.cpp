#include "app/editorwiring.h"

#include "app/documentcontroller.h"
#include "app/documenttabview.h"
#include "app/projectcontroller.h"
#include "editors/block/blockselectorwindow.h"
#include "editors/block/view.h"
#include "mapeditor/mapspriteswindow.h"
#include "mapeditor/toolbar.h"
#include "mapeditor/view.h"
#include "model/map.h"
#include "model/palette.h"
#include "editors/sprite/spritewindow.h"
#include "editors/sprite/view.h"
#include "editors/tile/tilepickergrid.h"
#include "editors/tile/tilepickertool.h"
#include "editors/tile/tilewindow.h"
#include "history/editrecorder.h"
#include "model/mapobjects.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "model/tileanimation.h"
#include "model/tileset.h"
#include "project/project.h"
#include "ui/mapeditorpage.h"
#include "ui/preferencesdialog.h"

#include <QUndoGroup>
#include <QUndoStack>

EditorWiring::EditorWiring(DocumentController* documents, const DocumentViews& views, ProjectController* projects)
    : QObject(documents)
    , mDocuments(documents)
    , mViews(views)
    , mProjects(projects)
{
    connectTileEditor();
    connectSpriteEditor();
    connectMapEditor();
    registerPages();
}

QUndoStack* EditorWiring::activeStack(const QUuid& id)
{
    if (!mDocuments->project() || id.isNull())
        return nullptr;
    QUndoStack* stack = mDocuments->stack(id);
    mDocuments->undoGroup()->setActiveStack(stack);
    return stack;
}

// The tile editor and the tile list show the active tile set, and the same tile.
void EditorWiring::connectTileEditor()
{
    const auto tileStack = [this]() -> QUndoStack* {
        const QPointer<Project> project = mDocuments->project();
        return project && project->tileSet(mDocuments->activeTileSet()) ? activeStack(mDocuments->activeTileSet())
                                                                         : nullptr;
    };
    TileWindow* window = mViews.tileWindow;
    TilePickerTool* picker = mViews.tilePicker;
    if (window) {
        window->setUndoStackProvider(tileStack);
        connect(window, &TileWindow::tileEdited, mProjects, &ProjectController::noteChange);
    }
    if (picker)
        picker->setUndoStackProvider(tileStack);
    if (!window || !picker)
        return;
    connect(picker, &TilePickerTool::selectedTileChanged, window, [window](int index) { window->setTileIndex(index + 1); });
    connect(picker, &TilePickerTool::tileDoubleClicked, window, &TileWindow::setTileIndex);
    connect(window, &TileWindow::tileNumberChanged, picker->grid(),
            [picker](int number) { picker->grid()->setSelectedIndex(number - 1); });
}

void EditorWiring::connectSpriteEditor()
{
    SpriteWindow* window = mViews.spriteWindow;
    if (!window)
        return;
    window->setUndoStackProvider([this, window]() -> QUndoStack* {
        return window->sprites() ? activeStack(window->sprites()->id()) : nullptr;
    });
    connect(window, &SpriteWindow::spritesEdited, mProjects, &ProjectController::noteChange);
}

MapEditor::View* EditorWiring::currentMapView() const
{
    return mViews.tabView ? qobject_cast<MapEditor::View*>(mViews.tabView->currentWidget()) : nullptr;
}

void EditorWiring::forEachMapView(const std::function<void(MapEditor::View*)>& act) const
{
    if (!mViews.tabView)
        return;
    for (int i = 0; i < mViews.tabView->count(); ++i)
        if (auto* view = qobject_cast<MapEditor::View*>(mViews.tabView->widget(i)))
            act(view);
}

// The docks that choose what a map tab paints and places talk to the tab on
// show; the "Map" tool bar belongs to it while it is current.
void EditorWiring::connectMapEditor()
{
    if (TilePickerTool* picker = mViews.tilePicker)
        connect(picker, &TilePickerTool::selectedTileChanged, this, [this](int index) {
            if (MapEditor::View* view = currentMapView())
                view->setTileIndex(index);
        });
    if (BlockSelectorWindow* blocks = mViews.blockSelector)
        connect(blocks, &BlockSelectorWindow::selectedItemChanged, this, [this](QPointer<TileAnimation> block) {
            if (MapEditor::View* view = currentMapView(); view && block)
                view->setMapObject(block);
        });
    if (MapSpritesWindow* sprites = mViews.mapSprites) {
        connect(sprites, &MapSpritesWindow::selectionChanged, this, [this](QPointer<SpriteAnim> animation) {
            if (MapEditor::View* view = currentMapView(); view && animation)
                view->setSpriteAnimation(animation);
        });
        connect(sprites, &MapSpritesWindow::spriteChosen, this, [this](const QUuid& bank, int index) {
            if (MapEditor::View* view = currentMapView())
                view->setSingleSprite(bank, index);
        });
    }
    // Saving stops the clocks and starts again those that ran.
    connect(mProjects, &ProjectController::aboutToSave, this, [this] {
        forEachMapView([](MapEditor::View* view) { view->pause(); });
    });
    connect(mProjects, &ProjectController::saveFinished, this, [this] {
        forEachMapView([](MapEditor::View* view) { view->resume(); });
    });
    if (!mViews.tabView || !mViews.mapToolBar)
        return;
    connect(mViews.tabView, &QTabWidget::currentChanged, this, [this] {
        MapEditor::View* view = currentMapView();
        if (mToolBarOwner && mToolBarOwner != view)
            mToolBarOwner->setToolBar(nullptr);
        mToolBarOwner = view;
        if (view)
            view->setToolBar(mViews.mapToolBar);
        mViews.mapToolBar->setVisible(view);
    });
}

QWidget* EditorWiring::makeMapPage(const QUuid& id)
{
    const QPointer<Project> project = mDocuments->project();
    const QPointer<Map> map = project ? project->map(id) : nullptr;
    if (!map)
        return nullptr;
    auto* view = new MapEditor::View(map);
    view->setProject(project);
    view->setUndoStack(mDocuments->stack(id));
    applyMapPreferences(view);
    ProjectStore* store = &mProjects->store();
    connect(view, &MapEditor::View::exportTileMap, store, &ProjectStore::exportMap);
    connect(view, &MapEditor::View::exportTiles, store, &ProjectStore::exportTiles);
    connect(view, &MapEditor::View::exportTilePalette, store, &ProjectStore::exportPalette);
    connect(view, &MapEditor::View::createMapFromSelection, mDocuments, &DocumentController::createMapFromSelection);
    connect(view, &MapEditor::View::tabTextChanged, this,
            [this, id](const QString& text) { mViews.tabView->renameDocument(id, text); });
    // A tile picked on the map becomes the tile of the tile editor and the list.
    connect(view, &MapEditor::View::tilePicked, this, [this](int index) {
        if (mViews.tileWindow)
            mViews.tileWindow->setTileIndex(index + 1);
    });
    return view;
}

// A new map tab starts from the preferences; tabs already open keep what
// the user did with them. The overlay comes after the grid-and-checker
// switch, so that it is the overlay that the grid shows.
void EditorWiring::applyMapPreferences(MapEditor::View* view) const
{
    const MapEditorPage* page = mViews.preferencesDialog ? mViews.preferencesDialog->mapEditor() : nullptr;
    if (!page)
        return;
    MapEditor::MapGrid* grid = view->grid();
    grid->setGridAndChecker(page->checkerBoard());
    grid->setGridVisible(page->overlayGrid());
    grid->setCellSize(page->gridSize());
    grid->setGridColours(page->gridColour1(), page->gridColour2());
    grid->setZoom(page->defaultZoom());
    view->toolPalette()->setShowGridChecked(grid->gridVisible());
}

// A page for each kind of document that has an editor; each page records
// its edits on its own document's stack.
void EditorWiring::registerPages()
{
    DocumentTabView* tabs = mViews.tabView;
    if (!tabs)
        return;
    tabs->registerEditor(DocumentTabView::MapDocument, [this](const QUuid& id) { return makeMapPage(id); });
    tabs->registerEditor(DocumentTabView::SpriteDocument, [this](const QUuid& id) -> QWidget* {
        const QPointer<SpriteBank> bank = mDocuments->project() ? mDocuments->project()->spriteBank(id) : nullptr;
        if (!bank)
            return nullptr;
        auto* view = new SpriteEditor::View(bank);
        view->recordFrames = [this, id](SpriteAnim* animation) {
            if (EditRecorder* recorder = mDocuments->recorder()) {
                activeStack(id);
                recorder->spriteAnimationChanged(animation, id);
            }
        };
        return view;
    });
    tabs->registerEditor(DocumentTabView::BlockDocument, [this](const QUuid& id) -> QWidget* {
        const QPointer<MapObjects> blocks = mDocuments->project() ? mDocuments->project()->blocks(id) : nullptr;
        if (!blocks)
            return nullptr;
        auto* view = new BlockEditor::View(blocks);
        view->recordBlock = [this, id](TileAnimation* block) {
            if (EditRecorder* recorder = mDocuments->recorder()) {
                activeStack(id);
                recorder->tileAnimationChanged(block, id);
            }
        };
        // A block that goes or comes is a change without an undo step.
        connect(view, &BlockEditor::View::animationRemoved, mProjects, &ProjectController::noteChange);
        connect(view, &BlockEditor::View::animationAdded, mProjects, &ProjectController::noteChange);
        return view;
    });
}
