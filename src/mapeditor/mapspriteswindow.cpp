#include "mapeditor/mapspriteswindow.h"

MapSpritesWindow::MapSpritesWindow(QWidget* parent)
    : DockWidget(QStringLiteral("MapSpritesWindow"), tr("Map Sprites"), tr("No sprite banks"), parent)
{
}
