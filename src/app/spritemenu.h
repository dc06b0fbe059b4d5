#pragma once
#include "app/assetmenu.h"
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
    void swapPalette(QUuid id);

private:
    QPointer<SpriteBank> currentBank() const;

    SpriteDialog* mCreate;
    PaletteSelectorDialog* mPalettes;
    QUuid mCurrent;
};
