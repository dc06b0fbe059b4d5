#include "ui/paletteselectordialog.h"

#include "ui/assetcombobox.h"

#include <QFormLayout>
#include <QPushButton>

PaletteSelectorDialog::PaletteSelectorDialog(QWidget* parent)
    : DialogBase(tr("Select a palette"), parent)
    , mPalette(new AssetComboBox(this))
{
    mPalette->setObjectName(QStringLiteral("palette"));
    form()->addRow(tr("Palette"), mPalette);
    okButton()->setEnabled(false);
}

void PaletteSelectorDialog::setPalettes(const QHash<QUuid, QString>& palettes, const QUuid& current)
{
    mPalette->setAssets(palettes);
    mPalette->setCurrentId(current);
    okButton()->setEnabled(mPalette->assetCount() > 0);
}

void PaletteSelectorDialog::emitAccepted()
{
    emit accepted(mPalette->currentId());
}
