#include "app/projectwindow.h"

ProjectWindow::ProjectWindow(QWidget* parent)
    : DockWidget(QStringLiteral("ProjectWindow"), tr("Project"), tr("No project loaded"), parent)
{
}
