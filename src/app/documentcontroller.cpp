#include "app/documentcontroller.h"

#include "app/documenttabview.h"
#include "app/editorwiring.h"
#include "app/menubar.h"
#include "app/projectcontroller.h"
#include "app/viewmenu.h"
#include "editors/image/view.h"
#include "editors/palette/palettewindow.h"
#include "editors/block/blockselectorwindow.h"
#include "editors/sprite/spritewindow.h"
#include "mapeditor/mapspriteswindow.h"
#include "editors/tile/tilepickertool.h"
#include "editors/tile/tilewindow.h"
#include "history/editrecorder.h"
#include "model/image.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QUndoStack>

DocumentController::DocumentController(const DocumentViews& views, ProjectController* projects, QObject* parent)
    : QObject(parent)
    , mViews(views)
{
    connect(projects, &ProjectController::projectOpened, this, &DocumentController::projectOpened);
    connect(projects, &ProjectController::projectClosed, this, &DocumentController::projectClosed);
    connect(projects, &ProjectController::aboutToSave, this, &DocumentController::collectOpenDocuments);
    projects->_isClean = [this] { return isClean(); };
    projects->_markClean = [this] { markClean(); };
    if (DocumentTabView* tabs = mViews.tabView) {
        connect(tabs, &DocumentTabView::MapEditorActivated, this, &DocumentController::setActiveMap);
        connect(tabs, &DocumentTabView::SpriteEditorActivated, this, &DocumentController::setActiveSpriteEditor);
        connect(tabs, &DocumentTabView::BlockEditorActivated, this, &DocumentController::setActiveBlockEditor);
        connect(tabs, &DocumentTabView::ImageEditorActivated, this, &DocumentController::setActiveImageEditor);
        connect(tabs, &DocumentTabView::ScratchEditorActivated, this, &DocumentController::scratchEditorActivated);
    }
    new EditorWiring(this, mViews, projects);
    connectImageEditors();
    // A colour edited in the dock is undone from the Edit menu like any other edit.
    if (PaletteWindow* palettes = mViews.paletteWindow)
        connect(palettes, &PaletteWindow::paletteChanged, this, [this] {
            if (mProject && mProject->palette(mActivePalette))
                mGroup.setActiveStack(stack(mActivePalette));
        });
}

DocumentController::~DocumentController() = default;

// An image opens in a tab of its own; the scratch picture has one view for
// the window's life, which takes each project's scratch image in turn.
void DocumentController::connectImageEditors()
{
    DocumentTabView* tabs = mViews.tabView;
    if (!tabs)
        return;
    tabs->registerEditor(DocumentTabView::ImageDocument, [this](const QUuid& id) { return makeImageEditor(id); });
    mScratchEditor = new ImageEditor::View(tabs);
    // Out of sight until the view menu adds its tab.
    mScratchEditor->hide();
    tabs->setScratchEditor(mScratchEditor);
    if (MenuBar* menus = mViews.menuBar)
        connect(tabs, &DocumentTabView::scratchEditorVisibilityChanged, menus->viewMenu(),
                [menus](bool visible) { menus->viewMenu()->setChecked(ViewMenu::ScratchImageEditor, visible); });
}

ImageEditor::View* DocumentController::scratchEditor() const
{
    return mScratchEditor;
}

QWidget* DocumentController::makeImageEditor(const QUuid& imageId)
{
    const QPointer<Image> image = mProject ? mProject->image(imageId) : nullptr;
    if (!image)
        return nullptr;
    auto* view = new ImageEditor::View;
    view->setImage(image);
    view->setUndoStack(stack(imageId));
    return view;
}

QUndoStack* DocumentController::stack(const QUuid& id)
{
    QUndoStack*& stack = mStacks[id];
    if (!stack) {
        stack = new QUndoStack(this);
        mGroup.addStack(stack);
        connect(stack, &QUndoStack::indexChanged, this, &DocumentController::historyChanged);
    }
    return stack;
}

