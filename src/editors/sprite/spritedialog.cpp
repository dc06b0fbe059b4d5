#include "editors/sprite/spritedialog.h"

#include "ui/assetcombobox.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

SpriteDialog::SpriteDialog(QWidget* parent)
    : DialogBase(tr("Create a new Sprite Bank"), parent)
    , mName(new QLineEdit(this))
    , mFourBit(new QRadioButton(tr("16 Colour Sprites"), this))
    , mPalette(new AssetComboBox(this))
{
    mName->setObjectName(QStringLiteral("name"));
    mName->setPlaceholderText(tr("Name..."));
    mPalette->setObjectName(QStringLiteral("palette"));
    mPalette->addFixedEntry(tr("Create a new empty palette"));
    mPalette->setCurrentIndex(0);

    auto* eightBit = new QRadioButton(tr("256 Colour Sprites"), this);
    eightBit->setChecked(true);
    auto* depths = new QVBoxLayout;
    depths->addWidget(mFourBit);
    depths->addWidget(eightBit);

    form()->addRow(tr("Name"), mName);
    form()->addRow(QString(), depths);
    form()->addRow(tr("Palette"), mPalette);
}

void SpriteDialog::setPalettes(const QHash<QUuid, QString>& palettes)
{
    mName->clear();
    mPalette->setAssets(palettes);
}

void SpriteDialog::show(const QHash<QUuid, QString>& palettes)
{
    setPalettes(palettes);
    open();
}

QString SpriteDialog::validate() const
{
    return mName->text().trimmed().isEmpty() ? tr("Name cannot be blank") : QString();
}

void SpriteDialog::emitAccepted()
{
    const QUuid paletteId = mPalette->currentId();
    CreateOptions options = mFourBit->isChecked() ? FourBit : EightBit;
    options |= paletteId.isNull() ? CreateNewPalette : UseProjectPalette;
    emit accepted(options, mName->text().trimmed(), paletteId);
}
