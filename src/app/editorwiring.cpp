#include "app/editorwiring.h"

#include "app/documentcontroller.h"
#include "app/documenttabview.h"
#include "app/projectcontroller.h"
#include "editors/block/view.h"
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

// A page for each kind of document that has an editor; each page records
// its edits on its own document's stack.
void EditorWiring::registerPages()
{
    DocumentTabView* tabs = mViews.tabView;
    if (!tabs)
        return;
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
