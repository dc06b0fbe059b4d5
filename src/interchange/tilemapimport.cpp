#include "interchange/tilemapimport.h"

#include "interchange/importedmap.h"
#include "interchange/tilesetfile.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/tile.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/projectbudget.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cmath>

namespace TileMapImport {

namespace {

constexpr int CellBytes = 2;
const QString ExportedSuffix = QStringLiteral("_tilemap");

QString tr(const char* text)
{
    return QCoreApplication::translate("TileMapImport", text);
}

// "level" for level.map and for level_tilemap.bin, as the export names them.
QString baseName(const QString& mapFile)
{
    const QString base = QFileInfo(mapFile).completeBaseName();
    return base.endsWith(ExportedSuffix) ? base.chopped(ExportedSuffix.size()) : base;
}

// The first of `candidates` that exists; else empty, with them named in `missing`.
QString firstExisting(const QStringList& candidates, QStringList& missing)
{
    for (const QString& candidate : candidates)
        if (QFileInfo::exists(candidate))
            return candidate;
    QStringList names;
    for (const QString& candidate : candidates)
        names << ImportText::file(candidate);
    missing << names.join(tr(" or "));
    return {};
}

// The inverse of the machine's two bytes: index low byte, then palette
// offset, mirror, flip, rotate and the index's ninth bit.
TileMap::TileData cellOf(uchar low, uchar attributes)
{
    TileMap::TileData cell;
    cell.index = low | ((attributes & 1) << 8);
    cell.rotate = attributes & 2;
    cell.flip = attributes & 4;
    cell.mirror = attributes & 8;
    cell.offset = attributes >> 4;
    cell.visible = true;
    return cell;
}

} // namespace

bool isTileMapFile(const QString& path)
{
    const QFileInfo file(path);
    const QString suffix = file.suffix().toLower();
    if (suffix == QLatin1String("nxm"))
        return !QFileInfo::exists(file.dir().filePath(file.completeBaseName() + QStringLiteral(".nxb")));
    return suffix == QLatin1String("map") || suffix == QLatin1String("bin");
}

int proposedWidth(qint64 cells)
{
    for (const int width : { 32, 40, 64, 80 })
        if (cells > 0 && cells % width == 0)
            return width;
    const auto root = qint64(std::llround(std::sqrt(double(qMax<qint64>(0, cells)))));
    return root > 0 && root * root == cells && root <= Map::MaxSide ? int(root) : 32;
}

QString findCompanions(Files& files)
{
    const QFileInfo map(files.map);
    const QDir dir = map.dir();
    const QString stem = map.completeBaseName();
    const QString base = baseName(files.map);
    const bool exported = stem.endsWith(ExportedSuffix);
    QStringList missing;
    if (files.tiles.isEmpty()) {
        QStringList candidates;
        if (exported)
            candidates << dir.filePath(base + QStringLiteral("_tiles.nxt"));
        candidates << dir.filePath(stem + QStringLiteral(".nxt"));
        files.tiles = firstExisting(candidates, missing);
    } else if (!QFileInfo::exists(files.tiles)) {
        missing << ImportText::file(files.tiles);
    }
    if (files.palette.isEmpty()) {
        QStringList candidates;
        if (exported)
            candidates << dir.filePath(base + QStringLiteral("_palette.bin"));
        for (const char* suffix : { ".nxp", ".pal", ".npl" })
            candidates << dir.filePath(stem + QLatin1String(suffix));
        files.palette = firstExisting(candidates, missing);
    } else if (!QFileInfo::exists(files.palette)) {
        missing << ImportText::file(files.palette);
    }
    if (missing.isEmpty())
        return {};
    return ImportText::because(tr("Some of the required files are missing"), missing.join(QStringLiteral(", ")));
}

ImportReport import(Project& project, Files files, int width)
{
    QFile mapFile(files.map);
    if (!mapFile.open(QIODevice::ReadOnly))
        return ImportReport::failure(
            ImportText::because(tr("Could not import the map data"), tr("%1 cannot be opened").arg(ImportText::file(files.map))));
    const qint64 bytes = mapFile.size();
    if (bytes < CellBytes)
        return ImportReport::failure(ImportText::because(tr("Could not import the map data"),
                                                         ImportText::tooShort(files.map, bytes, tr("cell"), CellBytes)));
    const qint64 cells = bytes / CellBytes;
    if (bytes % CellBytes || width < 1 || cells % width)
        return ImportReport::failure(ImportText::because(
            tr("Could not import the map data"),
            tr("%1 is %2 bytes, which are not whole rows of %3 cells of two bytes")
                .arg(ImportText::file(files.map))
                .arg(bytes)
                .arg(width)));
    const qint64 height = cells / width;
    if (width > Map::MaxSide || height > Map::MaxSide)
        return ImportReport::failure(ImportText::because(
            tr("Could not import the map data"),
            tr("%1 makes a map of %2 × %3 cells; a map can have at most %4 a side")
                .arg(ImportText::file(files.map))
                .arg(width)
                .arg(height)
                .arg(Map::MaxSide)));
    const QString missing = findCompanions(files);
    if (!missing.isEmpty())
        return ImportReport::failure(missing);
    const QString paletteLength = ImportText::paletteLength(files.palette);
    if (!paletteLength.isEmpty())
        return ImportReport::failure(ImportText::because(tr("Could not import the palette data"), paletteLength));
    const QString tileProblem = TileSetFile::nxtProblem(files.tiles);
    if (!tileProblem.isEmpty())
        return ImportReport::failure(ImportText::because(tr("Could not import the tile data"), tileProblem));
    const QSize size(width, int(height));
    ProjectBudget budget(project);
    if (!budget.charge(ProjectBudget::mapCost(size) + ImportedMap::tilesCost(), ImportText::file(files.map)))
        return ImportReport::failure(budget.problem());

    const QString name = baseName(files.map);
    const QPointer<Palette> palette = project.createPalette(CreateAction::NewBlank, name);
    if (!palette->importData(files.palette))
        return ImportReport::failure(tr("Could not import the palette data"));
    const QPointer<TileSet> tiles = project.createTileSet(name, palette->id(), ImportedMap::TileCount, false);
    ImportReport report = TileSetFile::readNxt(*tiles, files.tiles);
    if (!report.ok())
        return report;

    const QByteArray data = mapFile.readAll();
    const auto* cell = reinterpret_cast<const uchar*>(data.constData());
    TileMap::Grid grid(size.height(), QList<TileMap::TileData>(size.width()));
    for (auto& row : grid)
        for (auto& entry : row) {
            entry = cellOf(cell[0], cell[1]);
            cell += CellBytes;
        }
    const QPointer<Map> map = project.createMap(name, tiles->id(), size);
    map->tileMap()->setGrid(grid);
    const qint64 tilesInFile = QFileInfo(files.tiles).size() / Tile::PackedSize;
    if (const int blank = ImportedMap::cellsBeyond(*map, int(qMin<qint64>(tilesInFile, tiles->count()))))
        report.warnings << tr("%1 cells of the map name tiles that %2 does not hold; they stay blank")
                               .arg(blank)
                               .arg(ImportText::file(files.tiles));
    return report;
}

} // namespace TileMapImport
