#include "interchange/mapimport.h"

#include "interchange/imageslicer.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>

namespace {

constexpr int ImportedTileCount = 512;

QString tr(const char* text)
{
    return QCoreApplication::translate("MapImport", text);
}

QString importNextTiles(Project& project, const QFileInfo& chosen)
{
    const QString base = chosen.completeBaseName();
    const QDir dir = chosen.dir();
    const QString nxp = dir.filePath(base + ".nxp");
    const QString nxt = dir.filePath(base + ".nxt");
    const QString nxm = dir.filePath(base + ".nxm");
    const QString nxb = dir.filePath(base + ".nxb");
    for (const QString& path : { nxp, nxt, nxm, nxb })
        if (!QFileInfo::exists(path))
            return tr("Some of the required files are missing");

    const QPointer<Palette> palette = project.createPalette(CreateAction::NewBlank, base);
    if (!palette->importData(nxp))
        return tr("Could not import the palette data");
    const QPointer<TileSet> tiles = project.createTileSet(base, palette->id(), ImportedTileCount, false);
    if (!tiles->importNxt(nxt))
        return tr("Could not import the tile data");
    const QPointer<Map> map = project.createMap(base, tiles->id(), QSize(1, 1));
    if (!map->importNextTiles(nxm, nxb))
        return tr("Could not import the map data");
    return {};
}

QString importPicture(Project& project, const QFileInfo& file, const ImportProgress& progress)
{
    QImage picture;
    if (!picture.load(file.filePath()))
        return tr("Could not read the image file");

    ImageSlicer slicer(picture);
    if (progress)
        QObject::connect(&slicer, &ImageSlicer::processed, &slicer,
                         [&progress, &slicer](int value) { progress(value, slicer.stepCount()); });
    const int count = slicer.sliceTiles();
    if (count > ImportedTileCount)
        return tr("Cannot import the image as it would need more than 512 tiles\n%1 required").arg(count);

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
    return {};
}

} // namespace

QString importMap(Project& project, const QString& filePath, const ImportProgress& progress)
{
    const QFileInfo file(filePath);
    const QString suffix = file.suffix().toLower();
    if (suffix == "nxm" || suffix == "nxt" || suffix == "nxp" || suffix == "nxb")
        return importNextTiles(project, file);
    return importPicture(project, file, progress);
}
