#include "editors/block/blockselectorwindow.h"

BlockSelectorWindow::BlockSelectorWindow(QWidget* parent)
    : DockWidget(QStringLiteral("TileListWindow"), tr("Map Objects"), tr("No tile active tile set"), parent)
{
}
