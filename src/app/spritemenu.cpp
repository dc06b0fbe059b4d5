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
    , mBinary(new SpriteEditor::ImportBinaryDialog(parent))
    , mImage(new SpriteEditor::ImportImageDialog(parent))
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
    connect(mBinary, &SpriteEditor::ImportBinaryDialog::accepted, this, &SpriteMenu::binaryChosen);
    connect(mImage, &SpriteEditor::ImportImageDialog::accepted, this, &SpriteMenu::imageChosen);
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
    mBinary->prepare(file, project()->paletteNames(), currentBank());
    mBinary->open();
}

void SpriteMenu::importImage(const QString& file)
{
    if (!project())
        return;
    mImage->prepare(file, project()->paletteNames(), currentBank());
    mImage->open();
}

void SpriteMenu::appendToBank(const QString& text, const std::function<void()>& change)
{
    const QPointer<SpriteBank> bank = currentBank();
    emit bank->structureAboutToChange();
    change();
    emit bank->structureChanged(text);
}

void SpriteMenu::binaryChosen(SpriteEditor::ImportBinaryDialog::ImportActions flags, const QUuid& paletteId)
{
    if (!project())
        return;
    const QString file = mBinary->file();
    SpriteBank* bank = nullptr;
    ImportReport report;
    const auto actions = SpriteFile::ImportActions(int(flags));
    if (flags.testFlag(SpriteEditor::ImportBinaryDialog::Append) && currentBank())
        appendToBank(tr("Import Sprites"),
                     [&] { report = SpriteFile::import(*project(), file, actions, currentBank(), {}, &bank); });
    else
        report = SpriteFile::import(*project(), file, actions & ~SpriteFile::Append, nullptr, paletteId, &bank);
    showImportReport(report);
    imported(file, bank);
}

void SpriteMenu::imageChosen(SpriteEditor::ImportImageDialog::ImportActions flags, const QUuid& paletteId)
{
    if (!project())
        return;
    const QString file = mImage->file();
    SpriteBank* bank = nullptr;
    if (flags.testFlag(SpriteEditor::ImportImageDialog::Append) && currentBank()) {
        bank = currentBank();
        int count = -1;
        appendToBank(tr("Import Sprites"), [&] { count = bank->importImage(file); });
        if (count < 0)
            showImportReport(ImportReport::failure(tr("Read error")));
    } else {
        const QUuid palette = flags.testFlag(SpriteEditor::ImportImageDialog::ProjectPalette) ? paletteId : QUuid();
        showImportReport(importSpriteSheet(*project(), file, &bank, palette));
    }
    imported(file, bank);
}

void SpriteMenu::imported(const QString& file, SpriteBank* bank)
{
    if (!bank)
        return;
    emit import(file, bank->name(), bank->paletteId());
    emit bankImported(bank->id());
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
