#include "editors/sprite/spriteimportdialog.h"

#include "ui/assetcombobox.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace SpriteEditor {

namespace {
constexpr int AppendFlag = 1;
} // namespace

SpriteImportDialog::SpriteImportDialog(const QString& title, const QString& createText,
                                       const QString& existingText, int createFlag, int existingFlag,
                                       QWidget* parent)
    : DialogBase(title, parent)
    , mFile(new QLabel(this))
    , mAppend(new QCheckBox(tr("Append to current sprite bank"), this))
    , mCreate(new QRadioButton(createText, this))
    , mExisting(new QRadioButton(existingText, this))
    , mPalette(new AssetComboBox(this))
    , mCreateFlag(createFlag)
    , mExistingFlag(existingFlag)
{
    auto* fileGroup = new QGroupBox(tr("File"), this);
    auto* fileLayout = new QVBoxLayout(fileGroup);
    fileLayout->addWidget(mFile);
    fileLayout->addWidget(mAppend);
    auto* paletteGroup = new QGroupBox(tr("Palette"), this);
    auto* paletteLayout = new QVBoxLayout(paletteGroup);
    paletteLayout->addWidget(mCreate);
    paletteLayout->addWidget(mExisting);
    paletteLayout->addWidget(mPalette);
    form()->addRow(fileGroup);
    form()->addRow(paletteGroup);
    mCreate->setChecked(true);
    mPalette->setEnabled(false);
    // The palette list means something only for the existing-palette choice.
    connect(mCreate, &QRadioButton::toggled, mPalette, [this](bool on) { mPalette->setEnabled(!on); });
    // Appended sprites take the open bank's palette.
    connect(mAppend, &QCheckBox::toggled, this, [this](bool on) {
        mCreate->setEnabled(!on);
        mExisting->setEnabled(!on);
        mPalette->setEnabled(!on && mExisting->isChecked());
    });
}

void SpriteImportDialog::prepare(const QString& file, const QHash<QUuid, QString>& palettes, bool canAppend)
{
    mFileName = file;
    mFile->setText(QFileInfo(file).fileName());
    mFile->setToolTip(file);
    mPalette->setAssets(palettes);
    mAppend->setChecked(false);
    mAppend->setEnabled(canAppend);
    mExisting->setEnabled(mPalette->assetCount() > 0);
}

QString SpriteImportDialog::validate() const
{
    if (!mAppend->isChecked() && mExisting->isChecked() && mPalette->currentId().isNull())
        return tr("Choose a palette");
    return {};
}

void SpriteImportDialog::emitAccepted()
{
    int flags = mAppend->isChecked() ? AppendFlag : 0;
    flags |= mExisting->isChecked() ? mExistingFlag : mCreateFlag;
    emit chosen(flags, mExisting->isChecked() ? mPalette->currentId() : QUuid());
}

} // namespace SpriteEditor
