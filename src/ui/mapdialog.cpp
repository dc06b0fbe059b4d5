#include "ui/mapdialog.h"

#include "model/map.h"
#include "ui/assetcombobox.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QSpinBox>

namespace {

// One screen of the machine, 320 by 256 pixels, in cells.
constexpr QSize DefaultSize(40, 32);

QSpinBox* sideBox(int value, QWidget* parent)
{
    auto* box = new QSpinBox(parent);
    box->setRange(1, Map::MaxSide);
    box->setValue(value);
    return box;
}

} // namespace

MapDialog::MapDialog(QWidget* parent)
    : DialogBase(tr("Create a new Map"), parent)
    , mName(new QLineEdit(this))
    , mWidth(sideBox(DefaultSize.width(), this))
    , mHeight(sideBox(DefaultSize.height(), this))
    , mTileSet(new AssetComboBox(this))
{
    mName->setObjectName(QStringLiteral("name"));
    mWidth->setObjectName(QStringLiteral("width"));
    mHeight->setObjectName(QStringLiteral("height"));
    mTileSet->setObjectName(QStringLiteral("tileSet"));

    form()->addRow(tr("Map Name"), mName);
    form()->addRow(tr("Width"), mWidth);
    form()->addRow(tr("Height"), mHeight);
    form()->addRow(tr("Tile set"), mTileSet);
}

void MapDialog::setTileSets(const QHash<QUuid, QString>& tileSets)
{
    mName->clear();
    mTileSet->setAssets(tileSets);
}

QString MapDialog::validate() const
{
    if (mName->text().trimmed().isEmpty())
        return tr("Name is required");
    if (mTileSet->currentId().isNull())
        return tr("Select a tile set");
    return {};
}

void MapDialog::emitAccepted()
{
    QSize size(mWidth->value(), mHeight->value());
    emit accepted(mName->text().trimmed(), mTileSet->currentId(), size);
}
