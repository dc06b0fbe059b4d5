#pragma once
#include "mapeditor/maptool.h"

namespace MapEditor {

// Places the chosen block where the pointer is pressed, once per press.
class PlaceAnimationTool : public CellTool
{
public:
    using CellTool::CellTool;

    Tintorel::Ui::ToolButton mode() const override { return Tintorel::Ui::PlaceAnim; }
    bool activate() override;
    QCursor cursor() const override { return Qt::OpenHandCursor; }
    bool isBlocked() const override;
    void release(QMouseEvent* event) override;
    void paintOverGrid(MapPainter& painter) override;
};

} // namespace MapEditor
