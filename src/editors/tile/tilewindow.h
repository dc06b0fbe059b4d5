#pragma once
#include "ui/dockwidget.h"

// The dock in which one tile of a tile set is painted.
class TileWindow : public DockWidget
{
    Q_OBJECT
public:
    explicit TileWindow(QWidget* parent = nullptr);
};
