#include "exportcommand.h"

#include "arguments.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/projectstore.h"
#include "projectloader.h"

#include <QDir>
#include <QMap>
#include <QTextStream>
#include <functional>

namespace {

// One file to write; a tile set or palette shared by several maps is one file.
struct Output
{
    std::function<bool(const QString& file)> write;
    QString failure;
};

// A name can hold any text; a slash would reach into other folders.
QString safeName(QString name)
{
    return name.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char('\\'), QLatin1Char('_'));
}

// The file stem of each asset of one kind: its name, and where another
// asset of that kind has the same name, the first characters of its id as
// well, so that no file is written over another. Every asset of the kind
// counts, not only those exported, so that a file's name does not depend
// on what else is exported with it.
template<typename T>
QHash<QUuid, QString> stemsOf(const QList<QPointer<T>>& assets)
{
    QHash<QString, int> uses;
    for (const auto& asset : assets)
        if (asset)
            ++uses[safeName(asset->name())];
    QHash<QUuid, QString> stems;
    for (const auto& asset : assets) {
        if (!asset)
            continue;
        QString stem = safeName(asset->name());
        if (uses.value(stem) > 1)
            stem += QLatin1Char('-') + asset->id().toString(QUuid::WithoutBraces).left(8);
        stems.insert(asset->id(), stem);
    }
    return stems;
}

} // namespace

QString ExportCommand::usage() const
{
    return QStringLiteral("export PROJECT.tintorel --out DIR [--map NAME|ID]");
}

QString ExportCommand::help() const
{
    return QStringLiteral(
        "Writes, for every map, NAME_tilemap.bin of the map, NAME_tiles.nxt of its tile set and\n"
        "NAME_palette.bin of that tile set's palette (each NAME the asset's own name), and for\n"
        "every sprite bank NAME.spr, into DIR, and lists the files written. Where assets of one\n"
        "kind share a name, each NAME gets the first eight characters of its id, so that no file\n"
        "is written over another. With --map, only that map's three files; an id picks one of\n"
        "several maps of the same name.");
}

CliCommand::Status ExportCommand::run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    Arguments args(name(), { { "out", "DIR", true }, { "map", "NAME|ID" } }, QStringLiteral("PROJECT.tintorel"));
    if (!args.parse(arguments, err))
        return UsageError;

    ProjectStore store;
    if (!loadProject(store, args.positional(), err))
        return Failure;
    const Project& project = *store.project();
    QList<QPointer<Map>> maps = project.maps();
    if (args.isSet("map")) {
        const QPointer<Map> map = findMap(project, args.value("map"), err);
        if (!map)
            return Failure;
        maps = { map };
    }

    const QHash<QUuid, QString> mapStems = stemsOf(project.maps());
    const QHash<QUuid, QString> tileStems = stemsOf(project.tileSets());
    const QHash<QUuid, QString> paletteStems = stemsOf(project.palettes());
    QMap<QString, Output> outputs;
    for (const QPointer<Map>& map : std::as_const(maps)) {
        if (!map)
            continue;
        const QPointer<TileSet> tiles = map->tileSet();
        if (!tiles) {
            err << QObject::tr("Invalid tile set id") << ": " << map->name() << Qt::endl;
            return Failure;
        }
        const QPointer<Palette> palette = tiles->palette();
        if (!palette) {
            err << QObject::tr("Invalid palette id") << ": " << tiles->name() << Qt::endl;
            return Failure;
        }
        outputs.insert(mapStems.value(map->id()) + "_tilemap.bin",
                       { [map](const QString& file) { return map->exportData(file); },
                         QObject::tr("Exporting the map failed") });
        outputs.insert(tileStems.value(tiles->id()) + "_tiles.nxt",
                       { [tiles](const QString& file) { return tiles->exportNxt(file); },
                         QObject::tr("Exporting the tile set failed") });
        outputs.insert(paletteStems.value(palette->id()) + "_palette.bin",
                       { [palette](const QString& file) { return palette->exportData(file); },
                         QObject::tr("Exporting the palette failed") });
    }
    if (!args.isSet("map")) {
        const QHash<QUuid, QString> bankStems = stemsOf(project.spriteBanks());
        for (const QPointer<SpriteBank>& bank : project.spriteBanks())
            if (bank)
                outputs.insert(bankStems.value(bank->id()) + ".spr",
                               { [bank](const QString& file) { return bank->exportData(file); },
                                 QObject::tr("There was a problem exporting data") });
    }

    const QString dir = args.value("out");
    if (!QDir().mkpath(dir)) {
        err << QObject::tr("Could not create the folder %1").arg(dir) << Qt::endl;
        return Failure;
    }
    for (auto it = outputs.cbegin(); it != outputs.cend(); ++it) {
        const QString file = QDir(dir).filePath(it.key());
        if (!it->write(file)) {
            err << it->failure << ": " << file << Qt::endl;
            return Failure;
        }
        out << file << "\n";
    }
    out << QObject::tr("%1 files written to %2").arg(outputs.size()).arg(dir) << Qt::endl;
    return Success;
}
