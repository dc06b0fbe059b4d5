#include "app/mainwindow.h"

#include "app/viewmenu.h"
#include "project/version.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QStatusBar>

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent)
    , mLayout(this,
              { &mProjectWindow, &mPaletteWindow, &mTileWindow, &mSpriteWindow, &mTilePicker, &mBlockSelector,
                &mMapSpritesWindow },
              mMenuBar.viewMenu())
{
    setUnifiedTitleAndToolBarOnMac(true);
    setDocumentMode(true);

    auto* status = new QStatusBar(this);
    status->addPermanentWidget(&mStatusLabel);
    setStatusBar(status);
    setWindowTitle(applicationName());
    resize(1024, 768);
    setWindowIcon(QIcon(QStringLiteral(":Application")));
    setCentralWidget(&mTabView);
    mLayout.resetLayout();

    setMenuBar(&mMenuBar);

    ViewMenu* view = mMenuBar.viewMenu();
    connect(view, &ViewMenu::toggleStatusBar, status, &QStatusBar::setVisible);
    view->setScratchEnabled(false);

    // Until a project is open there is nothing for the docks to show.
    for (QDockWidget* dock : mLayout.docks().all())
        dock->setEnabled(false);

    show();
    status->showMessage(windowTitle());
}

MainWindow::~MainWindow() = default;

void MainWindow::showEvent(QShowEvent* event)
{
    if (mFirstShow) {
        mFirstShow = false;
        mMenuBar.viewMenu()->setChecked(ViewMenu::StatusBar, statusBar()->isVisible());
    }
    QMainWindow::showEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
}
