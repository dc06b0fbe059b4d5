#pragma once
#include "mapeditor/maptool.h"

namespace MapEditor {

// Paints the current tile with the left button and a hidden cell with the
// right; the tile under the pointer is shown before it is painted.
class DrawTool : public CellTool
{
public:
    using CellTool::CellTool;

    Tintorel::Ui::ToolButton mode() const override { return Tintorel::Ui::Draw; }
    bool activate() override;
    bool isBlocked() const override;
    void release(QMouseEvent* event) override;
    void paintUnderGrid(MapPainter& painter) override;
};

} // namespace MapEditor
