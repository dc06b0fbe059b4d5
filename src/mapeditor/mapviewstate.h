#pragma once
#include <QPoint>
#include <QRect>
#include <QSize>

namespace MapEditor {

// The camera of a map: zoom, cell size, scroll, snap and viewport, and the
// conversions between the three kinds of coordinate that must never mix:
// widget pixels, map cells, and map pixels (8 to a cell, whatever the zoom).
struct MapViewState
{
    int cellSize = 8;
    int zoom = 4;
    int scaledCell = 32;
    int snap = 1;
    bool viewPortEnabled = false;
    QSize viewPortSize { -1, -1 };
    QPoint scroll { 0, 0 };
    QRect drawRect;

    // Levels outside 1 to 8 leave the zoom, but a fitted cell size goes.
    void setZoom(int level);
    void setCellSize(int size);
    // Zoom 1, and the largest whole cell that shows the map (or viewport).
    void fit(const QSize& widgetSize, const QSize& mapSize);
    void setViewPort(bool enabled, const QSize& size);
    // At most one step, x before y; true when something moved.
    bool scrollBy(const QPoint& delta, const QSize& mapSize);
    QSize scrollRange(const QSize& mapSize) const;
    QRect visibleCells() const;

    QPoint snapped(const QPoint& cell) const;
    QPoint pixelToCell(const QPoint& pixel) const;
    QPoint pixelToCellUnsnapped(const QPoint& pixel) const;
    QPoint pixelToMapPixel(const QPoint& pixel) const;
    QPoint snappedMapPixel(const QPoint& mapPixel) const;
    QPoint pixelToSnappedMapPixel(const QPoint& pixel) const;
    QPoint mapPixelToWidget(const QPoint& mapPixel) const;
    QRect pixelRectToCells(const QRect& pixels) const;
    QRect cellRectToWidget(const QRect& cells) const;
    double spriteScale() const { return scaledCell * 0.125; }
};

} // namespace MapEditor
