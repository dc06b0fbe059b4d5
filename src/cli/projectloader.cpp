#include "projectloader.h"

#include "model/map.h"
#include "project/project.h"
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

QPointer<Map> findMap(const Project& project, const QString& name, QTextStream& err)
{
    QPointer<Map> found;
    for (const auto& map : project.maps())
        if (map && map->name() == name)
            found = map;
    if (!found)
        err << QObject::tr("No map named %1").arg(name) << Qt::endl;
    return found;
}
