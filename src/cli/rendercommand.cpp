#include "rendercommand.h"

#include "interchange/maprenderer.h"
#include "model/map.h"
#include "project/project.h"
#include "project/projectstore.h"
#include "projectloader.h"

#include <QCommandLineParser>
#include <QTextStream>

QString RenderCommand::usage() const
{
    return QStringLiteral("render PROJECT.tintorel --map NAME --out FILE.png [--scale N]");
}

QString RenderCommand::help() const
{
    return QStringLiteral("Draws the map as the map editor shows it, without grid or overlays: background tile,\n"
                          "tile layer, object layer and placed sprites at the first tick, 8 pixels a cell times N\n"
                          "(default 1). The picture is 8-bit indexed when it has 256 colours or fewer.");
}

CliCommand::Status RenderCommand::run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    QCommandLineParser parser;
    parser.addOption({ "map", "", "NAME" });
    parser.addOption({ "out", "", "FILE" });
    parser.addOption({ "scale", "", "N", "1" });
    bool scaleOk = false;
    if (!parser.parse(QStringList { "tintorel-cli" } + arguments) || parser.positionalArguments().size() != 1
        || !parser.isSet("map") || !parser.isSet("out"))
        return UsageError;
    const int scale = parser.value("scale").toInt(&scaleOk);
    if (!scaleOk || scale < 1 || scale > 64)
        return UsageError;

    ProjectStore store;
    if (!loadProject(store, parser.positionalArguments().first(), err))
        return Failure;
    const QString wanted = parser.value("map");
    const QPointer<Map> map = findMap(*store.project(), wanted, err);
    if (!map)
        return Failure;
    const QImage picture = MapRenderer(*store.project(), *map).render(scale);
    const QString file = parser.value("out");
    if (picture.isNull() || !MapRenderer::indexedIfPossible(picture).save(file, "PNG")) {
        err << QObject::tr("Could not write %1").arg(file) << Qt::endl;
        return Failure;
    }
    out << QObject::tr("Rendered %1 to %2").arg(wanted, file) << Qt::endl;
    return Success;
}
