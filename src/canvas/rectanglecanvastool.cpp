#include "canvas/rectanglecanvastool.h"

#include "canvas/canvas.h"

QString RectangleCanvasTool::editText() const
{
    return mFilled ? QStringLiteral("Filled Rectangle") : QStringLiteral("Rectangle");
}

void RectangleCanvasTool::draw(Layer2Image& layer)
{
    if (mFilled)
        layer.fillRect(dragRect(), mCanvas->ink());
    else
        layer.drawRectangle(dragRect());
}
