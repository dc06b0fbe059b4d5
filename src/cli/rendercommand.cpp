#include "rendercommand.h"

#include "arguments.h"
#include "interchange/maprenderer.h"
#include "model/map.h"
#include "project/project.h"
#include "project/projectstore.h"
#include "projectloader.h"

#include <QHash>
#include <QTextStream>

namespace {

bool parseLayers(const QString& text, MapRenderer::Layers& layers)
{
    static const QHash<QString, MapRenderer::Layer> names { { QStringLiteral("tiles"), MapRenderer::Tiles },
                                                            { QStringLiteral("objects"), MapRenderer::Objects },
                                                            { QStringLiteral("sprites"), MapRenderer::Sprites } };
    layers = {};
    for (const QString& part : text.split(u',')) {
        const auto found = names.constFind(part.trimmed().toLower());
        if (found == names.constEnd())
            return false;
        layers |= *found;
    }
    return true;
}

} // namespace

QString RenderCommand::usage() const
{
    return QStringLiteral("render PROJECT.tintorel --map NAME|ID --out FILE.png [--scale N] [--tick N]\n"
                          "       [--layers tiles,objects,sprites]");
}

QString RenderCommand::help() const
{
    return QStringLiteral("Draws the map as the map editor shows it, without grid or overlays: background tile,\n"
                          "tile layer, object layer and placed sprites, 8 pixels a cell times N (default 1).\n"
                          "--tick N shows the blocks and sprites once the editor's clock has run N ticks of\n"
                          "20 ms (default 0); --layers draws only the layers named (default all three).\n"
                          "The picture is 8-bit indexed when it has 256 colours or fewer.");
}

CliCommand::Status RenderCommand::run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    Arguments args(name(),
                   { { "map", "NAME|ID", true },
                     { "out", "FILE", true },
                     { "scale", "N", false, "1" },
                     { "tick", "N", false, "0" },
                     { "layers", "LIST", false, "tiles,objects,sprites" } },
                   QStringLiteral("PROJECT.tintorel"));
    if (!args.parse(arguments, err))
        return UsageError;
    bool scaleOk = false;
    const int scale = args.value("scale").toInt(&scaleOk);
    if (!scaleOk || scale < 1 || scale > 64) {
        args.refuse(QStringLiteral("scale must be 1 to 64"), err);
        return UsageError;
    }
    bool tickOk = false;
    const qint64 tick = args.value("tick").toLongLong(&tickOk);
    if (!tickOk || tick < 0) {
        args.refuse(QStringLiteral("tick must be a whole number from 0"), err);
        return UsageError;
    }
    MapRenderer::Layers layers;
    if (!parseLayers(args.value("layers"), layers)) {
        args.refuse(QStringLiteral("layers must be a list of tiles, objects and sprites"), err);
        return UsageError;
    }

    ProjectStore store;
    if (!loadProject(store, args.positional(), err))
        return Failure;
    const QString wanted = args.value("map");
    const QPointer<Map> map = findMap(*store.project(), wanted, err);
    if (!map)
        return Failure;
    MapRenderer::showBlocksAt(*store.project(), *map, tick);
    QString problem;
    const QImage picture = MapRenderer(*store.project(), *map).render(scale, tick, layers, &problem);
    if (picture.isNull()) {
        err << QObject::tr("Cannot render %1: %2")
                   .arg(wanted, problem.isEmpty() ? QObject::tr("not enough memory") : problem)
            << Qt::endl;
        return Failure;
    }
    const QString file = args.value("out");
    if (!picture.save(file, "PNG")) {
        err << QObject::tr("Could not write %1").arg(file) << Qt::endl;
        return Failure;
    }
    out << QObject::tr("Rendered %1 to %2").arg(wanted, file) << Qt::endl;
    return Success;
}
