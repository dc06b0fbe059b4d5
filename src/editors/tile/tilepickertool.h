#pragma once
#include "ui/dockwidget.h"

// The dock that shows every tile of the active tile set.
class TilePickerTool : public DockWidget
{
    Q_OBJECT
public:
    explicit TilePickerTool(QWidget* parent = nullptr);
};
