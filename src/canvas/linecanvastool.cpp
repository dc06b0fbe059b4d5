#include "canvas/linecanvastool.h"

#include "canvas/canvas.h"

void LineCanvasTool::draw(Layer2Image& layer)
{
    layer.drawLine(mCanvas->startPixel(), mCanvas->endPixel());
}
