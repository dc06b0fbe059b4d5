#pragma once
#include "canvas/canvastool.h"

#include <QRect>
#include <QString>

// A shape dragged from the press to the release: previewed while the mouse
// moves, drawn in ink on release as one edit. Both buttons draw alike.
class ShapeCanvasTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void activate() override;
    bool mouseMove(QMouseEvent* event) override;
    void mouseRelease(QMouseEvent* event) override;
    void preview(Layer2Image& layer) override;

protected:
    // The normalised rectangle of the drag, corners inclusive.
    QRect dragRect() const;

private:
    virtual QString editText() const = 0;
    virtual void draw(Layer2Image& layer) = 0;
};
