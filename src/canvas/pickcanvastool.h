#pragma once
#include "canvas/canvastool.h"

// Takes the index under the mouse on release: ink with the left button,
// paper with the right.
class PickCanvasTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void activate() override;
    bool mouseMove(QMouseEvent*) override { return true; }
    void mouseRelease(QMouseEvent* event) override;
};
