#pragma once
#include "ui/indexgrid.h"

#include <QMenu>
#include <QPointer>

class QActionGroup;
class TileSet;

// Every tile of a tile set, in rows that fill the width: the selection, the
// tile under the mouse, drag and drop to move (or with Shift, copy) tiles,
// and a menu on each tile.
class TilePickerGrid : public IndexGrid
{
    Q_OBJECT
public:
    static constexpr const char* DragFormat = "tintorel/tile-drag-anim";
    // Longer sets are not drawn past this many tiles.
    static constexpr int DrawnTiles = 513;

    explicit TilePickerGrid(QWidget* parent = nullptr);

    QPointer<TileSet> tileSet() const { return mTileSet; }
    void setTileSet(TileSet* tileSet);
    int zoom() const { return mZoom; }
    QMenu* menu() { return &mMenu; }
    // The checkable "%1x" actions, shared with the Tiles menu.
    QList<QAction*> magnifications() const;

public slots:
    void setZoom(int level);

signals:
    // 1-based, the form the tile window takes.
    void itemDoubleClicked(int index);
    void zoomChanged(int level);
    // Clear, Copy Image and Paste Image of the menu, at this 0-based tile.
    void clearRequested(int index);
    void copyImageRequested(int index);
    void pasteImageRequested(int index);

protected:
    int cellCount() const override;
    bool hasContent() const override;
    int cellSize() const override { return 8 * mZoom; }
    int drawnCount() const override { return DrawnTiles; }
    void paintCell(QPainter& painter, int index, const QRect& cell) override;
    QByteArray dragPayload(int index) const override;
    QImage dragImage(int index) const override;
    void copyCell(int from, int to) override;
    void moveCell(int from, int to) override;
    QString toolTipAt(int index) const override;
    void doubleClicked(int index) override;
    void menuRequested(int index, const QPoint& globalPos) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void buildMenu();

    QPointer<TileSet> mTileSet;
    int mZoom = 8;
    int mMenuIndex = -1;
    QMenu mMenu;
    QActionGroup* mZoomGroup;
};
