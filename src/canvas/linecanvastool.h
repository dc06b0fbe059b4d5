#pragma once
#include "canvas/shapecanvastool.h"

// A straight line from the press to the release.
class LineCanvasTool : public ShapeCanvasTool
{
public:
    using ShapeCanvasTool::ShapeCanvasTool;

private:
    QString editText() const override { return QStringLiteral("Line"); }
    void draw(Layer2Image& layer) override;
};
