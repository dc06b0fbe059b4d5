#include "mapeditor/viewbuilder.h"

#include "mapeditor/spriteproperties.h"
#include "mapeditor/view.h"

#include <QAction>
#include <QGridLayout>

namespace MapEditor {

ViewBuilder::ViewBuilder(View* view)
    : mView(view)
{
}

void ViewBuilder::build()
{
    layout();
    connectGrid();
    addKeys();
}

void ViewBuilder::layout()
{
    View* view = mView;
    auto* area = new QWidget;
    auto* grid = new QGridLayout(area);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(&view->mGrid, 0, 0);
    grid->addWidget(&view->mVertical, 0, 1);
    grid->addWidget(&view->mHorizontal, 1, 0);
    view->addWidget(&view->mPalette);
    view->addWidget(area);
    view->setStretchFactor(1, 1);
    view->setCollapsible(0, false);
}

void ViewBuilder::connectGrid()
{
    View* view = mView;
    MapGrid* grid = &view->mGrid;
    connect(&view->mPalette, &MapToolPalette::actionActivated, view,
            qOverload<Tintorel::Ui::ToolButton, bool>(&View::toolPaletteClicked));
    connect(grid, &MapGrid::scrollDeltaChanged, view, &View::updateScrollValues);
    connect(grid, &MapGrid::scrollPositionChanged, view, &View::updateScrollBars);
    connect(&view->mHorizontal, &QScrollBar::valueChanged, grid, &MapGrid::setHorizontalScrollPosition);
    connect(&view->mVertical, &QScrollBar::valueChanged, grid, &MapGrid::setVerticalScrollPosition);
    connect(grid, &MapGrid::tilePicked, view, &View::setSelectedTile);
    connect(grid, &MapGrid::modeChanged, &view->mPalette, &MapToolPalette::setMode);
    connect(grid, &MapGrid::mapResized, view, [view] { view->updateStatus(); });
    connect(grid, &MapGrid::createMapFromSelection, view, &View::createMapFromSelection);
    connect(grid, &MapGrid::spriteClicked, view, [view](int index) { view->spriteClicked(index); });
    connect(grid, &MapGrid::selectedSpriteChanged, view, [view](int index) {
        if (index < 0)
            view->mPopover.hide();
    });
    connect(&view->mPopover, &SpritePropertiesPopover::spriteEdited, grid, &MapGrid::applySpriteEdit);
    connect(&view->mAnimator, &MapAnimator::framesAdvanced, view, [view] {
        view->mGrid.setSpriteTicks(qlonglong(view->mAnimator.ticks()));
        view->mGrid.repaint();
    });
    connect(&view->mResize, &ResizeMapDialog::accepted, view, &View::resizeMap);
    connect(&view->mExport, &ExportMapDialog::accepted, view,
            [view](ExportMapDialog::Options options) { view->runExport(options); });
}

void ViewBuilder::addKeys()
{
    View* view = mView;
    auto* cancel = new QAction(View::tr("Cancel"), view);
    cancel->setShortcut(QKeySequence(Qt::Key_Escape));
    cancel->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(cancel, &QAction::triggered, view, [view] {
        if (view->mPopover.isVisible()) {
            view->mPopover.hide();
            return;
        }
        view->mGrid.setMode(Tintorel::Ui::Draw);
        view->mGrid.hideRubberBand();
    });
    view->addAction(cancel);
    auto* remove = new QAction(View::tr("Delete"), view);
    remove->setShortcuts({ QKeySequence(QKeySequence::Delete), QKeySequence(Qt::Key_Backspace) });
    remove->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(remove, &QAction::triggered, view, [view] {
        if (!view->mGrid.deleteSelectedSprite() && !view->mGrid.removeAnimationUnderCursor())
            view->mGrid.clearSelection();
    });
    view->addAction(remove);
}

} // namespace MapEditor
