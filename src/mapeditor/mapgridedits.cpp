#include "mapeditor/mapgridedits.h"

#include "mapeditor/mapgrid.h"
#include "model/palette.h"
#include "model/tileset.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMimeData>

using Tintorel::Ui::ToolButton;

namespace MapEditor {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("MapGrid", text);
}

int where(Tintorel::Position position)
{
    return position == Tintorel::Position::Begin ? 0 : 1;
}

} // namespace

MapGridEdits::MapGridEdits(MapGrid* grid)
    : mGrid(grid)
{
}

void MapGridEdits::editMap(const QString& text, const std::function<void(Map&)>& edit, bool resizes)
{
    const QPointer<Map> map = mGrid->map();
    if (!map)
        return;
    mGrid->beginEdit();
    edit(*map);
    mGrid->endEdit(text);
    if (resizes) {
        const QRect area(QPoint(0, 0), map->size());
        emit mGrid->mapResized(QSize(area.right() + 1 - area.left(), area.bottom() + 1 - area.top()));
        mGrid->layoutMap();
    }
    mGrid->repaint();
}

void MapGridEdits::addRows(Tintorel::Position position, int count)
{
    editMap(tr("Add Rows"), [&](Map& map) {
        for (int i = 0; i < count; ++i)
            map.addRow(where(position));
    }, true);
}

void MapGridEdits::addColumns(Tintorel::Position position, int count)
{
    editMap(tr("Add Columns"), [&](Map& map) {
        for (int i = 0; i < count; ++i)
            map.addColumn(where(position));
    }, true);
}

void MapGridEdits::removeRows(Tintorel::Position position, int count)
{
    editMap(tr("Remove Rows"), [&](Map& map) {
        for (int i = 0; i < count && map.size().height() > 1; ++i)
            map.removeRow(where(position));
        mGrid->setSelection(mGrid->selection().intersected(QRect(QPoint(0, 0), map.size())));
    }, true);
}

void MapGridEdits::removeColumns(Tintorel::Position position, int count)
{
    editMap(tr("Remove Columns"), [&](Map& map) {
        for (int i = 0; i < count && map.size().width() > 1; ++i)
            map.removeColumn(where(position));
        mGrid->setSelection(mGrid->selection().intersected(QRect(QPoint(0, 0), map.size())));
    }, true);
}

void MapGridEdits::resizeMap(const QSize& size, Qt::Alignment alignment)
{
    editMap(tr("Resize Map"), [&](Map& map) { map.resize(size, alignment); }, true);
}

void MapGridEdits::fill(const QRect& area, const TileMap::TileData& data, const QString& text)
{
    editMap(text, [&](Map& map) {
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                map.setTile(QPoint(x, y), data);
    }, false);
}

void MapGridEdits::fillSelection()
{
    if (mGrid->selection().isValid() && mGrid->currentTile() >= 0)
        fill(mGrid->selection(), mGrid->currentTileData(true), tr("Fill"));
}

void MapGridEdits::clearSelection()
{
    if (mGrid->selection().isValid())
        fill(mGrid->selection(), { 0, false, false, false, 0, true }, tr("Clear"));
}

bool MapGridEdits::deleteSelectedSprite()
{
    const QPointer<Map> map = mGrid->map();
    const int index = mGrid->hoverSprite();
    if (!map || index < 0 || index >= map->sprites().size())
        return false;
    // The sprite under the pointer goes, not the selected one.
    editMap(tr("Delete Sprite"), [index](Map& edited) { edited.removeSprite(index); }, false);
    mGrid->setHoverSprite(-1);
    const int selected = mGrid->selectedSprite();
    if (selected == index)
        mGrid->setSelectedSprite(-1);
    else if (selected > index)
        mGrid->setSelectedSprite(selected - 1);
    return true;
}

bool MapGridEdits::removeAnimationUnderCursor()
{
    const QPointer<Map> map = mGrid->map();
    const QRect block = mGrid->hoverBlockRect();
    if (!map || !block.isValid() || map->rectAt(block.topLeft()) != block)
        return false;
    editMap(tr("Remove Animation"), [block](Map& edited) { edited.removeBlock(block); }, false);
    mGrid->setHoverBlockRect(QRect());
    return true;
}

void MapGridEdits::applySpriteEdit(const Map::PlacedSprite& sprite)
{
    const QPointer<Map> map = mGrid->map();
    const int index = mGrid->selectedSprite();
    if (!map || index < 0 || index >= map->sprites().size())
        return;
    editMap(tr("Sprite Properties"), [index, &sprite](Map& edited) { edited.setSprite(index, sprite); }, false);
}

void MapGridEdits::copy()
{
    const QPointer<Map> map = mGrid->map();
    const QRect selection = mGrid->selection();
    if (!map || !selection.isValid() || !map->tileMap())
        return;
    QGuiApplication::clipboard()->setMimeData(map->tileMap()->toMimeData(selection));
    mGrid->repaint();
    mGrid->setMode(mGrid->previousMode());
    mGrid->setPasteRect(selection);
}

void MapGridEdits::cut()
{
    if (!mGrid->selection().isValid())
        return;
    copy();
    fill(mGrid->selection(), { 0, false, false, false, 0, true }, tr("Cut"));
    mGrid->hideRubberBand();
    mGrid->setSelection(QRect());
}

void MapGridEdits::copyAsImage()
{
    const QPointer<Map> map = mGrid->map();
    const QRect selection = mGrid->selection();
    if (!map || !selection.isValid() || !map->tileMap())
        return;
    QImage picture = map->tileMap()->scaledPreview(selection, 8.0, mGrid->transparencyIndex());
    const QPointer<TileSet> tiles = map->tileSet();
    const QPointer<Palette> palette = tiles ? tiles->palette() : nullptr;
    picture.setText(QStringLiteral("paletteid"), palette ? palette->id().toString() : QString());
    QGuiApplication::clipboard()->setImage(picture);
}

void MapGridEdits::mapFromSelection()
{
    const QPointer<Map> map = mGrid->map();
    const QRect selection = mGrid->selection();
    if (!map || !selection.isValid())
        return;
    const QSize size = selection.size();
    copy();
    emit mGrid->createMapFromSelection(map->id(), size);
}

void MapGridEdits::selectAll()
{
    mGrid->setMode(ToolButton::Select);
    if (const QPointer<Map> map = mGrid->map())
        mGrid->setSelection(QRect(QPoint(0, 0), map->size()));
    mGrid->repaint();
}

void MapGridEdits::resetPaletteOffsets()
{
    const QPointer<Map> map = mGrid->map();
    if (!map || !map->tileMap())
        return;
    editMap(tr("Reset Palette Offsets"), [](Map& edited) { edited.tileMap()->syncOffsets(); }, false);
}

} // namespace MapEditor
