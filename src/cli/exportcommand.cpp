#include "exportcommand.h"

#include "model/map.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/projectstore.h"
#include "projectloader.h"

#include <QCommandLineParser>
#include <QDir>
#include <QTextStream>

namespace {

// The three files the map view exports, each named after its own asset.
bool exportMap(const Map& map, const QString& dir, QTextStream& err)
{
    if (!map.exportBinary(dir)) {
        err << QObject::tr("Exporting the map failed") << ": " << map.name() << Qt::endl;
        return false;
    }
    const QPointer<TileSet> tiles = map.tileSet();
    if (!tiles) {
        err << QObject::tr("Invalid tile set id") << ": " << map.name() << Qt::endl;
        return false;
    }
    if (!tiles->exportBinary(dir)) {
        err << QObject::tr("Exporting the tile set failed") << ": " << tiles->name() << Qt::endl;
        return false;
    }
    const QPointer<Palette> palette = tiles->palette();
    if (!palette) {
        err << QObject::tr("Invalid palette id") << ": " << tiles->name() << Qt::endl;
        return false;
    }
    if (!palette->exportBinary(dir)) {
        err << QObject::tr("Exporting the palette failed") << ": " << palette->name() << Qt::endl;
        return false;
    }
    return true;
}

bool exportSprites(const SpriteBank& bank, const QString& dir, QTextStream& err)
{
    const QString file = QDir(dir).filePath(bank.name() + QStringLiteral(".spr"));
    if (!bank.exportData(file)) {
        err << QObject::tr("There was a problem exporting data") << ": " << file << Qt::endl;
        return false;
    }
    return true;
}

} // namespace

QString ExportCommand::usage() const
{
    return QStringLiteral("export PROJECT.tintorel --out DIR [--map NAME]");
}

QString ExportCommand::help() const
{
    return QStringLiteral("Writes, for every map, NAME_tilemap.bin of the map, NAME_tiles.nxt of its tile set and\n"
                          "NAME_palette.bin of that tile set's palette (each NAME the asset's own name), and for\n"
                          "every sprite bank NAME.spr, into DIR. With --map, only that map's three files.");
}

CliCommand::Status ExportCommand::run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    QCommandLineParser parser;
    parser.addOption({ "out", "", "DIR" });
    parser.addOption({ "map", "", "NAME" });
    if (!parser.parse(QStringList { "tintorel-cli" } + arguments) || parser.positionalArguments().size() != 1
        || !parser.isSet("out"))
        return UsageError;

    ProjectStore store;
    if (!loadProject(store, parser.positionalArguments().first(), err))
        return Failure;
    const QString dir = parser.value("out");
    if (!QDir().mkpath(dir)) {
        err << QObject::tr("Could not create the folder %1").arg(dir) << Qt::endl;
        return Failure;
    }

    const Project& project = *store.project();
    QList<QPointer<Map>> maps = project.maps();
    if (parser.isSet("map")) {
        const QPointer<Map> map = findMap(project, parser.value("map"), err);
        if (!map)
            return Failure;
        maps = { map };
    }
    int written = 0;
    for (const auto& map : maps) {
        if (!map || !exportMap(*map, dir, err))
            return Failure;
        written += 3;
    }
    if (!parser.isSet("map"))
        for (const auto& bank : project.spriteBanks()) {
            if (!bank || !exportSprites(*bank, dir, err))
                return Failure;
            ++written;
        }
    out << QObject::tr("%1 files written to %2").arg(written).arg(dir) << Qt::endl;
    return Success;
}
