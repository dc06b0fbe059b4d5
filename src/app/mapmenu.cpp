#include "app/mapmenu.h"

#include "app/filechooser.h"
#include "interchange/tilemapimport.h"
#include "model/map.h"
#include "project/project.h"
#include "ui/mapdialog.h"
#include "ui/tilemapwidthdialog.h"

#include <QFileInfo>

MapMenu::MapMenu(FileChooser* files, QWidget* parent)
    : AssetMenu(tr("Map"), files, parent)
    , mDialog(new MapDialog(parent))
    , mWidthDialog(new TileMapWidthDialog(parent))
{
    QAction* create = addProjectAction(tr("New Map"));
    create->setShortcut(QKeySequence(tr("Ctrl+Alt+M")));
    connect(create, &QAction::triggered, this, &MapMenu::displayMapDialog);
    mExport = addProjectAction(tr("Export"));
    connect(mExport, &QAction::triggered, this, &MapMenu::showExportDialog);
    connect(addProjectAction(tr("Import")), &QAction::triggered, this, &MapMenu::showImportDialog);
    connect(mDialog, &MapDialog::accepted, this, &MapMenu::create);
    connect(mWidthDialog, &TileMapWidthDialog::accepted, this, &MapMenu::tileMapImportRequested);
}

void MapMenu::displayMapDialog()
{
    if (!project())
        return;
    mDialog->setTileSets(project()->tileSetNames());
    mDialog->open();
}

void MapMenu::setMap(const QUuid& mapId)
{
    mMap = mapId;
}

void MapMenu::showExportDialog()
{
    if (!project() || !project()->map(mMap))
        return;
    const QString file = files()->choose({ tr("Export Map Data"), { tr("Map Data (*.map)") }, ".map", true });
    if (!file.isEmpty())
        exportMap(file);
}

void MapMenu::exportMap(const QString& file)
{
    const QPointer<Map> map = project() ? project()->map(mMap) : nullptr;
    if (!map || !map->exportData(file))
        exportFailed();
}

void MapMenu::showImportDialog()
{
    const QString file = files()->choose(
        { tr("Import Map Data"),
          { tr("NextTiles (*.nxm *.nxt *.nxp *.nxb)"),
            tr("Image files (*.png *.bmp *.gif *.jpg *.jpeg *.pbm *.pgm *.ppm *.xbm *.xpm)"),
            tr("Tile map (*.map *.bin *.nxm)") },
          {},
          false });
    if (!file.isEmpty())
        importAccepted(file);
}

void MapMenu::importAccepted(const QString& file)
{
    // A plain tile map holds its cells alone: its width is asked first.
    if (TileMapImport::isTileMapFile(file)) {
        mWidthDialog->setMapFile(file, QFileInfo(file).size() / 2);
        mWidthDialog->open();
        return;
    }
    emit importRequested(file);
}
