#include "importcommand.h"

#include "arguments.h"
#include "interchange/mapimport.h"
#include "interchange/tilemapimport.h"
#include "project/project.h"
#include "project/projectstore.h"
#include "projectloader.h"

#include <QFileInfo>
#include <QTextStream>

QString ImportCommand::usage() const
{
    return QStringLiteral("import FILE --project PROJECT.tintorel [--width N [--tiles FILE.nxt] [--palette FILE]]");
}

QString ImportCommand::help() const
{
    return QStringLiteral("Imports a picture, or a NextTiles set (.nxp .nxt .nxm .nxb, naming any one of them), into\n"
                          "the project as a palette, a tile set and a map named after the file, then saves the\n"
                          "project. A plain tile map (.map, .bin, or a .nxm without a .nxb: two bytes a cell, row\n"
                          "by row) needs --width, its row length in cells; its tiles and palette are found beside\n"
                          "it (NAME_tiles.nxt and NAME_palette.bin for NAME_tilemap.bin, else the same base name\n"
                          "with .nxt and .nxp, .pal or .npl) unless --tiles and --palette name them. It saves the\n"
                          "project, keeping the previous file as PROJECT.tintorel.bak. A project that does not\n"
                          "exist is created, named after the file. On failure the project file is left untouched,\n"
                          "and a project file that does not load is never saved over. What the import had to\n"
                          "leave out is listed as warnings on standard error; the exit status is still 0.");
}

CliCommand::Status ImportCommand::run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    Arguments args(name(),
                   { { "project", "PROJECT", true },
                     { "width", "N", false },
                     { "tiles", "FILE", false },
                     { "palette", "FILE", false } },
                   QStringLiteral("FILE"));
    if (!args.parse(arguments, err))
        return UsageError;
    const QString file = args.positional();
    const QString path = args.value("project");
    const bool tileMap = args.isSet("width") || TileMapImport::isTileMapFile(file);
    bool widthOk = false;
    const int width = args.value("width").toInt(&widthOk);
    if (tileMap && !args.isSet("width")) {
        args.refuse(QStringLiteral("a tile map needs --width, its row length in cells"), err);
        return UsageError;
    }
    if (tileMap && (!widthOk || width < 1)) {
        args.refuse(QStringLiteral("width must be a whole number from 1"), err);
        return UsageError;
    }
    if (!tileMap && (args.isSet("tiles") || args.isSet("palette"))) {
        args.refuse(QStringLiteral("--tiles and --palette go with --width, for a tile map"), err);
        return UsageError;
    }

    ProjectStore store;
    if (QFileInfo::exists(path)) {
        // A project that does not load is never saved over: the import stops here.
        if (!loadProject(store, path, err))
            return Failure;
    } else {
        store.create(QFileInfo(file).baseName(), false);
        store.setFilePath(path);
    }
    const ImportReport report =
        tileMap ? TileMapImport::import(*store.project(), { file, args.value("tiles"), args.value("palette") }, width)
                : importMap(*store.project(), file);
    if (!report.ok()) {
        err << file << ": " << report.error << Qt::endl;
        return Failure;
    }
    QString saveFailure;
    QObject::connect(&store, &ProjectStore::saveError, [&saveFailure](const QString& text) { saveFailure = text; });
    if (!store.save(true)) {
        err << path << ": " << saveFailure << Qt::endl;
        return Failure;
    }
    // Still a success: the project holds what the import could make.
    for (const QString& warning : report.warnings)
        err << file << ": warning: " << warning << Qt::endl;
    out << QObject::tr("Imported %1 into %2").arg(file, path) << Qt::endl;
    return Success;
}
