#pragma once
#include "canvas/canvastool.h"

// Freehand: ink under the left button, paper under the right. Each move sets
// only the cell under the mouse; the whole stroke is one edit.
class DrawCanvasTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void activate() override;
    void mousePress(QMouseEvent* event) override;
    bool mouseMove(QMouseEvent* event) override;
    void mouseRelease(QMouseEvent* event) override;

private:
    void plot();
};
