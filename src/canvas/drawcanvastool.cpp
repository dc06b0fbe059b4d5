#include "canvas/drawcanvastool.h"

#include "canvas/canvas.h"

void DrawCanvasTool::activate()
{
    mCanvas->setCursor(Qt::CrossCursor);
}

void DrawCanvasTool::mousePress(QMouseEvent*)
{
    mCanvas->beginEdit();
    plot();
    mCanvas->update();
}

bool DrawCanvasTool::mouseMove(QMouseEvent*)
{
    plot();
    return true;
}

void DrawCanvasTool::mouseRelease(QMouseEvent*)
{
    emit mCanvas->imageChanged();
    mCanvas->commitEdit(QStringLiteral("Draw"), -1);
}

void DrawCanvasTool::plot()
{
    // At the last hover or drag position, which mouse tracking keeps fresh.
    Layer2Image& layer = mCanvas->layer();
    if (mCanvas->buttons() & Qt::LeftButton)
        layer.plot(mCanvas->lastPixel());
    else if (mCanvas->buttons() & Qt::RightButton)
        layer.plotPaper(mCanvas->lastPixel());
}
