#pragma once
#include "canvas/canvastool.h"

#include <QImage>

// Stamps the clip of the canvas's clipboard centred on the mouse, and shows
// it there in the target's colours before the click. Stays current after a
// stamp, so one clip can be stamped any number of times.
class PasteCanvasTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void activate() override {}
    bool mouseMove(QMouseEvent*) override { return true; }
    void mouseRelease(QMouseEvent* event) override;
    void paint(CanvasPainter& painter) override;

private:
    // Null when there is nothing to paste.
    QImage clip() const;
};