void DocumentController::dropStack(const QUuid& id)
{
    delete mStacks.take(id);
}

bool DocumentController::isClean() const
{
    for (const QUndoStack* stack : mStacks)
        if (!stack->isClean())
            return false;
    return true;
}

void DocumentController::markClean()
{
    for (QUndoStack* stack : std::as_const(mStacks))
        stack->setClean();
}

void DocumentController::collectOpenDocuments()
{
    if (mProject && mViews.tabView)
        mProject->setOpenDocuments(mViews.tabView->documentIds());
}

void DocumentController::trackAll(Project& project)
{
    for (const auto& palette : project.palettes())
        mRecorder->trackPalette(palette);
    for (const auto& tiles : project.tileSets())
        mRecorder->trackTileSet(tiles);
    for (const auto& bank : project.spriteBanks())
        mRecorder->trackSprites(bank);
    for (const auto& map : project.maps())
        mRecorder->trackMap(map);
    for (const auto& blocks : project.blockLists())
        mRecorder->trackBlocks(blocks);
    // Assets made later are watched from their first edit on.
    connect(&project, &Project::paletteCreated, mRecorder.get(), [this](QPointer<Palette> p) {
        mRecorder->trackPalette(p);
    });
    connect(&project, &Project::tilesetCreated, mRecorder.get(), [this](QPointer<TileSet> t) {
        mRecorder->trackTileSet(t);
    });
    connect(&project, &Project::spritesCreated, mRecorder.get(), [this](QPointer<SpriteBank> s) {
        mRecorder->trackSprites(s);
    });
    connect(&project, &Project::mapCreated, mRecorder.get(), [this](QPointer<Map> m) { mRecorder->trackMap(m); });
    connect(&project, &Project::blocksCreated, mRecorder.get(), [this](QPointer<MapObjects> b) {
        mRecorder->trackBlocks(b);
    });
}

void DocumentController::projectOpened(Project* project)
{
    mProject = project;
    mRecorder = std::make_unique<EditRecorder>([this](const QUuid& id) { return stack(id); });
    trackAll(*project);
    if (mViews.blockSelector)
        mViews.blockSelector->setProject(project);
    if (mViews.mapSprites)
        mViews.mapSprites->setProject(project);
    if (mScratchEditor) {
        mScratchEditor->setScratch(project, project->palette(project->scratchPalette()));
        mScratchEditor->setUndoStack(stack(QUuid()));
        // The first palette of a project that had none becomes the scratch
        // palette now, as it would when the project is next opened.
        connect(project, &Project::paletteCreated, this, [this, project](QPointer<Palette> palette) {
            if (mScratchEditor && palette && !project->palette(project->scratchPalette())) {
                project->setScratchPalette(palette->id());
                mScratchEditor->setScratch(project, palette);
            }
        });
    } else {
        stack(QUuid()); // the scratch image's
    }
    const QStringList documents = project->openDocuments();
    for (const QString& text : documents) {
        const QUuid id = QUuid::fromString(text);
        if (project->map(id))
            setActiveMap(id);
        else if (project->blocks(id))
            setActiveBlockEditor(id);
        else if (project->spriteBank(id))
            setActiveSpriteEditor(id);
    }
}

void DocumentController::projectClosed()
{
    if (mViews.tabView)
        mViews.tabView->clearDocuments();
    mRecorder.reset();
    if (mScratchEditor) {
        mScratchEditor->setScratch(nullptr, nullptr);
        mScratchEditor->setUndoStack(nullptr);
    }
    for (QUndoStack* stack : std::as_const(mStacks))
        delete stack;
    mStacks.clear();
    mProject = nullptr;
    if (mViews.paletteWindow)
        mViews.paletteWindow->setPalette(nullptr);
    if (mViews.tileWindow)
        mViews.tileWindow->setTileSet(nullptr);
    if (mViews.tilePicker)
        mViews.tilePicker->setTileSet(nullptr);
    if (mViews.spriteWindow)
        mViews.spriteWindow->setSprites(nullptr);
    if (mViews.blockSelector)
        mViews.blockSelector->setProject(nullptr);
    if (mViews.mapSprites)
        mViews.mapSprites->setProject(nullptr);
    mActivePalette = QUuid();
    mActiveTileSet = QUuid();
}

