#include "ui/tilemapwidthdialog.h"

#include "interchange/tilemapimport.h"
#include "model/map.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>

TileMapWidthDialog::TileMapWidthDialog(QWidget* parent)
    : DialogBase(tr("Import Tile Map"), parent)
    , mWidth(new QSpinBox(this))
    , mRows(new QLabel(this))
{
    mWidth->setObjectName(QStringLiteral("width"));
    mWidth->setRange(1, Map::MaxSide);
    form()->addRow(tr("Width in cells"), mWidth);
    form()->addRow(tr("Rows"), mRows);
    connect(mWidth, &QSpinBox::valueChanged, this, &TileMapWidthDialog::showRows);
}

void TileMapWidthDialog::setMapFile(const QString& file, qint64 cells)
{
    mFile = file;
    mCells = cells;
    setWindowTitle(tr("Import Tile Map: %1").arg(QFileInfo(file).fileName()));
    mWidth->setValue(TileMapImport::proposedWidth(cells));
    showRows();
}

int TileMapWidthDialog::width() const
{
    return mWidth->value();
}

void TileMapWidthDialog::showRows()
{
    const int width = mWidth->value();
    mRows->setText(mCells % width ? tr("%1 cells are not whole rows of %2").arg(mCells).arg(width)
                                  : QString::number(mCells / width));
}

QString TileMapWidthDialog::validate() const
{
    const int width = mWidth->value();
    if (mCells < 1 || mCells % width)
        return tr("%1 cells are not whole rows of %2").arg(mCells).arg(width);
    return {};
}

void TileMapWidthDialog::emitAccepted()
{
    emit accepted(mFile, mWidth->value());
}
