#include "mapeditor/placespritetool.h"

#include "interchange/maprenderer.h"
#include "mapeditor/mapgrid.h"
#include "mapeditor/mappainter.h"
#include "model/spritebank.h"

#include <QApplication>
#include <QMouseEvent>
#include <cmath>

namespace MapEditor {

bool PlaceSpriteTool::activate()
{
    grid->updateCursor();
    return true;
}

bool PlaceSpriteTool::isBlocked() const
{
    return grid->map() && !grid->map()->spriteLayerVisible();
}

bool PlaceSpriteTool::press(QMouseEvent* event)
{
    Map* map = grid->map();
    if (!map->spriteLayerVisible() || !(event->buttons() & Qt::LeftButton))
        return true;
    const QPoint pos = event->position().toPoint();
    const QPoint p = grid->view().pixelToMapPixel(pos);
    const int index = grid->spriteAt(p);
    if (index >= 0) {
        mDragIndex = index;
        mMoved = false;
        mPressPos = pos;
        const Map::PlacedSprite& sprite = map->sprites().at(index);
        mGrabOffset = p - QPoint(sprite.x, sprite.y);
        grid->setHoverSprite(index);
        grid->setSelectedSprite(index);
        grid->beginEdit();
        return true;
    }
    if (!grid->spriteTemplateUsable()) {
        grid->setSelectedSprite(-1);
        return true;
    }
    const QPoint q = grid->view().pixelToSnappedMapPixel(pos);
    const QSize cells = map->size();
    const QRect area(QPoint(0, 0), QPoint(int(std::round(cells.width() * 8.0)) - 1,
                                          int(std::round(cells.height() * 8.0)) - 1));
    if (!area.contains(q))
        return true;
    Map::PlacedSprite sprite = grid->spriteTemplate();
    sprite.x = q.x();
    sprite.y = q.y();
    grid->beginEdit();
    grid->setHoverSprite(map->addSprite(sprite));
    grid->endEdit(QCoreApplication::translate("MapGrid", "Place Sprite"));
    grid->setSelectedSprite(grid->hoverSprite());
    grid->update();
    return true;
}

void PlaceSpriteTool::move(QMouseEvent* event)
{
    Map* map = grid->map();
    const QPoint pos = event->position().toPoint();
    const QPoint p = grid->view().pixelToMapPixel(pos);
    mHoverPos = grid->view().pixelToSnappedMapPixel(pos);
    grid->setHoverCell(grid->view().pixelToCellUnsnapped(pos));
    grid->update();
    if (mDragIndex < 0 || mDragIndex >= map->sprites().size()) {
        grid->setHoverSprite(grid->spriteAt(p));
        return;
    }
    if (!mMoved && (pos - mPressPos).manhattanLength() < QApplication::startDragDistance())
        return;
    const QPoint to = grid->view().snappedMapPixel(p - mGrabOffset);
    Map::PlacedSprite sprite = map->sprites().at(mDragIndex);
    if (to != QPoint(sprite.x, sprite.y)) {
        sprite.x = to.x();
        sprite.y = to.y();
        map->setSprite(mDragIndex, sprite);
        mMoved = true;
        grid->update();
    }
}

void PlaceSpriteTool::release(QMouseEvent*)
{
    if (mDragIndex < 0)
        return;
    const bool moved = mMoved;
    const int index = mDragIndex;
    mDragIndex = -1;
    // A click that only selected leaves no step: the snapshots are equal.
    grid->endEdit(QCoreApplication::translate("MapGrid", "Move Sprite"));
    if (!moved)
        emit grid->spriteClicked(index);
}

void PlaceSpriteTool::paintOverGrid(MapPainter& painter)
{
    Map* map = grid->map();
    if (!grid->spriteTemplateUsable() || mDragIndex >= 0 || grid->hoverSprite() >= 0 || grid->hoverCell().x() < 0
        || !map->spriteLayerVisible())
        return;
    Map::PlacedSprite ghost = grid->spriteTemplate();
    ghost.x = mHoverPos.x();
    ghost.y = mHoverPos.y();
    const QList<QPointer<SpriteBank>> banks = grid->spriteBanks();
    const MapRenderer renderer(*map, [banks](const QUuid& id) -> SpriteBank* {
        for (const QPointer<SpriteBank>& bank : banks)
            if (bank && bank->id() == id)
                return bank;
        return nullptr;
    });
    const QImage image = renderer.spriteImage(ghost, 0);
    if (image.isNull())
        return;
    const double scale = grid->view().spriteScale();
    painter.save();
    painter.setOpacity(0.6);
    painter.drawImage(QRect(grid->view().mapPixelToWidget(mHoverPos),
                            QSize(qRound(image.width() * scale), qRound(image.height() * scale))),
                      image);
    painter.restore();
}

} // namespace MapEditor
