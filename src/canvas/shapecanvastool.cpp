#include "canvas/shapecanvastool.h"

#include "canvas/canvas.h"

#include <algorithm>

void ShapeCanvasTool::activate()
{
    mCanvas->setCursor(Qt::CrossCursor);
    mCanvas->resetPoints();
}

bool ShapeCanvasTool::mouseMove(QMouseEvent*)
{
    return true;
}

void ShapeCanvasTool::mouseRelease(QMouseEvent*)
{
    mCanvas->beginEdit();
    // Drawn also when the drag began outside the image: the part inside counts.
    draw(mCanvas->layer());
    mCanvas->resetPoints();
    mCanvas->repaint();
    emit mCanvas->imageChanged();
    mCanvas->commitEdit(editText(), -1);
}

void ShapeCanvasTool::preview(Layer2Image& layer)
{
    draw(layer);
}

QRect ShapeCanvasTool::dragRect() const
{
    const QPoint a = mCanvas->startPixel();
    const QPoint b = mCanvas->endPixel();
    return QRect(QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
                 QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y())));
}
