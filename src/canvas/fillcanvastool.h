#pragma once
#include "canvas/canvastool.h"

// Flood fill on release: ink with the left button, paper with the right.
class FillCanvasTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void activate() override;
    bool mouseMove(QMouseEvent*) override { return true; }
    void mouseRelease(QMouseEvent* event) override;
};
