#include "ui/tilesetdialog.h"

#include "ui/assetcombobox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>

TileSetDialog::TileSetDialog(QWidget* parent)
    : DialogBase(tr("Create a new Tile Set"), parent)
    , mName(new QLineEdit(this))
    , mTileCount(new QComboBox(this))
    , mHiRes(new QCheckBox(tr("High resolution"), this))
    , mPalette(new AssetComboBox(this))
{
    mName->setObjectName(QStringLiteral("name"));
    mTileCount->setObjectName(QStringLiteral("tileCount"));
    mPalette->setObjectName(QStringLiteral("palette"));
    mTileCount->addItem(QStringLiteral("256"), 256);
    mTileCount->addItem(QStringLiteral("512"), 512);
    // The null id asks the project to make a palette named after the set.
    mPalette->addFixedEntry(tr("New empty palette"));
    mPalette->setCurrentIndex(0);

    form()->addRow(tr("Name"), mName);
    form()->addRow(tr("Tile Count"), mTileCount);
    form()->addRow(QString(), mHiRes);
    form()->addRow(tr("Palette"), mPalette);
}

void TileSetDialog::setPalettes(const QHash<QUuid, QString>& palettes)
{
    mName->clear();
    mPalette->setAssets(palettes);
}

QString TileSetDialog::validate() const
{
    return mName->text().trimmed().isEmpty() ? tr("Name is required") : QString();
}

void TileSetDialog::emitAccepted()
{
    emit accepted(mName->text().trimmed(), mPalette->currentId(), mTileCount->currentData().toInt(),
                  mHiRes->isChecked());
}
