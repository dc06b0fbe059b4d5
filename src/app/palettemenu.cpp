#include "app/palettemenu.h"

#include "app/filechooser.h"
#include "interchange/paletteimport.h"
#include "model/palette.h"
#include "project/project.h"
#include "ui/palettedialog.h"

#include <QFileInfo>

PaletteMenu::PaletteMenu(FileChooser* files, QWidget* parent)
    : AssetMenu(tr("Palette"), files, parent)
    , mDialog(new PaletteDialog(parent))
{
    QAction* create = addProjectAction(tr("New Palette"));
    create->setShortcut(QKeySequence(tr("Ctrl+Alt+P")));
    connect(create, &QAction::triggered, this, &PaletteMenu::showPaletteDialog);
    connect(addProjectAction(tr("Import")), &QAction::triggered, this, &PaletteMenu::showImportDialog);
    connect(addProjectAction(tr("Export")), &QAction::triggered, this, &PaletteMenu::showExportDialog);
    connect(mDialog, &PaletteDialog::accepted, this, &PaletteMenu::createPalette);
}

void PaletteMenu::showPaletteDialog()
{
    if (!project())
        return;
    mDialog->setPaletteNames(project()->paletteNames().values());
    mDialog->setCopyAvailable(project()->palette(mCurrent));
    mDialog->open();
}

void PaletteMenu::createPalette(CreateAction action, const QString& name)
{
    if (project())
        project()->createPalette(action, name, mCurrent);
}

void PaletteMenu::showImportDialog()
{
    const QString file = files()->choose(
        { tr("Import Palette"), { tr("Palette (*.pal *.npl)"), tr("Images (*.png *.bmp)") }, {}, false });
    if (!file.isEmpty())
        importAccepted(file);
}

void PaletteMenu::importAccepted(const QString& file)
{
    if (project())
        showImportReport(importPalette(*project(), file));
}

void PaletteMenu::showExportDialog()
{
    const QPointer<Palette> palette = project() ? project()->palette(mCurrent) : nullptr;
    if (!palette) {
        showError(tr("Palette"), tr("No Palette"));
        return;
    }
    const QString file = files()->choose({ tr("Export Palette"), { tr("Palette (*.pal *.npl)") }, ".pal", true });
    if (!file.isEmpty())
        exportAccepted(file);
}

void PaletteMenu::exportAccepted(const QString& file)
{
    const QPointer<Palette> palette = project() ? project()->palette(mCurrent) : nullptr;
    if (!palette || !palette->exportData(file))
        exportFailed();
}
