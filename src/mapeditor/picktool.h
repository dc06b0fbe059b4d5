#pragma once
#include "mapeditor/maptool.h"

namespace MapEditor {

// Takes the tile of a cell as the one to paint, then goes back to the mode
// it was entered from.
class PickTool : public MapTool
{
public:
    using MapTool::MapTool;

    Tintorel::Ui::ToolButton mode() const override { return Tintorel::Ui::Pick; }
    bool activate() override;
    void release(QMouseEvent* event) override;

private:
    Tintorel::Ui::ToolButton mReturnMode = Tintorel::Ui::Draw;
};

} // namespace MapEditor
