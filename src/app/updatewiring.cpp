#include "app/updatewiring.h"

#include "app/helpmenu.h"
#include "project/version.h"
#include "ui/about.h"
#include "ui/updatedialog.h"

#include <QMessageBox>

UpdateWiring::UpdateWiring(QWidget* window, UpdateController* updates, UpdateDialog* dialog, HelpMenu* help)
    : QObject(window)
    , mWindow(window)
    , mUpdates(updates)
    , mDialog(dialog)
    , mAbout(help->about())
{
    connect(help, &HelpMenu::checkForUpdates, this, &UpdateWiring::checkFromMenu);
    connect(mAbout, &About::checkForUpdates, this, &UpdateWiring::checkFromAbout);
    connect(mDialog, &UpdateDialog::skipVersion, mUpdates, &UpdateController::skipVersion);

    using Origin = UpdateController::Origin;
    connect(mUpdates, &UpdateController::updateAvailable, this,
            [this](const Update::Release& release, Origin origin) {
                mAbout->setUpdateStatus(About::UpdateAvailable, release.version);
                if (origin != UpdateController::FromAboutBox)
                    mDialog->showRelease(release);
            });
    connect(mUpdates, &UpdateController::upToDate, this, [this](Origin origin) {
        mAbout->setUpdateStatus(About::UpToDate);
        if (origin == UpdateController::FromHelpMenu)
            showBox(false, tr("Tintorel %1 is up to date.").arg(version()));
    });
    connect(mUpdates, &UpdateController::checkFailed, this, [this](const QString& error, Origin origin) {
        mAbout->setUpdateStatus(About::CheckFailed);
        if (origin == UpdateController::FromHelpMenu)
            showBox(true, tr("Could not reach the update server.\n%1").arg(error));
    });
}

// A build without a feed says so instead of failing.
void UpdateWiring::checkFromMenu()
{
    if (mUpdates->isConfigured())
        mUpdates->check(UpdateController::FromHelpMenu);
    else
        showBox(false, tr("No update server is configured in this build of Tintorel."));
}

void UpdateWiring::checkFromAbout()
{
    if (mUpdates->isConfigured())
        mUpdates->check(UpdateController::FromAboutBox);
    else
        mAbout->setUpdateStatus(About::NotConfigured);
}

// Opened without blocking, like the window's other messages.
void UpdateWiring::showBox(bool warning, const QString& text)
{
    if (mBox)
        mBox->close();
    mBox = new QMessageBox(warning ? QMessageBox::Warning : QMessageBox::Information, tr("Check for Updates"), text,
                           QMessageBox::Ok, mWindow);
    mBox->setAttribute(Qt::WA_DeleteOnClose);
    mBox->open();
}
