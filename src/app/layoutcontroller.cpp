#include "app/layoutcontroller.h"

#include "app/viewmenu.h"

#include <QDockWidget>
#include <QMainWindow>

QList<QDockWidget*> LayoutController::Docks::all() const
{
    return { project, palette, tile, sprite, tilePicker, blockSelector, mapSprites };
}

LayoutController::LayoutController(QMainWindow* window, const Docks& docks, ViewMenu* viewMenu, QObject* parent)
    : QObject(parent)
    , mWindow(window)
    , mDocks(docks)
{
    for (QDockWidget* dock : mDocks.all())
        viewMenu->windowMenu()->addAction(dock->toggleViewAction());
    connect(viewMenu, &ViewMenu::resetLayout, this, &LayoutController::resetLayout);
}

void LayoutController::resetLayout()
{
    mWindow->setTabShape(QTabWidget::Rounded);
    mWindow->setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::South);

    const QList<QDockWidget*> docks = mDocks.all();
    for (QDockWidget* dock : docks)
        mWindow->removeDockWidget(dock);

    mWindow->addDockWidget(Qt::LeftDockWidgetArea, mDocks.project);
    mWindow->addDockWidget(Qt::LeftDockWidgetArea, mDocks.blockSelector);
    mWindow->addDockWidget(Qt::LeftDockWidgetArea, mDocks.mapSprites);
    mWindow->tabifyDockWidget(mDocks.blockSelector, mDocks.mapSprites);

    mWindow->addDockWidget(Qt::RightDockWidgetArea, mDocks.tile);
    mWindow->addDockWidget(Qt::RightDockWidgetArea, mDocks.palette);
    mWindow->addDockWidget(Qt::RightDockWidgetArea, mDocks.sprite);
    mWindow->tabifyDockWidget(mDocks.tile, mDocks.palette);
    mWindow->tabifyDockWidget(mDocks.palette, mDocks.sprite);

    mWindow->addDockWidget(Qt::BottomDockWidgetArea, mDocks.tilePicker);

    for (QDockWidget* dock : docks)
        dock->setFloating(false);
    for (QDockWidget* dock : docks)
        dock->setVisible(true);

    // Left to Qt, the side docks would split the window evenly and the tile
    // strip would shrink to its title; give the canvas the room instead.
    // Every size and raised tab is set here, so that a reset after docks
    // were moved gives exactly the layout of a first start.
    mWindow->resizeDocks({ mDocks.project, mDocks.tile }, { 220, 330 }, Qt::Horizontal);
    mWindow->resizeDocks({ mDocks.project, mDocks.blockSelector, mDocks.tilePicker }, { 280, 200, 160 },
                         Qt::Vertical);
    mDocks.blockSelector->raise();
    mDocks.tile->raise();
}

void LayoutController::restoreWindow(const QByteArray& state, const QByteArray& geometry)
{
    if (!geometry.isEmpty())
        mWindow->restoreGeometry(geometry);
    if (!state.isEmpty())
        mWindow->restoreState(state);
}

QByteArray LayoutController::windowState() const
{
    return mWindow->saveState();
}

QByteArray LayoutController::windowGeometry() const
{
    return mWindow->saveGeometry();
}
