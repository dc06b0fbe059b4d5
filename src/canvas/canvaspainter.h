#pragma once
#include <QPainter>
#include <array>

class Canvas;

// The painter of one canvas paint, with the canvas's measures on screen:
// the zoomed row height and the checker and grid steps, which never go
// below 16 screen pixels so that they stay legible at small zooms.
class CanvasPainter : public QPainter
{
public:
    explicit CanvasPainter(Canvas* canvas);

    Canvas* canvas() const { return mCanvas; }
    int zoomY() const { return mZoomY; }
    int stepX() const { return mStepX; }
    int stepY() const { return mStepY; }

    // The whole widget in the window colour of its palette.
    void fillBackground();
    // The visible part of `picture` scaled into the canvas's image area.
    void drawPicture(const QImage& picture);
    // An overlay of alternating squares over the image area.
    void drawChecker(const std::array<QColor, 2>& colours, int alpha);
    void drawGridLines();

private:
    Canvas* mCanvas;
    int mZoomY;
    int mStepX;
    int mStepY;
};
