#pragma once
#include "canvas/canvastool.h"

// The rubber-band selection; a right click opens the context menu.
class SelectCanvasTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void activate() override;
    void mousePress(QMouseEvent* event) override;
    bool mouseMove(QMouseEvent* event) override;
    void mouseRelease(QMouseEvent* event) override;

private:
    void followMouse(QMouseEvent* event);
};
