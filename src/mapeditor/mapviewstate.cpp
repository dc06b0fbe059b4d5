#include "mapeditor/mapviewstate.h"

#include <QtMath>
#include <algorithm>
#include <cmath>

namespace MapEditor {

void MapViewState::setZoom(int level)
{
    if (level >= 1 && level <= 8)
        zoom = level;
    scaledCell = zoom * cellSize;
}

void MapViewState::setCellSize(int size)
{
    cellSize = size;
    scaledCell = size * zoom;
}

void MapViewState::fit(const QSize& widgetSize, const QSize& mapSize)
{
    zoom = 1;
    const QSize cells = viewPortEnabled ? viewPortSize : mapSize;
    const int across = cells.width() > 0 ? widgetSize.width() / cells.width() : 1;
    const int down = cells.height() > 0 ? widgetSize.height() / cells.height() : 1;
    scaledCell = std::max(1, std::min(across, down));
}

void MapViewState::setViewPort(bool enabled, const QSize& size)
{
    viewPortEnabled = enabled;
    viewPortSize = size;
}

bool MapViewState::scrollBy(const QPoint& delta, const QSize& mapSize)
{
    const QRect visible = visibleCells();
    const int visibleColumns = visible.width();
    const int visibleRows = visible.height();
    if (delta.x() >= 1) {
        if (mapSize.width() - visibleColumns > scroll.x()) {
            scroll.rx()++;
            return true;
        }
    } else if (delta.x() != 0) {
        if (scroll.x() > 0) {
            scroll.rx()--;
            return true;
        }
    }
    if (delta.y() >= 1) {
        if (mapSize.height() - visibleRows > scroll.y()) {
            scroll.ry()++;
            return true;
        }
    } else if (delta.y() != 0) {
        if (scroll.y() > 0) {
            scroll.ry()--;
            return true;
        }
    }
    return false;
}

QSize MapViewState::scrollRange(const QSize& mapSize) const
{
    const QRect visible = visibleCells();
    return mapSize - visible.size();
}

QRect MapViewState::visibleCells() const
{
    if (scaledCell <= 0 || drawRect.isEmpty())
        return QRect(scroll, QSize(0, 0));
    return QRect(scroll, scroll + QPoint((drawRect.right() - drawRect.left()) / scaledCell,
                                         (drawRect.bottom() - drawRect.top()) / scaledCell));
}

QPoint MapViewState::snapped(const QPoint& cell) const
{
    if (snap < 2)
        return cell;
    return QPoint(cell.x() / snap * snap, cell.y() / snap * snap);
}

// The snap counts from the first visible cell, not from the map's origin.
QPoint MapViewState::pixelToCell(const QPoint& pixel) const
{
    return snapped(pixelToCellUnsnapped(pixel) - scroll) + scroll;
}

// Integer division truncates; QPoint's operator/ would round instead.
QPoint MapViewState::pixelToCellUnsnapped(const QPoint& pixel) const
{
    const QPoint relative = pixel - drawRect.topLeft();
    return QPoint(relative.x() / scaledCell, relative.y() / scaledCell) + scroll;
}

QPoint MapViewState::pixelToMapPixel(const QPoint& pixel) const
{
    const QPoint relative = pixel - drawRect.topLeft();
    return QPoint(relative.x() * 8 / scaledCell, relative.y() * 8 / scaledCell) + scroll * 8;
}

QPoint MapViewState::snappedMapPixel(const QPoint& mapPixel) const
{
    if (snap < 2)
        return mapPixel;
    const int step = snap * 8;
    return QPoint(mapPixel.x() / step * step, mapPixel.y() / step * step);
}

QPoint MapViewState::pixelToSnappedMapPixel(const QPoint& pixel) const
{
    return snappedMapPixel(pixelToMapPixel(pixel));
}

QPoint MapViewState::mapPixelToWidget(const QPoint& mapPixel) const
{
    const QPoint relative = mapPixel - scroll * 8;
    // Half away from zero, as std::round does.
    return QPoint(int(std::round(relative.x() * scaledCell * 0.125)),
                  int(std::round(relative.y() * scaledCell * 0.125)))
           + drawRect.topLeft();
}

QRect MapViewState::pixelRectToCells(const QRect& pixels) const
{
    // In doubles, so that a position left of the map rounds down, not to zero.
    const auto toCell = [this](int value, int origin, int offset) {
        return int(std::floor(double(value - origin) / scaledCell)) + offset;
    };
    return QRect(QPoint(toCell(pixels.left(), drawRect.left(), scroll.x()),
                        toCell(pixels.top(), drawRect.top(), scroll.y())),
                 QPoint(toCell(pixels.right(), drawRect.left(), scroll.x()),
                        toCell(pixels.bottom(), drawRect.top(), scroll.y())));
}

QRect MapViewState::cellRectToWidget(const QRect& cells) const
{
    return QRect(cells.x() * scaledCell + drawRect.x() - scroll.x() * scaledCell,
                 cells.y() * scaledCell + drawRect.y() - scroll.y() * scaledCell,
                 (cells.right() + 1 - cells.left()) * scaledCell, (cells.bottom() + 1 - cells.top()) * scaledCell);
}

} // namespace MapEditor
