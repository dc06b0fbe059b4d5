#include "editors/palette/palettewindow.h"

PaletteWindow::PaletteWindow(QWidget* parent)
    : DockWidget(QStringLiteral("paletteWindow"), tr("Palette Editor"), tr("No palette selected"), parent)
{
}
