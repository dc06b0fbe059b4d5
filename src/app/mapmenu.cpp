#include "app/mapmenu.h"

#include "app/filechooser.h"
#include "model/map.h"
#include "project/project.h"
#include "ui/mapdialog.h"

MapMenu::MapMenu(FileChooser* files, QWidget* parent)
    : AssetMenu(tr("Map"), files, parent)
    , mDialog(new MapDialog(parent))
{
    QAction* create = addProjectAction(tr("New Map"));
    create->setShortcut(QKeySequence(tr("Ctrl+Alt+M")));
    connect(create, &QAction::triggered, this, &MapMenu::displayMapDialog);
    mExport = addProjectAction(tr("Export"));
    connect(mExport, &QAction::triggered, this, &MapMenu::showExportDialog);
    connect(addProjectAction(tr("Import")), &QAction::triggered, this, &MapMenu::showImportDialog);
    connect(mDialog, &MapDialog::accepted, this, &MapMenu::create);
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
            tr("Image files (*.png *.bmp *.gif *.jpg *.jpeg *.pbm *.pgm *.ppm *.xbm *.xpm)") },
          {},
          false });
    if (!file.isEmpty())
        importAccepted(file);
}

void MapMenu::importAccepted(const QString& file)
{
    emit importRequested(file);
}
