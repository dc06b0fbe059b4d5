#pragma once
#include "ui/dockwidget.h"

#include <QPointer>

class QLabel;
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

signals:
    // 1-based, from a double click.
    void tileDoubleClicked(int index);
    // 0-based, from a click.
    void selectedTileChanged(int index);

private:
    void updateStatus();

    TilePickerGrid* mGrid;
    QLabel* mStatus;
    QPointer<TileSet> mTileSet;
};
