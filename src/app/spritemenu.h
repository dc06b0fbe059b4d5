#pragma once
#include "app/assetmenu.h"
#include "editors/sprite/importbinarydialog.h"
#include "editors/sprite/importimagedialog.h"
#include "editors/sprite/spritedialog.h"

#include <QUuid>

class PaletteSelectorDialog;
class SpriteBank;

// "Sprites": new banks, sprite files and pictures in, the .spr export, and
// another palette for the current bank.
class SpriteMenu : public AssetMenu
{
    Q_OBJECT
public:
    SpriteMenu(FileChooser* files, QWidget* parent = nullptr);

    SpriteDialog* createDialog() const { return mCreate; }
    SpriteEditor::ImportBinaryDialog* binaryDialog() const { return mBinary; }
    SpriteEditor::ImportImageDialog* imageDialog() const { return mImage; }
    void setCurrentBank(const QUuid& id) { mCurrent = id; }
    QUuid currentBankId() const { return mCurrent; }

public slots:
    void displayExportFileDialog();
    void displayCreateDialog();
    void displayImportDialog();
    void displaySwapPaletteDialog();
    void exportFileSelected(const QString& file);
    void importFileSelected(const QString& file);
    void removeSpriteBank(QPointer<SpriteBank> sprites);
    void importBinaryData(const QString& file);
    void importImage(const QString& file);

signals:
    void create(SpriteDialog::CreateOptions options, QString name, QUuid paletteId);
    void import(QString file, QString name, QUuid paletteId);
    // The bank that an import made or filled, for its editor to show.
    void bankImported(QUuid bankId);
    void swapPalette(QUuid id);

private:
    QPointer<SpriteBank> currentBank() const;
    void binaryChosen(SpriteEditor::ImportBinaryDialog::ImportActions flags, const QUuid& paletteId);
    void imageChosen(SpriteEditor::ImportImageDialog::ImportActions flags, const QUuid& paletteId);
    // Appending to the open bank is one undo step of its structure.
    void appendToBank(const QString& text, const std::function<void()>& change);
    void imported(const QString& file, SpriteBank* bank);

    SpriteDialog* mCreate;
    SpriteEditor::ImportBinaryDialog* mBinary;
    SpriteEditor::ImportImageDialog* mImage;
    PaletteSelectorDialog* mPalettes;
    QUuid mCurrent;
};
