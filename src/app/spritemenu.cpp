#include "app/spritemenu.h"

#include "app/filechooser.h"
#include "interchange/spritefile.h"
#include "interchange/spritepictureimport.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "project/project.h"
#include "ui/paletteselectordialog.h"

#include <QDebug>
#include <QFileInfo>
#include <QImage>

SpriteMenu::SpriteMenu(FileChooser* files, QWidget* parent)
    : AssetMenu(tr("Sprites"), files, parent)
    , mCreate(new SpriteDialog(parent))
    , mPalettes(new PaletteSelectorDialog(parent))
{
    QAction* create = addProjectAction(tr("New"));
    create->setShortcut(QKeySequence(tr("Ctrl+Shift+B")));
    connect(create, &QAction::triggered, this, &SpriteMenu::displayCreateDialog);
    connect(addProjectAction(tr("Import")), &QAction::triggered, this, &SpriteMenu::displayImportDialog);
    connect(addProjectAction(tr("Swap Palette")), &QAction::triggered, this, &SpriteMenu::displaySwapPaletteDialog);
    connect(addProjectAction(tr("Export Data")), &QAction::triggered, this, &SpriteMenu::displayExportFileDialog);
    connect(mCreate, &SpriteDialog::accepted, this, &SpriteMenu::create);
    connect(mPalettes, &PaletteSelectorDialog::accepted, this, &SpriteMenu::swapPalette);
}

QPointer<SpriteBank> SpriteMenu::currentBank() const
{
    return project() ? project()->spriteBank(mCurrent) : nullptr;
}

void SpriteMenu::displayCreateDialog()
{
    if (project())
        mCreate->show(project()->paletteNames());
}

void SpriteMenu::displaySwapPaletteDialog()
{
    if (const QPointer<SpriteBank> bank = currentBank()) {
        mPalettes->setPalettes(project()->paletteNames(), bank->paletteId());
        mPalettes->open();
    }
}

void SpriteMenu::displayImportDialog()
{
    const QString file = files()->choose(
        { tr("Select a file to import"), { tr("Images (*.png *.bmp)"), tr("Next sprites (*.spr)") }, {}, false });
    if (!file.isEmpty())
        importFileSelected(file);
}

void SpriteMenu::importFileSelected(const QString& file)
{
    if (QFileInfo(file).suffix().toLower() == "spr")
        importBinaryData(file);
    else
        importImage(file);
}

void SpriteMenu::importBinaryData(const QString& file)
{
    if (!project())
        return;
    SpriteBank* bank = nullptr;
    const ImportReport report = SpriteFile::import(*project(), file, SpriteFile::CreatePalette, nullptr, {}, &bank);
    showImportReport(report);
    if (bank)
        emit import(file, bank->name(), bank->paletteId());
}

void SpriteMenu::importImage(const QString& file)
{
    if (!project())
        return;
    SpriteBank* bank = nullptr;
    const ImportReport report = importSpriteSheet(*project(), file, &bank);
    showImportReport(report);
    if (bank)
        emit import(file, bank->name(), bank->paletteId());
}

void SpriteMenu::displayExportFileDialog()
{
    if (!currentBank())
        return;
    const QString file =
        files()->choose({ tr("Export Sprite Data"), { tr("Next Sprites (*.spr)") }, ".spr", true });
    if (!file.isEmpty())
        exportFileSelected(file);
}

void SpriteMenu::exportFileSelected(const QString& file)
{
    const QPointer<SpriteBank> bank = currentBank();
    if (!bank || !bank->exportData(file))
        qInfo() << "Failed to save data";
}

void SpriteMenu::removeSpriteBank(QPointer<SpriteBank> sprites)
{
    if (!sprites || sprites->id() == mCurrent)
        mCurrent = QUuid();
}
