#include "app/commandline.h"
#include "app/logging.h"
#include "app/mainwindow.h"
#include "project/version.h"

#include <QApplication>
#include <QDir>

int main(int argc, char** argv)
{
    // Logging is switched on only by a "log" folder where the program starts;
    // it comes first so that everything after it is captured.
    if (QDir(QStringLiteral("log")).exists())
        startLogging();

    QCoreApplication::setApplicationName(applicationName());
    QCoreApplication::setOrganizationName(organisationName());
    QCoreApplication::setOrganizationDomain(organisationDomain());
    QCoreApplication::setApplicationVersion(version());
    QGuiApplication::setApplicationDisplayName(displayName());

    QApplication application(argc, argv);
    MainWindow window;
    // After the window's first show, which restored its state.
    openFromCommandLine(window, QCoreApplication::arguments());
    return static_cast<int>(application.exec());
}
