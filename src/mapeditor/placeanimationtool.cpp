#include "mapeditor/placeanimationtool.h"

#include "mapeditor/mapgrid.h"
#include "mapeditor/mappainter.h"
#include "model/tileanimation.h"

#include <QCoreApplication>

namespace MapEditor {

bool PlaceAnimationTool::activate()
{
    grid->updateCursor();
    return true;
}

bool PlaceAnimationTool::isBlocked() const
{
    return grid->map() && !grid->map()->objectLayerVisible();
}

void PlaceAnimationTool::release(QMouseEvent*)
{
    grid->endEdit(QCoreApplication::translate("MapGrid", "Place Animation"));
}

void PlaceAnimationTool::paintOverGrid(MapPainter& painter)
{
    const QPointer<TileAnimation> animation = grid->currentAnimation();
    if (grid->hoverBlockRect().isValid() || !animation || grid->hoverCell().x() < 0)
        return;
    const MapViewState& view = grid->view();
    const QSize size = animation->size() * view.scaledCell;
    const QPoint at = (grid->hoverCell() - view.scroll) * view.scaledCell + view.drawRect.topLeft();
    painter.drawImage(QRect(at, size), animation->renderFrame(0));
}

} // namespace MapEditor
