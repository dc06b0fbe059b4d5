#include "canvas/circlecanvastool.h"

#include "canvas/canvas.h"

void CircleCanvasTool::draw(Layer2Image& layer)
{
    layer.drawEllipse(dragRect());
}
