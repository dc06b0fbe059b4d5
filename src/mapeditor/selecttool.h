#pragma once
#include "mapeditor/maptool.h"

namespace MapEditor {

// Selects a rectangle of cells by dragging with the left button; the right
// button opens the selection's menu.
class SelectTool : public MapTool
{
public:
    using MapTool::MapTool;

    Tintorel::Ui::ToolButton mode() const override { return Tintorel::Ui::Select; }
    bool activate() override;
    bool filterPress(QMouseEvent* event) override;
    void move(QMouseEvent* event) override;
    void paintUnderGrid(MapPainter& painter) override;
};

} // namespace MapEditor
