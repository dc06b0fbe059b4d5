#pragma once
#include "mapeditor/mapanimator.h"
#include "mapeditor/mapgrid.h"
#include "mapeditor/maptoolpalette.h"
#include "mapeditor/spritepropertiespopover.h"
#include "ui/exportmapdialog.h"
#include "ui/resizemapdialog.h"

#include <QPointer>
#include <QScrollBar>
#include <QSplitter>

class Project;
class QUndoStack;
class SpriteAnim;
class TileAnimation;

namespace MapEditor {

class ToolBar;

// The tab of a map: the grid with its scroll bars, the tool palette, the
// clock of the blocks and sprites, and the sprite properties; it translates
// between them and the window's "Map" tool bar.
class View : public QSplitter
{
    Q_OBJECT
public:
    explicit View(QPointer<Map> map, QWidget* parent = nullptr);
    ~View() override;

    QPointer<Map> map() const { return mMap; }
    MapGrid* grid() { return &mGrid; }
    MapToolPalette* toolPalette() { return &mPalette; }
    MapAnimator* animator() { return &mAnimator; }
    SpritePropertiesPopover* popover() { return &mPopover; }
    ResizeMapDialog* resizeDialog() { return &mResize; }
    ExportMapDialog* exportDialog() { return &mExport; }
    QScrollBar* horizontalBar() { return &mHorizontal; }
    QScrollBar* verticalBar() { return &mVertical; }

    // The project's block sets and sprite banks, which the map's blocks and sprites come from.
    void setProject(Project* project);
    void setUndoStack(QUndoStack* stack);
    // The window's "Map" tool bar, while this tab is current; null lets go of it.
    void setToolBar(ToolBar* toolBar);
    // Stops the clock for a while, remembering whether it ran.
    void pause();
    void resume();
    // Chooses a directory for the export; set by whoever shows the view.
    std::function<QString()> chooseExportDirectory;

public slots:
    void setTileIndex(int index);
    void setMapObject(QPointer<TileAnimation> anim);
    void setSpriteAnimation(QPointer<SpriteAnim> anim);
    void setSingleSprite(QUuid bankId, int index);
    void toolPaletteClicked(Tintorel::Ui::ToolButton action, bool checked);
    void toolPaletteClicked(Tintorel::Ui::ToolButton action);
    void updateScrollValues(int h, int v);
    void updateScrollBars(QPoint pos);
    void setSelectedTile(TileMap::TileData tileData);
    void addRow(Tintorel::Position where);
    void addColumn(Tintorel::Position where);
    void removeRow(Tintorel::Position where);
    void removeColumn(Tintorel::Position where);
    void updateTabText(QString text);
    void resizeMap();

signals:
    void exportTileMap(QString dir, QUuid id);
    void exportTiles(QString dir, QUuid id);
    void exportTilePalette(QString dir, QUuid id);
    void tilePicked(int index);
    void createMapFromSelection(QUuid mapId, QSize size);
    void placeAnimModeEnabled();
    void placeSpriteModeEnabled();
    void tabTextChanged(QString text);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    friend class ViewBuilder;
    void syncToolBar();
    void updateStatus();
    void runExport(ExportMapDialog::Options options);
    void spriteClicked(int index);

    ResizeMapDialog mResize;
    ExportMapDialog mExport;
    MapGrid mGrid;
    MapToolPalette mPalette;
    QScrollBar mHorizontal { Qt::Horizontal };
    QScrollBar mVertical { Qt::Vertical };
    MapAnimator mAnimator;
    SpritePropertiesPopover mPopover;
    QPointer<ToolBar> mToolBar;
    QPointer<Map> mMap;
    QPointer<Project> mProject;
    QSize mViewPortSize { 40, 32 };
    int mSnapSize = 1;
    bool mRanBeforePause = false;
    bool mRanBeforeHide = false;
    QList<QMetaObject::Connection> mToolBarConnections;
};

} // namespace MapEditor
