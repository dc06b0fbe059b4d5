#pragma once
#include "app/assetmenu.h"

#include <QUuid>

class MapDialog;

// "Map": new maps, the .map export of the current map, and importing a
// picture or a NextTiles set as a map.
class MapMenu : public AssetMenu
{
    Q_OBJECT
public:
    MapMenu(FileChooser* files, QWidget* parent = nullptr);

    MapDialog* dialog() const { return mDialog; }

public slots:
    void displayMapDialog();
    void setMap(const QUuid& mapId);
    void exportMap(const QString& file);
    void showExportDialog();
    void showImportDialog();
    void importAccepted(const QString& file);

signals:
    void create(QString name, QUuid tileSetId, QSize& size);
    void importRequested(QString filePath);

private:
    MapDialog* mDialog;
    QUuid mMap;
    QAction* mExport;
};
