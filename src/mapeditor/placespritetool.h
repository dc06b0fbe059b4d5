#pragma once
#include "mapeditor/maptool.h"

namespace MapEditor {

// Places the chosen sprite or sprite animation where the map is clicked,
// and moves a placed one by dragging it; a click on one opens its properties.
class PlaceSpriteTool : public MapTool
{
public:
    using MapTool::MapTool;

    Tintorel::Ui::ToolButton mode() const override { return Tintorel::Ui::PlaceSprite; }
    bool activate() override;
    QCursor cursor() const override { return Qt::CrossCursor; }
    bool isBlocked() const override;
    bool press(QMouseEvent* event) override;
    void move(QMouseEvent* event) override;
    void release(QMouseEvent* event) override;
    void paintOverGrid(MapPainter& painter) override;

private:
    int mDragIndex = -1;
    bool mMoved = false;
    QPoint mPressPos;
    QPoint mGrabOffset;
    QPoint mHoverPos;
};

} // namespace MapEditor
