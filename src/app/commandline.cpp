#include "app/commandline.h"

#include "app/filemenu.h"
#include "app/mainwindow.h"

#include <QFileInfo>

void openFromCommandLine(MainWindow& window, const QStringList& arguments)
{
    for (const QString& argument : arguments.mid(1)) {
        if (argument.startsWith(QLatin1Char('-')))
            continue;
        // Absolute, so that the recent list names the file wherever the
        // program is started next.
        window.menus()->fileMenu()->openAccepted(QFileInfo(argument).absoluteFilePath());
        return;
    }
}
