#include "projectloader.h"

#include "project/projectstore.h"

#include <QObject>
#include <QTextStream>

bool loadProject(ProjectStore& store, const QString& path, QTextStream& err)
{
    QString message;
    const auto connection =
        QObject::connect(&store, &ProjectStore::loadError, [&message](const QString& text) { message = text; });
    const bool loaded = store.load(path);
    QObject::disconnect(connection);
    if (!loaded)
        err << path << ": " << message << Qt::endl;
    return loaded;
}
