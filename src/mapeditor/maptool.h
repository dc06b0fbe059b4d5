#pragma once
#include "model/tintorelui.h"

#include <QCursor>
#include <QPoint>

class QMouseEvent;

namespace MapEditor {

class MapGrid;
class MapPainter;

// One mode of the map grid: it holds only the state of its gesture and
// edits through the grid and the map; the grid routes the mouse to it and
// brackets the edit in one undo step.
class MapTool
{
public:
    explicit MapTool(MapGrid* grid)
        : grid(grid)
    {
    }
    virtual ~MapTool() = default;

    virtual Tintorel::Ui::ToolButton mode() const = 0;
    // False refuses the mode; the grid goes back to the one before.
    virtual bool activate() { return true; }
    virtual QCursor cursor() const { return Qt::ArrowCursor; }
    // The layer this tool works on is hidden.
    virtual bool isBlocked() const { return false; }
    // True ends the press before anything else sees it.
    virtual bool filterPress(QMouseEvent*) { return false; }
    // True ends the press; false goes on to treat it as a first move.
    virtual bool press(QMouseEvent*) { return false; }
    virtual void move(QMouseEvent*) {}
    virtual void release(QMouseEvent*) {}
    virtual void paintUnderGrid(MapPainter&) {}
    virtual void paintOverGrid(MapPainter&) {}

protected:
    MapGrid* grid;
};

// A tool that works cell by cell under the pointer, one undo step from
// press to release.
class CellTool : public MapTool
{
public:
    using MapTool::MapTool;

    bool press(QMouseEvent* event) override;
    void move(QMouseEvent* event) override;

protected:
    void apply(const QPoint& cell);
};

} // namespace MapEditor
