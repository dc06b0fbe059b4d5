#include "canvas/selectcanvastool.h"

#include "canvas/canvas.h"

#include <QMouseEvent>

void SelectCanvasTool::activate()
{
    mCanvas->setCursor(Qt::ArrowCursor);
}

void SelectCanvasTool::mousePress(QMouseEvent* event)
{
    mCanvas->selection().setAnchor(CanvasViewport::roundedPoint(event->position()));
    followMouse(event);
}

bool SelectCanvasTool::mouseMove(QMouseEvent* event)
{
    followMouse(event);
    return false; // the band is a widget of its own and repaints itself
}

void SelectCanvasTool::mouseRelease(QMouseEvent* event)
{
    // The band stays on screen after the drag.
    if (mCanvas->buttons() & Qt::RightButton)
        mCanvas->openContextMenu(mCanvas->mapToGlobal(CanvasViewport::roundedPoint(event->position())));
    else
        mCanvas->selection().setAnchor(QPoint(-1, -1));
}

void SelectCanvasTool::followMouse(QMouseEvent* event)
{
    if (mCanvas->buttons() & Qt::LeftButton)
        mCanvas->selection().setBand(mCanvas->selection().anchor(), CanvasViewport::roundedPoint(event->position()));
}
