#include "mapeditor/picktool.h"

#include "mapeditor/mapgrid.h"

#include <QMouseEvent>
#include <QPixmap>

namespace MapEditor {

bool PickTool::activate()
{
    if (grid->previousMode() != Tintorel::Ui::Pick)
        mReturnMode = grid->previousMode();
    grid->setCursor(QCursor(QPixmap(QStringLiteral(":/PickerCursor")), 5, 28));
    return true;
}

void PickTool::release(QMouseEvent* event)
{
    if (!(grid->buttons() & Qt::LeftButton))
        return;
    grid->pickCell(grid->view().pixelToCellUnsnapped(event->position().toPoint()));
    grid->setMode(mReturnMode);
}

} // namespace MapEditor
