#include "app/viewmenu.h"

ViewMenu::ViewMenu(QWidget* parent)
    : QMenu(tr("View"), parent)
{
    mScratch = addAction(tr("Scratch Image Editor"));
    mScratch->setCheckable(true);
    mScratch->setChecked(false);
    connect(mScratch, &QAction::toggled, this, &ViewMenu::toggleScratch);

    mStatusBar = addAction(tr("Status Bar"));
    mStatusBar->setCheckable(true);
    mStatusBar->setChecked(true);
    connect(mStatusBar, &QAction::toggled, this, &ViewMenu::toggleStatusBar);

    mResetLayout = addAction(tr("Reset Layout"));
    connect(mResetLayout, &QAction::triggered, this, &ViewMenu::resetLayout);

    mWindowMenu = addMenu(tr("Window"));
}

QAction* ViewMenu::action(CheckableItem item) const
{
    return item == ScratchImageEditor ? mScratch : mStatusBar;
}

void ViewMenu::setScratchEnabled(bool enabled)
{
    mScratch->setEnabled(enabled);
}

void ViewMenu::setChecked(ViewMenu::CheckableItem item, bool checked)
{
    action(item)->setChecked(checked);
}
