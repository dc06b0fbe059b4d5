#include "editors/tile/tilepickertool.h"

TilePickerTool::TilePickerTool(QWidget* parent)
    : DockWidget(QStringLiteral("TilePickerTool"), tr("Tiles"), tr("No active tile set"), parent)
{
}
