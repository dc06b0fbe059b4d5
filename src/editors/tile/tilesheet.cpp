#include "editors/tile/tilesheet.h"

#include "model/tile.h"
#include "ui/checklist.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStandardItemModel>

namespace {

constexpr int BitRole = Qt::UserRole + 1;

struct Flag
{
    const char* label;
    int bit;
    const char* tip;
};

const Flag kFlags[] = {
    { QT_TRANSLATE_NOOP("TileSheet", "Deadly/Harmful"), Tile::TA_DEADLY,
      QT_TRANSLATE_NOOP("TileSheet", "Makes this tile harmful to the player") },
    { QT_TRANSLATE_NOOP("TileSheet", "Collectible"), Tile::TA_COLLECTIBLE,
      QT_TRANSLATE_NOOP("TileSheet", "Tile can be picked up/removed on contact with the player") },
    { QT_TRANSLATE_NOOP("TileSheet", "Climbable"), Tile::TA_LADDER,
      QT_TRANSLATE_NOOP("TileSheet", "Tile represents a rope/ladder climbable element") },
    { QT_TRANSLATE_NOOP("TileSheet", "Door/Exit"), Tile::TA_DOOR,
      QT_TRANSLATE_NOOP("TileSheet", "May be used as a door or exit") },
};

} // namespace

TileSheet::TileSheet(QWidget* parent)
    : QWidget(parent)
    , mSolid(new CheckList(this))
    , mValue(new QSpinBox(this))
{
    mSolid->setAllCheckedText(tr("All Sides"));
    mSolid->setNoneCheckedText(tr("Empty"));
    mSolid->setSomeCheckedText(tr("Oook!"));
    // Shown clockwise from the top; the bits are those of the attribute byte.
    mSolid->addCheckItem(tr("Top"), int(Tile::TA_TOPSOLID), Qt::Unchecked);
    mSolid->addCheckItem(tr("Right"), int(Tile::TA_RIGHTSOLID), Qt::Unchecked);
    mSolid->addCheckItem(tr("Bottom"), int(Tile::TA_BOTTOMSOLID), Qt::Unchecked);
    mSolid->addCheckItem(tr("Left"), int(Tile::TA_LEFTSOLID), Qt::Unchecked);
    mValue->setRange(0, 255);

    auto* form = new QFormLayout(this);
    form->addRow(tr("Solid Edges"), mSolid);
    for (const Flag& flag : kFlags) {
        auto* box = new QCheckBox(this);
        box->setToolTip(tr(flag.tip));
        box->setProperty("attribute", flag.bit);
        form->addRow(tr(flag.label), box);
        mFlags.append(box);
    }
    form->addRow(tr("Value/Weight"), mValue);
    setEnabled(false);
}

void TileSheet::setTile(QPointer<Tile> tile)
{
    for (const QMetaObject::Connection& connection : std::as_const(mConnections))
        disconnect(connection);
    mConnections.clear();
    mTile = tile;
    setEnabled(mTile);
    // Loaded before the signals are connected, so that a load writes nothing back.
    load();
    if (!mTile)
        return;
    for (QCheckBox* box : std::as_const(mFlags))
        mConnections << connect(box, &QCheckBox::toggled, this, &TileSheet::updateAttributes);
    mConnections << connect(mSolid, &CheckList::globalCheckStateChanged, this, &TileSheet::solidStateChanged);
    mConnections << connect(mValue, qOverload<int>(&QSpinBox::valueChanged), this, [this](int value) {
        if (mTile) {
            mTile->setValue(value);
            emit attributesEdited();
        }
    });
}

void TileSheet::load()
{
    const int attributes = mTile ? mTile->attributes() : 0;
    for (QCheckBox* box : std::as_const(mFlags)) {
        const QSignalBlocker blocker(box);
        box->setChecked(attributes & box->property("attribute").toInt());
    }
    const QStandardItemModel* items = mSolid->checkModel();
    for (int row = 0; row < items->rowCount(); ++row)
        mSolid->setItemChecked(row, attributes & items->item(row)->data(BitRole).toInt());
    const QSignalBlocker blocker(mValue);
    mValue->setValue(mTile ? mTile->value() : 0);
}

void TileSheet::updateAttributes(bool state)
{
    const QVariant bit = sender() ? sender()->property("attribute") : QVariant();
    if (!mTile || !bit.isValid())
        return;
    const int mask = bit.toInt();
    mTile->setAttributes(state ? (mTile->attributes() | mask) : (mTile->attributes() & ~mask));
    emit attributesEdited();
}

void TileSheet::solidStateChanged(int)
{
    if (!mTile)
        return;
    int attributes = mTile->attributes() & ~int(Tile::TA_SOLID);
    const QStandardItemModel* items = mSolid->checkModel();
    for (int row = 0; row < items->rowCount(); ++row)
        if (items->item(row)->checkState() == Qt::Checked)
            attributes |= items->item(row)->data(BitRole).toInt();
    mTile->setAttributes(attributes);
    emit attributesEdited();
}
