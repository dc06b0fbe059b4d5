#pragma once
#include <QMenu>
#include <QPointer>
#include <QWidget>

class QActionGroup;
class TileSet;

// Every tile of a tile set, in rows that fill the width: the selection, the
// tile under the mouse, drag and drop to move (or with Shift, copy) tiles,
// and a menu on each tile.
class TilePickerGrid : public QWidget
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
    int cellSize() const { return 8 * mZoom; }
    int selectedIndex() const { return mSelectedIndex; }
    int columns() const;
    int rows() const;
    int preferredHeight() const;
    // The tile under a widget point, or -1.
    int indexAt(const QPoint& pos) const;
    QRect cellRect(int index) const;
    QMenu* menu() { return &mMenu; }
    // The checkable "%1x" actions, shared with the Tiles menu.
    QList<QAction*> magnifications() const;

public slots:
    void setSelectedIndex(int index);
    void setZoom(int level);

signals:
    void selectedIndexChanged(int index);
    // 1-based, the form the tile window takes.
    void itemDoubleClicked(int index);
    void zoomChanged(int level);
    // Clear, Copy Image and Paste Image of the menu, at this 0-based tile.
    void clearRequested(int index);
    void copyImageRequested(int index);
    void pasteImageRequested(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildMenu();
    void startDrag(int index);
    void fitHeight();

    QPointer<TileSet> mTileSet;
    int mZoom = 8;
    int mHoverIndex = -1;
    int mSelectedIndex = -1;
    int mDropIndex = -1;
    int mMenuIndex = -1;
    Qt::MouseButtons mPressButtons;
    QPoint mPressPosition;
    QMenu mMenu;
    QActionGroup* mZoomGroup;
};
