#include "mapeditor/maptool.h"

#include "mapeditor/mapgrid.h"
#include "model/tileanimation.h"

#include <QCoreApplication>
#include <QMouseEvent>

namespace MapEditor {

bool CellTool::press(QMouseEvent*)
{
    grid->beginEdit();
    return false;
}

void CellTool::move(QMouseEvent* event)
{
    apply(grid->view().pixelToCell(event->position().toPoint()));
}

void CellTool::apply(const QPoint& cell)
{
    Map* map = grid->map();
    // The second snap works on map cells; the first was relative to the scroll.
    const QPoint snapped = grid->view().snapped(cell);
    bool changed = false;
    if (snapped != grid->hoverCell()) {
        grid->setHoverCell(snapped);
        changed = true;
    }
    if (grid->buttons() == 0) {
        const QRect block = map->rectAt(grid->hoverCell());
        if (block.isValid()) {
            grid->setHoverBlockRect(block);
            if (!isBlocked())
                grid->setCursor(Qt::SizeAllCursor);
        } else if (grid->hoverBlockRect().isValid()) {
            grid->updateCursor();
            grid->setHoverBlockRect(QRect());
        }
        grid->repaint();
        return;
    }
    // Blocks are not painted over, and a block just placed is not placed again.
    if (grid->hoverBlockRect().isValid())
        return;
    const QPointer<TileAnimation> animation = grid->currentAnimation();
    if (grid->currentTile() < 0 && animation && map->objectLayerVisible()) {
        const QPoint at = grid->hoverCell();
        grid->setHoverBlockRect(QRect(at, at + QPoint(animation->width() - 1, animation->height() - 1)));
        grid->beginEdit();
        map->placeAnimation(animation, at);
        grid->endEdit(QCoreApplication::translate("MapGrid", "Place Animation"));
        grid->repaint();
        return;
    }
    if (grid->currentTile() >= 0 && map->tileLayerVisible())
        changed |= map->setTile(cell, grid->currentTileData(grid->buttons() & Qt::LeftButton));
    if (changed)
        grid->repaint();
}

} // namespace MapEditor
