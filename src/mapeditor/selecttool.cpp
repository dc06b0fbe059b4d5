#include "mapeditor/selecttool.h"

#include "mapeditor/mapgrid.h"
#include "mapeditor/mappainter.h"

#include <QMouseEvent>

namespace MapEditor {

bool SelectTool::activate()
{
    grid->setPasteRect(QRect());
    grid->setSelection(QRect());
    grid->setCursor(Qt::CrossCursor);
    return true;
}

bool SelectTool::filterPress(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::RightButton) || grid->selection().width() < 1)
        return false;
    grid->setButtons(0);
    grid->runContextMenu(event->globalPosition().toPoint());
    return true;
}

void SelectTool::move(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return;
    const QPoint from = grid->pressPos();
    const QPoint to = event->position().toPoint();
    const QRect rect(QPoint(qMin(from.x(), to.x()), qMin(from.y(), to.y())),
                     QPoint(qMax(from.x(), to.x()), qMax(from.y(), to.y())));
    grid->rubberBand()->setGeometry(rect);
    if (!grid->rubberBand()->isVisible())
        grid->rubberBand()->show();
    grid->setSelection(grid->view().pixelRectToCells(rect));
    grid->repaint();
}

void SelectTool::paintUnderGrid(MapPainter& painter)
{
    // The frame of the selection is what stays on screen.
    grid->hideRubberBand();
    if (grid->selection().isValid())
        painter.drawSelectionFrame(grid->view().cellRectToWidget(grid->selection()));
}

} // namespace MapEditor
