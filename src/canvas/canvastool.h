#pragma once

class Canvas;
class CanvasPainter;
class Layer2Image;
class QMouseEvent;

// One mode of the canvas that takes the mouse. The canvas routes its events
// to the current tool; a tool holds only the state of its gesture and reads
// the points and buttons from the canvas.
class CanvasTool
{
public:
    explicit CanvasTool(Canvas* canvas) : mCanvas(canvas) {}
    virtual ~CanvasTool() = default;

    // Sets the cursor as the tool becomes current.
    virtual void activate() = 0;
    virtual void mousePress(QMouseEvent*) {}
    // True asks the canvas to repaint at once.
    virtual bool mouseMove(QMouseEvent*) { return false; }
    virtual void mouseRelease(QMouseEvent*) {}
    // Draws the shape in progress on the throw-away image of a paint.
    virtual void preview(Layer2Image&) {}
    // Draws over everything else the canvas painted.
    virtual void paint(CanvasPainter&) {}

protected:
    Canvas* mCanvas;
};