void DocumentController::activate(int type, const QUuid& id, const QString& name)
{
    if (mViews.tabView)
        mViews.tabView->openDocument(DocumentTabView::DocumentType(type), id, name);
    mGroup.setActiveStack(stack(id));
}

void DocumentController::setActivePalette(const QUuid& paletteId)
{
    if (!mProject || !mProject->palette(paletteId))
        return;
    mActivePalette = paletteId;
    if (mViews.paletteWindow)
        mViews.paletteWindow->setPalette(mProject->palette(paletteId));
    emit activePaletteChanged(paletteId);
}

void DocumentController::setActiveTileSet(const QUuid& tileSetId)
{
    if (!mProject || !mProject->tileSet(tileSetId))
        return;
    mActiveTileSet = tileSetId;
    mGroup.setActiveStack(stack(tileSetId));
    const QPointer<TileSet> tiles = mProject->tileSet(tileSetId);
    // The list first, so that the window's tile becomes its selection.
    if (mViews.tilePicker)
        mViews.tilePicker->setTileSet(tiles);
    if (mViews.tileWindow) {
        mViews.tileWindow->setTileSet(tiles);
        mViews.tileWindow->raise();
    }
    // The Palette Editor follows, so that the colours being painted are the ones it edits.
    setActivePalette(tiles->paletteId());
    emit activeTileSetChanged(tileSetId);
}

void DocumentController::setActiveMap(const QUuid& mapId)
{
    const QPointer<Map> map = mProject ? mProject->map(mapId) : nullptr;
    if (!map)
        return;
    activate(DocumentTabView::MapDocument, mapId, map->name());
    // Its tiles in the tile list and editor, to paint with.
    if (mProject->tileSet(map->tileSetId()) && map->tileSetId() != mActiveTileSet)
        setActiveTileSet(map->tileSetId());
    mGroup.setActiveStack(stack(mapId));
    emit activeMapChanged(mapId);
}

void DocumentController::setActiveSpriteEditor(const QUuid& spriteBankId)
{
    if (const QPointer<SpriteBank> bank = mProject ? mProject->spriteBank(spriteBankId) : nullptr) {
        activate(DocumentTabView::SpriteDocument, spriteBankId, bank->name());
        if (mViews.spriteWindow) {
            mViews.spriteWindow->setSprites(bank);
            mViews.spriteWindow->raise();
        }
        setActivePalette(bank->paletteId());
        emit activeSpritesChanged(spriteBankId);
    }
}

void DocumentController::setActiveBlockEditor(const QUuid& blocksId)
{
    const QPointer<MapObjects> blocks = mProject ? mProject->blocks(blocksId) : nullptr;
    if (!blocks)
        return;
    activate(DocumentTabView::BlockDocument, blocksId, blocks->name());
    if (mViews.blockSelector)
        mViews.blockSelector->setBlocks(blocks);
    // Blocks are built from the tiles of their set, dragged from the tile list.
    const QUuid tiles = blocks->tileSetId();
    if (mProject->tileSet(tiles) && tiles != mActiveTileSet)
        setActiveTileSet(tiles);
    mGroup.setActiveStack(stack(blocksId));
}

void DocumentController::setActiveImageEditor(const QUuid& imageId)
{
    const QPointer<Image> image = mProject ? mProject->image(imageId) : nullptr;
    if (!image)
        return;
    activate(DocumentTabView::ImageDocument, imageId, image->name());
    setActivePalette(image->paletteId());
}

void DocumentController::scratchEditorActivated()
{
    mGroup.setActiveStack(stack(QUuid()));
    // The Palette Editor shows the colours the scratch picture is painted in.
    if (mProject)
        setActivePalette(mProject->scratchPalette());
}
