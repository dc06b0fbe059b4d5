#pragma once
#include "ui/dockwidget.h"

// The dock from which the map editor takes a block to place.
class BlockSelectorWindow : public DockWidget
{
    Q_OBJECT
public:
    explicit BlockSelectorWindow(QWidget* parent = nullptr);
};
