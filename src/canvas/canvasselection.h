#pragma once
#include <QPoint>
#include <QRect>
#include <QRubberBand>

class Canvas;

// The rubber-band selection of a canvas. The band lives in widget
// coordinates, snapped to the lattice of zoomed pixels in the image area,
// and stays where it is on screen through scrolling and zooming.
class CanvasSelection
{
public:
    explicit CanvasSelection(Canvas* canvas);

    bool isVisible() const { return !mBand.isHidden(); }
    // In widget coordinates.
    QRect band() const { return mBand.geometry(); }
    // Widget point of the press; (-1, -1) once a drag has ended.
    QPoint anchor() const { return mAnchor; }
    void setAnchor(const QPoint& anchor) { mAnchor = anchor; }
    // Lays the band from the cell of `a` to the cell of `b`, held within
    // the image area, and shows it.
    void setBand(const QPoint& a, const QPoint& b);
    void hide() { mBand.hide(); }
    // The image pixels under the band: the cells it spans, less the one
    // under its far corner. Empty while the band is hidden.
    QRect pixels() const;

private:
    Canvas* mCanvas;
    QRubberBand mBand;
    QPoint mAnchor;
};
