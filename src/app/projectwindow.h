#pragma once
#include "ui/dockwidget.h"

// The dock that lists the assets of the open project.
class ProjectWindow : public DockWidget
{
    Q_OBJECT
public:
    explicit ProjectWindow(QWidget* parent = nullptr);
};
