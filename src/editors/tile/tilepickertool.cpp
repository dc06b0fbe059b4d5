#include "editors/tile/tilepickertool.h"

#include "editors/tile/tilepickergrid.h"
#include "model/tileset.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

TilePickerTool::TilePickerTool(QWidget* parent)
    : DockWidget(QStringLiteral("TilePickerTool"), tr("Tiles"), tr("No active tile set"), parent)
    , mGrid(new TilePickerGrid)
    , mStatus(new QLabel)
{
    auto* scroll = new QScrollArea;
    scroll->setWidget(mGrid);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(scroll);
    layout->addWidget(mStatus);
    setContent(content);
    connect(mGrid, &TilePickerGrid::itemDoubleClicked, this, &TilePickerTool::tileDoubleClicked);
    connect(mGrid, &TilePickerGrid::selectedIndexChanged, this, &TilePickerTool::selectedTileChanged);
}

void TilePickerTool::setTileSet(TileSet* tileSet)
{
    if (mTileSet)
        disconnect(mTileSet, nullptr, this, nullptr);
    mTileSet = tileSet;
    mGrid->setTileSet(tileSet);
    setActive(mTileSet);
    if (mTileSet) {
        connect(mTileSet, &TileSet::tileInserted, this, &TilePickerTool::updateStatus);
        connect(mTileSet, &TileSet::tileDeleted, this, &TilePickerTool::updateStatus);
        connect(mTileSet, &TileSet::restored, this, &TilePickerTool::updateStatus);
        connect(mTileSet, &QObject::destroyed, this, [this] { setTileSet(nullptr); });
    }
    updateStatus();
}

void TilePickerTool::updateStatus()
{
    mStatus->setText(mTileSet ? tr("Tiles: %1").arg(mTileSet->count()) : QString());
}

int TilePickerTool::zoom() const
{
    return mGrid->zoom();
}

void TilePickerTool::setZoom(int level)
{
    mGrid->setZoom(level);
}

QList<QAction*> TilePickerTool::magnifications() const
{
    return mGrid->magnifications();
}
