#pragma once
#include "ui/dockwidget.h"

// The dock from which sprites and sprite animations are chosen for placing on a map.
class MapSpritesWindow : public DockWidget
{
    Q_OBJECT
public:
    explicit MapSpritesWindow(QWidget* parent = nullptr);
};
