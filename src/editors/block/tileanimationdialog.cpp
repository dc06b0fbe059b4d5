#include "editors/block/tileanimationdialog.h"

#include "ui/assetcombobox.h"

#include <QFormLayout>
#include <QLineEdit>

namespace {

QString noTileSetsMessage()
{
    return TileAnimationDialog::tr("There are no usable tile sets");
}

} // namespace

TileAnimationDialog::TileAnimationDialog(QWidget* parent)
    : DialogBase(tr("Animated Tiles"), parent)
    , mName(new QLineEdit(this))
    , mTileSet(new AssetComboBox(this))
{
    mName->setObjectName(QStringLiteral("name"));
    mName->setPlaceholderText(tr("Enter a name"));
    mTileSet->setObjectName(QStringLiteral("tileSet"));
    form()->addRow(tr("Name"), mName);
    form()->addRow(tr("Tile Set"), mTileSet);
}

void TileAnimationDialog::setTileSets(const QHash<QUuid, QString>& tileSets)
{
    mName->clear();
    mTileSet->setAssets(tileSets);
    setMessage(mTileSet->assetCount() == 0 ? noTileSetsMessage() : QString());
}

void TileAnimationDialog::show(const QHash<QUuid, QString>& tileSets)
{
    setTileSets(tileSets);
    open();
}

QString TileAnimationDialog::validate() const
{
    // Without a tile set no name can help, so that comes first.
    if (mTileSet->assetCount() == 0)
        return noTileSetsMessage();
    if (mName->text().trimmed().isEmpty())
        return tr("Please enter a name");
    return {};
}

void TileAnimationDialog::emitAccepted()
{
    emit accepted(mName->text().trimmed(), mTileSet->currentId());
}
