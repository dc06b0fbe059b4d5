#include "interchange/mapimport.h"

#include "interchange/imageslicer.h"
#include "interchange/importedmap.h"
#include "interchange/tilesetfile.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/picturefile.h"
#include "model/tile.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/projectbudget.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>

namespace {

constexpr int ImportedTileCount = ImportedMap::TileCount;
constexpr int BlockBytes = 8;

QString tr(const char* text)
{
    return QCoreApplication::translate("MapImport", text);
}

struct NextTilesFiles
{
    QString nxp, nxt, nxm, nxb;
};

// Refuses a set that could only give blank or black assets, before any is made.
QString checkNextTiles(const NextTilesFiles& files)
{
    QStringList missing;
    for (const QString& path : { files.nxp, files.nxt, files.nxm, files.nxb })
        if (!QFileInfo::exists(path))
            missing << ImportText::file(path);
    if (!missing.isEmpty())
        return ImportText::because(tr("Some of the required files are missing"), missing.join(QStringLiteral(", ")));

    const QString paletteLength = ImportText::paletteLength(files.nxp);
    if (!paletteLength.isEmpty())
        return ImportText::because(tr("Could not import the palette data"), paletteLength);
    const QString tileProblem = TileSetFile::nxtProblem(files.nxt);
    if (!tileProblem.isEmpty())
        return ImportText::because(tr("Could not import the tile data"), tileProblem);
    const qint64 blockBytes = QFileInfo(files.nxb).size();
    if (blockBytes < BlockBytes)
        return ImportText::because(tr("Could not import the map data"),
                                   ImportText::tooShort(files.nxb, blockBytes, tr("block"), BlockBytes));
    const qint64 mapBytes = QFileInfo(files.nxm).size();
    if (mapBytes < 2)
        return ImportText::because(tr("Could not import the map data"),
                                   ImportText::tooShort(files.nxm, mapBytes, tr("map size"), 2));
    return {};
}

// Cells whose tile the .nxt did not fill show a blank tile; say how many.
ImportReport importNextTiles(Project& project, const QFileInfo& chosen)
{
    const QString base = chosen.completeBaseName();
    const QDir dir = chosen.dir();
    const NextTilesFiles files { dir.filePath(base + ".nxp"), dir.filePath(base + ".nxt"), dir.filePath(base + ".nxm"),
                                 dir.filePath(base + ".nxb") };
    const QString refusal = checkNextTiles(files);
    if (!refusal.isEmpty())
        return ImportReport::failure(refusal);

    // A block map stores its size in two bytes.
    ProjectBudget budget(project);
    if (!budget.charge(ProjectBudget::mapCost(QSize(255, 255)) + ImportedMap::tilesCost(), ImportText::file(files.nxm)))
        return ImportReport::failure(budget.problem());
    ImportReport report;
    const QPointer<Palette> palette = project.createPalette(CreateAction::NewBlank, base);
    if (!palette->importData(files.nxp))
        return ImportReport::failure(tr("Could not import the palette data"));
    const QPointer<TileSet> tiles = project.createTileSet(base, palette->id(), ImportedTileCount, false);
    const ImportReport tileReport = TileSetFile::readNxt(*tiles, files.nxt);
    if (!tileReport.ok())
        return tileReport;
    report.warnings << tileReport.warnings;
    const qint64 tilesInFile = QFileInfo(files.nxt).size() / Tile::PackedSize;

    const QPointer<Map> map = project.createMap(base, tiles->id(), QSize(1, 1));
    if (!map->importNextTiles(files.nxm, files.nxb))
        return ImportReport::failure(tr("Could not import the map data"));
    const qint64 blockBytes = QFileInfo(files.nxb).size();
    if (blockBytes % BlockBytes)
        report.warnings << ImportText::tail(files.nxb, blockBytes % BlockBytes, tr("block"));
    if (const int blank = ImportedMap::cellsBeyond(*map, int(qMin<qint64>(tilesInFile, tiles->count()))))
        report.warnings << tr("%1 cells of the map name tiles that %2 does not hold; they stay blank")
                               .arg(blank)
                               .arg(ImportText::file(files.nxt));
    return report;
}

ImportReport importPicture(Project& project, const QFileInfo& file, const ImportProgress& progress)
{
    QString problem;
    const QImage picture = PictureFile::read(file.filePath(), &problem);
    if (picture.isNull())
        return ImportReport::failure(problem.isEmpty() ? tr("Could not read the image file")
                                                       : ImportText::because(tr("Could not read the image file"), problem));
    if (picture.width() < Tile::Size || picture.height() < Tile::Size)
        return ImportReport::failure(tr("%1 is %2 × %3 pixels, smaller than one tile (8 × 8)")
                                         .arg(ImportText::file(file.filePath()))
                                         .arg(picture.width())
                                         .arg(picture.height()));
    const QSize cells = picture.size() / Tile::Size;
    ProjectBudget budget(project);
    if (!budget.charge(ProjectBudget::mapCost(cells) + ImportedMap::tilesCost(), ImportText::file(file.filePath())))
        return ImportReport::failure(budget.problem());

    ImageSlicer slicer(picture);
    if (progress)
        QObject::connect(&slicer, &ImageSlicer::processed, &slicer,
                         [&progress, &slicer](int value) { progress(value, slicer.stepCount()); });
    const int count = slicer.sliceTiles(ImportedTileCount);
    if (count > ImportedTileCount)
        return ImportReport::failure(
            tr("Cannot import the image as it would need more than 512 tiles\n%1 required").arg(count));

    ImportReport report;
    const int right = picture.width() % Tile::Size;
    const int bottom = picture.height() % Tile::Size;
    if (right || bottom)
        report.warnings << tr("%1 is %2 × %3 pixels; the last %4 columns and %5 rows are not whole tiles and were "
                              "left out")
                               .arg(ImportText::file(file.filePath()))
                               .arg(picture.width())
                               .arg(picture.height())
                               .arg(right)
                               .arg(bottom);
    if (slicer.sourceColourCount() > Palette::Size)
        report.warnings << tr("%1 has %2 colours; pixels of the colours past the first %3 became colour 0")
                               .arg(ImportText::file(file.filePath()))
                               .arg(slicer.sourceColourCount())
                               .arg(Palette::Size);
    if (const int without = slicer.tilesWithoutColours())
        report.warnings << tr("The picture has more colours than sixteen banks of 16 can hold: %1 of %2 tiles got "
                              "no colours, and the palette was left black")
                               .arg(without)
                               .arg(count);

    const QString name = file.baseName();
    const QPointer<Palette> palette = project.createPalette(CreateAction::NewBlank, name);
    palette->setColours(slicer.colours());

    const QPointer<TileSet> tiles = project.createTileSet(name, palette->id(), ImportedTileCount, false);
    const QList<QRgb> table = palette->rgbTable();
    for (int i = 0; i < count; ++i) {
        QImage image = slicer.piece(i);
        image.setColorTable(table);
        tiles->setTileImage(i, image);
        tiles->setTileOffset(i, slicer.pieceOffset(i));
    }

    const QPointer<Map> map = project.createMap(name, tiles->id(), QSize(slicer.columns(), slicer.rows()));
    for (int row = 0; row < slicer.rows(); ++row)
        for (int column = 0; column < slicer.columns(); ++column)
            map->setTile(QPoint(column, row), slicer.cell(column, row));
    return report;
}

} // namespace

ImportReport importMap(Project& project, const QString& filePath, const ImportProgress& progress)
{
    const QFileInfo file(filePath);
    const QString suffix = file.suffix().toLower();
    if (suffix == "nxm" || suffix == "nxt" || suffix == "nxp" || suffix == "nxb")
        return importNextTiles(project, file);
    return importPicture(project, file, progress);
}
