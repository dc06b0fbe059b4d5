#include "projectloader.h"

#include "model/map.h"
#include "project/project.h"
#include "project/projectstore.h"

#include <QFileInfo>
#include <QObject>
#include <QTextStream>

bool loadProject(ProjectStore& store, const QString& path, QTextStream& err)
{
    if (!QFileInfo(path).isFile()) {
        err << path << ": " << QObject::tr("no such project file") << Qt::endl;
        return false;
    }
    QString message;
    const auto connection =
        QObject::connect(&store, &ProjectStore::loadError, [&message](const QString& text) { message = text; });
    const bool loaded = store.load(path);
    QObject::disconnect(connection);
    if (!loaded)
        err << path << ": " << message << Qt::endl;
    return loaded;
}

QPointer<Map> findMap(const Project& project, const QString& nameOrId, QTextStream& err)
{
    const QUuid id = QUuid::fromString(nameOrId.startsWith(QLatin1Char('{')) ? nameOrId
                                                                             : QLatin1Char('{') + nameOrId + '}');
    if (!id.isNull())
        if (const QPointer<Map> map = project.map(id))
            return map;
    QList<QPointer<Map>> named;
    for (const auto& map : project.maps())
        if (map && map->name() == nameOrId)
            named.append(map);
    if (named.size() == 1)
        return named.first();
    if (named.isEmpty()) {
        err << QObject::tr("No map named %1").arg(nameOrId) << Qt::endl;
        return nullptr;
    }
    QStringList ids;
    for (const auto& map : std::as_const(named))
        ids << map->id().toString();
    ids.sort();
    err << QObject::tr("%1 maps are named %2; give one of their ids: %3")
               .arg(named.size())
               .arg(nameOrId, ids.join(QStringLiteral(", ")))
        << Qt::endl;
    return nullptr;
}
