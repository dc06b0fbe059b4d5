#include "editors/tile/tilewindow.h"

TileWindow::TileWindow(QWidget* parent)
    : DockWidget(QStringLiteral("TileEditor"), tr("Tile Editor"), tr("No tile set selected"), parent)
{
}
