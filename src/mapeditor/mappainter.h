#pragma once
#include <QPainter>

namespace MapEditor {

class MapGrid;
struct MapViewState;

// The painter of one paint of the map grid: it paints the map in its order,
// and the tools draw their overlays with it for the grid and camera it carries.
class MapPainter : public QPainter
{
public:
    explicit MapPainter(MapGrid* grid);

    MapGrid* grid() const { return mGrid; }
    const MapViewState& view() const;
    // The frame of a selection: two dashed outlines and a handle at each corner.
    void drawSelectionFrame(const QRect& rect, Qt::GlobalColor first = Qt::darkGray,
                            Qt::GlobalColor second = Qt::lightGray);
    // Everything the grid shows, in its order, and the time it took.
    void paintMap();

private:
    void paintGridLines();

    MapGrid* mGrid;
};

} // namespace MapEditor
