#pragma once
#include "ui/dockwidget.h"

// The dock in which the colours of one palette are edited.
class PaletteWindow : public DockWidget
{
    Q_OBJECT
public:
    explicit PaletteWindow(QWidget* parent = nullptr);
};
