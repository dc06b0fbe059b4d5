#pragma once
#include "canvas/shapecanvastool.h"

// An ellipse in the bounding box of the drag; nothing makes it a circle.
class CircleCanvasTool : public ShapeCanvasTool
{
public:
    using ShapeCanvasTool::ShapeCanvasTool;

private:
    QString editText() const override { return QStringLiteral("Circle"); }
    void draw(Layer2Image& layer) override;
};
