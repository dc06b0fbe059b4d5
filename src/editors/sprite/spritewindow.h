#pragma once
#include "ui/dockwidget.h"

// The dock in which one sprite of a sprite bank is painted.
class SpriteWindow : public DockWidget
{
    Q_OBJECT
public:
    explicit SpriteWindow(QWidget* parent = nullptr);
};
