#include "mapeditor/pastetool.h"

#include "mapeditor/mapgrid.h"
#include "mapeditor/mappainter.h"
#include "model/tileset.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>

namespace MapEditor {

namespace {

TileMap::Clip clipboardCells()
{
    return TileMap::cellsFromMimeData(QGuiApplication::clipboard()->mimeData(QClipboard::Clipboard));
}

} // namespace

bool PasteTool::activate()
{
    const TileMap::Clip clip = clipboardCells();
    const QPointer<Map> map = grid->map();
    if (!map || clip.size.width() < 1 || clip.size.height() < 1 || clip.tileSetId != map->tileSetId())
        return false;
    grid->setPasteRect(QRect(QPoint(0, 0), clip.size));
    grid->updateCursor();
    return true;
}

bool PasteTool::isBlocked() const
{
    return grid->map() && !grid->map()->tileLayerVisible();
}

bool PasteTool::press(QMouseEvent*)
{
    const QPointer<Map> map = grid->map();
    if (grid->pasteRect().isEmpty() || !map || !map->tileLayerVisible())
        return false;
    const TileMap::Clip clip = clipboardCells();
    const QPoint topLeft = grid->pasteRect().topLeft();
    grid->beginEdit();
    // What falls outside the map is read and dropped.
    for (int row = 0; row < clip.cells.size(); ++row)
        for (int column = 0; column < clip.cells.at(row).size(); ++column)
            map->setTile(topLeft + QPoint(column, row), clip.cells.at(row).at(column));
    grid->endEdit(QCoreApplication::translate("MapGrid", "Paste"));
    grid->update();
    return true;
}

void PasteTool::move(QMouseEvent* event)
{
    const QRect paste = grid->pasteRect();
    if (!paste.isValid())
        return;
    const int halfWidth = (paste.right() + 1 - paste.left()) / 2;
    const int halfHeight = (paste.bottom() + 1 - paste.top()) / 2;
    const QPoint cell = grid->view().pixelToCell(event->position().toPoint());
    grid->setPasteRect(QRect(QPoint(cell.x() - halfWidth, cell.y() - halfHeight),
                             QPoint(cell.x() + (paste.right() - paste.left()) - halfWidth,
                                    cell.y() + (paste.bottom() - paste.top()) - halfHeight)));
    grid->repaint();
}

void PasteTool::paintOverGrid(MapPainter& painter)
{
    if (grid->pasteRect().isValid())
        painter.drawSelectionFrame(grid->view().cellRectToWidget(grid->pasteRect()));
}

} // namespace MapEditor
