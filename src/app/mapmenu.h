#pragma once
#include "app/assetmenu.h"

#include <QUuid>

class MapDialog;
class TileMapWidthDialog;

// "Map": new maps, the .map export of the current map, and importing a
// picture, a NextTiles set or a plain tile map (after asking its width) as
// a map.
class MapMenu : public AssetMenu
{
    Q_OBJECT
public:
    MapMenu(FileChooser* files, QWidget* parent = nullptr);

    MapDialog* dialog() const { return mDialog; }
    TileMapWidthDialog* widthDialog() const { return mWidthDialog; }

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
    void tileMapImportRequested(QString filePath, int width);

private:
    MapDialog* mDialog;
    TileMapWidthDialog* mWidthDialog;
    QUuid mMap;
    QAction* mExport;
};
