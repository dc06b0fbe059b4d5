#include "mapeditor/drawtool.h"

#include "mapeditor/mapgrid.h"
#include "mapeditor/mappainter.h"
#include "model/tileset.h"

#include <QCoreApplication>

namespace MapEditor {

bool DrawTool::activate()
{
    grid->updateCursor();
    grid->hideRubberBand();
    grid->setSelection(QRect());
    return true;
}

bool DrawTool::isBlocked() const
{
    return grid->map() && !grid->map()->tileLayerVisible();
}

void DrawTool::release(QMouseEvent*)
{
    grid->endEdit(QCoreApplication::translate("MapGrid", "Paint"));
}

void DrawTool::paintUnderGrid(MapPainter& painter)
{
    const QPoint cell = grid->hoverCell();
    const QPointer<TileSet> tiles = grid->map() ? grid->map()->tileSet() : nullptr;
    if (tiles && cell.x() >= 0 && cell.y() >= 0 && grid->currentTile() >= 0 && grid->currentTile() < tiles->count()
        && !grid->hoverBlockRect().isValid()) {
        const MapViewState& view = grid->view();
        const TileMap::TileData data = grid->currentTileData(true);
        const QImage tile = tiles->render(data.index, data.rotate, data.flip, data.mirror, data.offset);
        const QPoint at = (cell - view.scroll) * view.scaledCell + view.drawRect.topLeft();
        painter.drawImage(QRect(at, QSize(view.scaledCell, view.scaledCell)), tile);
    }
    grid->hideRubberBand();
    if (grid->selection().isValid())
        painter.drawSelectionFrame(grid->view().cellRectToWidget(grid->selection()));
}

} // namespace MapEditor
