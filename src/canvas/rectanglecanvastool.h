#pragma once
#include "canvas/shapecanvastool.h"

// An outlined or a filled rectangle.
class RectangleCanvasTool : public ShapeCanvasTool
{
public:
    RectangleCanvasTool(Canvas* canvas, bool filled) : ShapeCanvasTool(canvas), mFilled(filled) {}

private:
    QString editText() const override;
    void draw(Layer2Image& layer) override;

    bool mFilled;
};
