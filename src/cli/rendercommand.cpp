#include "rendercommand.h"

#include "arguments.h"
#include "interchange/maprenderer.h"
#include "model/map.h"
#include "project/project.h"
#include "project/projectstore.h"
#include "projectloader.h"

#include <QTextStream>

QString RenderCommand::usage() const
{
    return QStringLiteral("render PROJECT.tintorel --map NAME|ID --out FILE.png [--scale N]");
}

QString RenderCommand::help() const
{
    return QStringLiteral("Draws the map as the map editor shows it, without grid or overlays: background tile,\n"
                          "tile layer, object layer and placed sprites at the first tick, 8 pixels a cell times N\n"
                          "(default 1). The picture is 8-bit indexed when it has 256 colours or fewer.");
}

CliCommand::Status RenderCommand::run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    Arguments args(name(), { { "map", "NAME|ID", true }, { "out", "FILE", true }, { "scale", "N", false, "1" } },
                   QStringLiteral("PROJECT.tintorel"));
    if (!args.parse(arguments, err))
        return UsageError;
    bool scaleOk = false;
    const int scale = args.value("scale").toInt(&scaleOk);
    if (!scaleOk || scale < 1 || scale > 64) {
        args.refuse(QStringLiteral("scale must be 1 to 64"), err);
        return UsageError;
    }

    ProjectStore store;
    if (!loadProject(store, args.positional(), err))
        return Failure;
    const QString wanted = args.value("map");
    const QPointer<Map> map = findMap(*store.project(), wanted, err);
    if (!map)
        return Failure;
    const QImage picture = MapRenderer(*store.project(), *map).render(scale);
    const QString file = args.value("out");
    if (picture.isNull() || !MapRenderer::indexedIfPossible(picture).save(file, "PNG")) {
        err << QObject::tr("Could not write %1").arg(file) << Qt::endl;
        return Failure;
    }
    out << QObject::tr("Rendered %1 to %2").arg(wanted, file) << Qt::endl;
    return Success;
}
