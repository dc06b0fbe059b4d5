#include "editors/sprite/spritewindow.h"

SpriteWindow::SpriteWindow(QWidget* parent)
    : DockWidget(QStringLiteral("SpriteEditor"), tr("Sprite Editor"), tr("No sprites selected"), parent)
{
}
