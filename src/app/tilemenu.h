#pragma once
#include "app/assetmenu.h"

#include <QUuid>

class ImportZXFontDialog;
class PaletteSelectorDialog;
class TileAnimationDialog;
namespace TileEditor {
class ExportDialog;
}
class TileSet;
class TileSetDialog;

// "Tiles": new tile sets and block sets, ZX fonts, another palette, tile
// and attribute exports, and stepping through the tiles.
class TileMenu : public AssetMenu
{
    Q_OBJECT
public:
    TileMenu(FileChooser* files, QWidget* parent = nullptr);

    TileSetDialog* newTilesDialog() const { return mNewTiles; }
    TileEditor::ExportDialog* exportDialog() const { return mExport; }
    QMenu* magnificationMenu() const { return mMagnification; }
    void setProject(QPointer<Project> project) override;
    // The tile set the tile window shows; the actions on a set need one.
    void setCurrentTileSet(const QUuid& id);

public slots:
    void displayNewTilesDialog();
    void displayPaletteDialog();
    void displayImportFontDialog();
    void displayAnimDialog();
    void displayExportDialog();
    void exportAccepted(const QString& file, int first, int last, bool rotate);
    void exportAttributesAccepted(const QString& file);

signals:
    void createTiles(QString name, QUuid paletteId, int tileCount, bool hiRes);
    void swapPalette(QUuid id);
    void importZXFont(int index, int foreIndex, int backIndex, int offset, QString file);
    void createBlocks(QString name, QUuid tileSetId);
    void nextTile();
    void previousTile();

private:
    QPointer<TileSet> currentTileSet() const;
    void displayExportAttributesDialog();
    void displayImportDialog();

    TileSetDialog* mNewTiles;
    TileAnimationDialog* mBlocks;
    TileEditor::ExportDialog* mExport;
    ImportZXFontDialog* mFont;
    PaletteSelectorDialog* mPalettes;
    QMenu* mMagnification;
    QList<QAction*> mTileSetActions;
    QUuid mCurrent;
};
