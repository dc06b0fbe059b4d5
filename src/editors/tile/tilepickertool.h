#pragma once
#include "ui/dockwidget.h"

#include <QPointer>
#include <functional>

class QLabel;
class QUndoStack;
class TilePickerGrid;
class TileSet;

// The Tiles dock: every tile of the active tile set, to pick the one the
// tile editor paints and to reorder them.
class TilePickerTool : public DockWidget
{
    Q_OBJECT
public:
    explicit TilePickerTool(QWidget* parent = nullptr);

    TilePickerGrid* grid() const { return mGrid; }
    void setTileSet(TileSet* tileSet);
    // The magnification of the list, kept between runs.
    int zoom() const;
    void setZoom(int level);
    QList<QAction*> magnifications() const;
    // The stack of the tile set's document, for the menu's picture edits.
    void setUndoStackProvider(std::function<QUndoStack*()> provider);
    // The tile's picture, in its bank, to the clipboard as the canvas
    // carries pictures, and a picture from it into the tile (0-based).
    void copyImage(int index);
    void pasteImage(int index);
    void clearImage(int index);

signals:
    // 1-based, from a double click.
    void tileDoubleClicked(int index);
    // 0-based, from a click.
    void selectedTileChanged(int index);

private:
    void updateStatus();
    // One undo step for a change of one tile's picture.
    void editTile(int index, const QString& text, const std::function<void()>& change);

    TilePickerGrid* mGrid;
    QLabel* mStatus;
    QPointer<TileSet> mTileSet;
    std::function<QUndoStack*()> mStackProvider;
};
