#pragma once
#include "mapeditor/maptool.h"

namespace MapEditor {

// Stamps the cells on the clipboard, centred on the pointer, at each click.
class PasteTool : public MapTool
{
public:
    using MapTool::MapTool;

    Tintorel::Ui::ToolButton mode() const override { return Tintorel::Ui::Paste; }
    // Refuses cells of another tile set, or none at all.
    bool activate() override;
    bool isBlocked() const override;
    bool press(QMouseEvent* event) override;
    void move(QMouseEvent* event) override;
    void paintOverGrid(MapPainter& painter) override;
};

} // namespace MapEditor
