#include "mapeditor/mappainter.h"

#include "interchange/maprenderer.h"
#include "mapeditor/mapgrid.h"
#include "mapeditor/maptool.h"
#include "model/spritebank.h"

#include <QElapsedTimer>
#include <QRegion>

namespace MapEditor {

MapPainter::MapPainter(MapGrid* grid)
    : QPainter(grid)
    , mGrid(grid)
{
    setRenderHint(QPainter::Antialiasing, false);
    setRenderHint(QPainter::SmoothPixmapTransform, false);
    setBackgroundMode(Qt::TransparentMode);
    setClipRect(grid->rect());
}

const MapViewState& MapPainter::view() const
{
    return mGrid->view();
}

void MapPainter::drawSelectionFrame(const QRect& rect, Qt::GlobalColor first, Qt::GlobalColor second)
{
    save();
    setBrush(Qt::NoBrush);
    setPen(QPen(first, 2, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    drawRect(rect);
    setPen(QPen(second, 2, Qt::DotLine, Qt::RoundCap, Qt::RoundJoin));
    drawRect(rect);
    setBrush(Qt::darkCyan);
    setPen(QPen(Qt::white, 0.5, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    for (const QPoint& corner : { rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft() })
        drawEllipse(QRect(corner - QPoint(3, 3), corner + QPoint(2, 2)));
    restore();
}

void MapPainter::paintMap()
{
    QElapsedTimer clock;
    clock.start();
    const MapViewState& camera = view();
    Map& map = *mGrid->map();
    const QList<QPointer<SpriteBank>> banks = mGrid->spriteBanks();
    MapRenderer renderer(map, [banks](const QUuid& id) -> SpriteBank* {
        for (const QPointer<SpriteBank>& bank : banks)
            if (bank && bank->id() == id)
                return bank;
        return nullptr;
    });
    renderer.setBackgroundTile(mGrid->backgroundTile());
    renderer.setTransparencyIndex(mGrid->transparencyIndex());

    // The layers cover the map's area whole; around it is the window.
    for (const QRect& around : QRegion(mGrid->rect()).subtracted(camera.drawRect))
        fillRect(around, mGrid->palette().window());
    drawImage(camera.drawRect.topLeft(), renderer.composeLayers(camera.visibleCells(), camera.scaledCell));
    renderer.paintSprites(*this, [&camera](const QPoint& p) { return camera.mapPixelToWidget(p); },
                          camera.spriteScale(), mGrid->spriteTicks());

    const int hover = mGrid->hoverSprite();
    if (hover >= 0 && hover < map.sprites().size()) {
        const QRect box = mGrid->spriteRect(map.sprites().at(hover));
        const QPoint topLeft = camera.mapPixelToWidget(box.topLeft());
        const QPoint bottomRight = camera.mapPixelToWidget(box.bottomRight() + QPoint(1, 1)) - QPoint(1, 1);
        drawSelectionFrame(QRect(topLeft, bottomRight));
    }
    if (MapTool* tool = mGrid->tool())
        tool->paintUnderGrid(*this);
    if (mGrid->gridVisible())
        paintGridLines();
    if (mGrid->hoverBlockRect().isValid())
        drawSelectionFrame(camera.cellRectToWidget(mGrid->hoverBlockRect()));
    if (MapTool* tool = mGrid->tool())
        tool->paintOverGrid(*this);

    setClipRect(mGrid->rect());
    setPen(Qt::white);
    setBrush(Qt::NoBrush);
    drawText(QPointF(10.0, 10.0) + QPointF(0, fontMetrics().ascent()),
             QStringLiteral("  [%1:%2] %4ms  ")
                 .arg(mGrid->hoverCell().x())
                 .arg(mGrid->hoverCell().y())
                 .arg(clock.elapsed()));
}

void MapPainter::paintGridLines()
{
    const MapViewState& camera = view();
    const QRect area = camera.drawRect;
    const int step = qMax(1, camera.scaledCell);
    QList<QPoint> lines;
    for (int y = area.top(); y < area.bottom(); y += step)
        lines << QPoint(area.left(), y) << QPoint(area.right(), y);
    for (int x = area.left(); x < area.right(); x += step)
        lines << QPoint(x, area.top()) << QPoint(x, area.bottom());
    setPen(QColor(64, 64, 64));
    drawLines(lines);
}

} // namespace MapEditor
