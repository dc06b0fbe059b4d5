#include "app/helpmenu.h"

#include "ui/about.h"

HelpMenu::HelpMenu(QWidget* parent)
    : QMenu(tr("Help"), parent)
    , mAbout(new About(parent))
{
    connect(addAction(tr("Check for Updates…")), &QAction::triggered, this, &HelpMenu::checkForUpdates);
    QAction* about = addAction(tr("About"));
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, &HelpMenu::displayAbout);
}

void HelpMenu::displayAbout()
{
    mAbout->open();
}
