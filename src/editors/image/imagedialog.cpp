#include "editors/image/imagedialog.h"

#include "model/image.h"
#include "ui/assetcombobox.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>

using Tintorel::ImageMode;

namespace {

QString resolutionText(ImageMode mode)
{
    const QSize size = Image::sizeOf(mode);
    return QStringLiteral("%1x%2 %3 colours").arg(size.width()).arg(size.height()).arg(Image::colourCount(mode));
}

} // namespace

QUuid ImageDialog::newBlankPaletteId()
{
    return QUuid(QStringLiteral("{00000000-0000-0000-0000-000000000000}"));
}

QUuid ImageDialog::newStandardPaletteId()
{
    return QUuid(QStringLiteral("{00000000-0000-0000-0000-000000000001}"));
}

ImageDialog::ImageDialog(QWidget* parent)
    : DialogBase(tr("New Image"), parent)
    , mName(new QLineEdit(this))
    , mResolution(new QComboBox(this))
    , mPalette(new AssetComboBox(this))
{
    mName->setObjectName(QStringLiteral("name"));
    mName->setPlaceholderText(tr("Enter a name..."));
    mResolution->setObjectName(QStringLiteral("resolution"));
    mPalette->setObjectName(QStringLiteral("palette"));

    for (ImageMode mode : {ImageMode::Layer2_256x192, ImageMode::Layer2_320x256, ImageMode::Layer2_640x256,
                           ImageMode::LoRes_128x96})
        mResolution->addItem(resolutionText(mode), QVariant::fromValue(mode));
    mPalette->addFixedEntry(tr("* Create a new empty palette"), newBlankPaletteId());
    mPalette->addFixedEntry(tr("* Default Next colours"), newStandardPaletteId());
    mPalette->setCurrentIndex(0);

    form()->addRow(tr("Name"), mName);
    form()->addRow(tr("Resolution"), mResolution);
    form()->addRow(tr("Use Palette"), mPalette);
}

void ImageDialog::setPalettes(const QHash<QUuid, QString>& palettes)
{
    mName->clear();
    mPalette->setAssets(palettes);
}

QString ImageDialog::validate() const
{
    return mName->text().trimmed().isEmpty() ? tr("Please enter a name") : QString();
}

void ImageDialog::emitAccepted()
{
    emit accepted(mName->text().trimmed(), mResolution->currentData().value<ImageMode>(), mPalette->currentId());
}
