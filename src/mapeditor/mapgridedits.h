#pragma once
#include "model/map.h"
#include "model/tintorel.h"

#include <QRect>
#include <functional>

namespace MapEditor {

class MapGrid;

// The edits of a map grid that change the map as a whole or by selection:
// rows, columns, size, fill and clear, the sprite and block removals and
// the clipboard. Each one is one undo step with its own name.
class MapGridEdits
{
public:
    explicit MapGridEdits(MapGrid* grid);

    void addRows(Tintorel::Position where, int count);
    void addColumns(Tintorel::Position where, int count);
    void removeRows(Tintorel::Position where, int count);
    void removeColumns(Tintorel::Position where, int count);
    void resizeMap(const QSize& size, Qt::Alignment alignment);
    void fillSelection();
    void clearSelection();
    bool deleteSelectedSprite();
    bool removeAnimationUnderCursor();
    void applySpriteEdit(const Map::PlacedSprite& sprite);
    void cut();
    void copy();
    void copyAsImage();
    void mapFromSelection();
    void selectAll();
    void resetPaletteOffsets();

private:
    // The bracket, the edit, and what follows a change of the map's size.
    void editMap(const QString& text, const std::function<void(Map&)>& edit, bool resizes);
    void fill(const QRect& area, const TileMap::TileData& data, const QString& text);

    MapGrid* mGrid;
};

} // namespace MapEditor
