#include "ui/exportmapdialog.h"

#include <QCheckBox>
#include <QFormLayout>

namespace {

QCheckBox* optionBox(const QString& text, QWidget* parent)
{
    auto* box = new QCheckBox(text, parent);
    box->setChecked(true);
    return box;
}

} // namespace

ExportMapDialog::ExportMapDialog(QWidget* parent)
    : DialogBase(tr("Export Map Data"), parent)
    , mMapData(optionBox(tr("Export Map Data"), this))
    , mTileData(optionBox(tr("Export Tile Data"), this))
    , mPaletteData(optionBox(tr("Export Palette Data"), this))
{
    form()->addRow(mMapData);
    form()->addRow(mTileData);
    form()->addRow(mPaletteData);
}

ExportMapDialog::Options ExportMapDialog::options() const
{
    Options chosen;
    chosen.setFlag(MapData, mMapData->isChecked());
    chosen.setFlag(TileData, mTileData->isChecked());
    chosen.setFlag(PaletteData, mPaletteData->isChecked());
    return chosen;
}

QString ExportMapDialog::validate() const
{
    return options() ? QString() : tr("At least one option must be chosen");
}

void ExportMapDialog::emitAccepted()
{
    emit accepted(options());
}
