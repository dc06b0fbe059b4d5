#include "app/helpmenu.h"

#include "project/version.h"

#include <QMessageBox>

HelpMenu::HelpMenu(QWidget* parent)
    : QMenu(tr("Help"), parent)
{
    connect(addAction(tr("Check for Updates…")), &QAction::triggered, this, &HelpMenu::checkForUpdates);
    QAction* about = addAction(tr("About"));
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, &HelpMenu::displayAbout);
}

void HelpMenu::displayAbout()
{
    QMessageBox::about(parentWidget(), tr("About %1").arg(applicationName()),
                       tr("<h2>%1</h2><p>An editor of graphics assets for the ZX Spectrum Next: palettes, tiles, "
                          "sprites, maps and images, in the machine's own formats.</p><p>%2 release</p>")
                           .arg(displayName(), releaseChannel()));
}
