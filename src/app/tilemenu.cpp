#include "app/tilemenu.h"

#include "app/filechooser.h"
#include "editors/block/tileanimationdialog.h"
#include "editors/tile/exportdialog.h"
#include "interchange/tilesetfile.h"
#include "model/tileset.h"
#include "project/project.h"
#include "ui/importzxfontdialog.h"
#include "ui/paletteselectordialog.h"
#include "ui/tilesetdialog.h"

#include <QDebug>
#include <QFileInfo>

TileMenu::TileMenu(FileChooser* files, QWidget* parent)
    : AssetMenu(tr("Tiles"), files, parent)
    , mNewTiles(new TileSetDialog(parent))
    , mBlocks(new TileAnimationDialog(parent))
    , mExport(new TileEditor::ExportDialog(parent))
    , mFont(new ImportZXFontDialog(parent))
    , mPalettes(new PaletteSelectorDialog(parent))
{
    const auto onSet = [this](const QString& text, auto slot) {
        QAction* action = addProjectAction(text);
        connect(action, &QAction::triggered, this, slot);
        mTileSetActions.append(action);
        return action;
    };
    QAction* create = addProjectAction(tr("New Tile Set"));
    create->setShortcut(QKeySequence(tr("Ctrl+Alt+T")));
    connect(create, &QAction::triggered, this, &TileMenu::displayNewTilesDialog);
    connect(addProjectAction(tr("Create Animations")), &QAction::triggered, this, &TileMenu::displayAnimDialog);
    onSet(tr("Spectrum Chars"), &TileMenu::displayImportFontDialog);
    onSet(tr("Swap Palette"), &TileMenu::displayPaletteDialog);
    onSet(tr("Export"), &TileMenu::displayExportDialog);
    onSet(tr("Export Attributes"), &TileMenu::displayExportAttributesDialog);
    onSet(tr("Next Tile"), &TileMenu::nextTile)->setShortcut(QKeySequence(tr("Ctrl+]")));
    onSet(tr("Previous Tile"), &TileMenu::previousTile)->setShortcut(QKeySequence(tr("Ctrl+[")));
    onSet(tr("Import"), &TileMenu::displayImportDialog);
    mMagnification = addMenu(tr("Tile List Magnification"));

    connect(mNewTiles, &TileSetDialog::accepted, this, &TileMenu::createTiles);
    connect(mBlocks, &TileAnimationDialog::accepted, this, &TileMenu::createBlocks);
    connect(mExport, &TileEditor::ExportDialog::accepted, this, &TileMenu::exportAccepted);
    connect(mFont, &ImportZXFontDialog::accepted, this, &TileMenu::importZXFont);
    connect(mPalettes, &PaletteSelectorDialog::accepted, this, &TileMenu::swapPalette);
    setCurrentTileSet(QUuid());
}

void TileMenu::setProject(QPointer<Project> project)
{
    AssetMenu::setProject(project);
    setCurrentTileSet(QUuid());
}

void TileMenu::setCurrentTileSet(const QUuid& id)
{
    mCurrent = id;
    for (QAction* action : std::as_const(mTileSetActions))
        action->setEnabled(currentTileSet());
}

QPointer<TileSet> TileMenu::currentTileSet() const
{
    return project() ? project()->tileSet(mCurrent) : nullptr;
}

void TileMenu::displayNewTilesDialog()
{
    if (!project())
        return;
    mNewTiles->setPalettes(project()->paletteNames());
    mNewTiles->open();
}

void TileMenu::displayAnimDialog()
{
    if (project())
        mBlocks->show(project()->tileSetNames());
}

void TileMenu::displayImportFontDialog()
{
    if (const QPointer<TileSet> tiles = currentTileSet()) {
        mFont->setTileCount(tiles->count());
        mFont->open();
    }
}

void TileMenu::displayPaletteDialog()
{
    if (const QPointer<TileSet> tiles = currentTileSet()) {
        mPalettes->setPalettes(project()->paletteNames(), tiles->paletteId());
        mPalettes->open();
    }
}

void TileMenu::displayExportDialog()
{
    if (const QPointer<TileSet> tiles = currentTileSet()) {
        mExport->setTileCount(tiles->count());
        mExport->open();
    }
}

void TileMenu::exportAccepted(const QString& file, int first, int last, bool rotate)
{
    const QPointer<TileSet> tiles = currentTileSet();
    if (!tiles) {
        qWarning() << "Null tileset";
        return;
    }
    // The .nxt form holds the whole set; the range and the turn are the .bin form's.
    const bool bin = QFileInfo(file).suffix().toLower() == "bin";
    if (!(bin ? tiles->exportBin(file, first, last, rotate) : tiles->exportNxt(file)))
        showError(tr("Save Error"), tr("Export failed!"));
}

void TileMenu::displayExportAttributesDialog()
{
    if (!currentTileSet())
        return;
    const QString file = files()->choose(
        { tr("Export tile attributes"), { tr("ASM Code (*.asm)"), tr("Binary Data (*.bin)") }, ".asm", true });
    if (!file.isEmpty())
        exportAttributesAccepted(file);
}

void TileMenu::exportAttributesAccepted(const QString& file)
{
    const QPointer<TileSet> tiles = currentTileSet();
    if (!tiles) {
        qWarning() << "Null tileset";
        return;
    }
    const bool asmText = QFileInfo(file).suffix().toLower() == "asm";
    if (!(asmText ? tiles->exportAttributesAsm(file) : tiles->exportAttributes(file)))
        exportFailed();
}

void TileMenu::displayImportDialog()
{
    const QPointer<TileSet> tiles = currentTileSet();
    if (!tiles)
        return;
    const QString file = files()->choose({ tr("Import Tiles"), { tr("Tile data (*.nxt)") }, {}, false });
    if (file.isEmpty())
        return;
    showImportReport(TileSetFile::readNxt(*tiles, file));
    // The set's reader is silent; the editors and maps redraw from here.
    tiles->notifyImageChanged(0);
}
