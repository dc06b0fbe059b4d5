#pragma once
#include "mapeditor/mapgridedits.h"
#include "mapeditor/mapviewstate.h"
#include "model/spritebank.h"
#include "model/map.h"
#include "model/tintorel.h"
#include "model/tintorelui.h"

#include <QColor>
#include <QHash>
#include <QMenu>
#include <QPointer>
#include <QRubberBand>
#include <QWidget>
#include <memory>

class QUndoStack;
class SpriteAnim;
class SpriteBank;
class TileAnimation;

namespace MapEditor {

class MapTool;

// The widget a map is shown and edited on: its camera, the layers, the
// placed sprites, the tools' overlays, the grid and a status line. It holds
// no document data: everything comes from the map, and every edit goes
// through it, one undo step from the outermost beginEdit to its endEdit.
class MapGrid : public QWidget
{
    Q_OBJECT
public:
    explicit MapGrid(QWidget* parent = nullptr);
    ~MapGrid() override;

    void setMap(QPointer<Map> map);
    QPointer<Map> map() const { return mMap; }
    void setUndoStack(QUndoStack* stack);
    void setMode(Tintorel::Ui::ToolButton mode);
    Tintorel::Ui::ToolButton mode() const { return mMode; }
    Tintorel::Ui::ToolButton previousMode() const { return mPreviousMode; }
    MapTool* tool() const { return mTool; }
    void setZoom(int level);
    void setCellSize(int size);
    void setGridAndChecker(bool on);
    void setGridColours(const QColor& first, const QColor& second);

    // One undo step for everything between the outermost pair; nothing when
    // the map came back to where it was.
    void beginEdit();
    void endEdit(const QString& text);
    int editDepth() const { return mEditDepth; }

    void selectAll();
    void copy();
    void cut();
    void fillSelection();
    void clearSelection();
    bool deleteSelectedSprite();
    bool removeAnimationUnderCursor();
    void applySpriteEdit(const Map::PlacedSprite& sprite);
    void resetPaletteOffsets();
    void hideRubberBand();
    void updateCursor();
    TileMap::TileData currentTileData(bool visible) const;
    // The sprite under a map pixel, the last drawn first; -1 for none.
    int spriteAt(const QPoint& mapPixel) const;
    QRect spriteRect(const Map::PlacedSprite& sprite) const;
    void pickCell(const QPoint& cell);
    void runContextMenu(const QPoint& globalPos);
    void layoutMap();

    MapViewState& view() { return mView; }
    const MapViewState& view() const { return mView; }
    QRubberBand* rubberBand() { return &mRubberBand; }
    QMenu* contextMenu() { return &mContextMenu; }
    int buttons() const { return mButtons; }
    void setButtons(int buttons) { mButtons = buttons; }
    QPoint pressPos() const { return mPressPos; }
    QPoint hoverCell() const { return mHoverCell; }
    void setHoverCell(const QPoint& cell) { mHoverCell = cell; }
    QRect selection() const { return mSelection; }
    void setSelection(const QRect& selection) { mSelection = selection; }
    QRect pasteRect() const { return mPasteRect; }
    void setPasteRect(const QRect& rect) { mPasteRect = rect; }
    QRect hoverBlockRect() const { return mHoverBlockRect; }
    void setHoverBlockRect(const QRect& rect) { mHoverBlockRect = rect; }
    int hoverSprite() const { return mHoverSprite; }
    void setHoverSprite(int index) { mHoverSprite = index; }
    int selectedSprite() const { return mSelectedSprite; }
    void setSelectedSprite(int index);
    int currentTile() const { return mCurrentTile; }
    QPointer<TileAnimation> currentAnimation() const { return mCurrentAnimation; }
    Map::PlacedSprite spriteTemplate() const { return mSpriteTemplate; }
    bool hasSpriteTemplate() const { return mHasSpriteTemplate; }
    // A template whose bank is still among the grid's banks: one deleted
    // since it was chosen places nothing.
    bool spriteTemplateUsable() const;
    QList<QPointer<SpriteBank>> spriteBanks() const { return mSpriteBanks; }
    qint64 spriteTicks() const { return mSpriteTicks; }
    bool gridVisible() const { return mGridVisible; }
    bool checkerBoard() const { return mCheckerBoard; }
    QColor gridColour1() const { return mGridColour1; }
    QColor gridColour2() const { return mGridColour2; }
    bool rotated() const { return mRotated; }
    bool flipped() const { return mFlipped; }
    bool mirrored() const { return mMirrored; }
    void setRotated(bool on) { mRotated = on; }
    void setFlipped(bool on) { mFlipped = on; }
    void setMirrored(bool on) { mMirrored = on; }
    int transparencyIndex() const { return mTransparencyIndex; }
    int backgroundTile() const { return mBackgroundTile; }

public slots:
    void setViewPort(bool enabled, QSize size);
    void setCurrentTileIndex(int index);
    void setCurrentTileAnimation(QPointer<TileAnimation> anim);
    void setCurrentSpriteAnimation(QPointer<SpriteAnim> anim);
    void setCurrentSprite(QUuid bankId, int index);
    void setGridVisible(bool visible);
    void zoomIn();
    void zoomOut();
    void fitTo(bool doEvent);
    void fitTo();
    void scrollRight();
    void scrollLeft();
    void scrollUp();
    void scrollDown();
    void setHorizontalScrollPosition(int pos);
    void setVerticalScrollPosition(int pos);
    void addRows(Tintorel::Position where, int count);
    void addColumns(Tintorel::Position where, int count);
    void removeRows(Tintorel::Position where, int count);
    void removeColumns(Tintorel::Position where, int count);
    void resizeMap(QSize size, Qt::Alignment alignment);
    void setTransparencyIndex(int index);
    void setBackgroundTileIndex(int index);
    void setSnapToSize(int size);
    void setSpriteBanks(QList<QPointer<SpriteBank>> banks);
    void setSpriteTicks(qlonglong ticks);
    void setMapVisibility(bool visible);
    void setObjectVisibility(bool visible);
    void setSpriteVisibility(bool visible);
    void tileMapChanged();
    void copyAsImage();
    void mapFromSelection();

signals:
    void scrollDeltaChanged(int h, int v);
    void scrollPositionChanged(QPoint pos);
    void mapResized(QSize size);
    void tilePicked(TileMap::TileData tileData);
    void modeChanged(Tintorel::Ui::ToolButton mode);
    void selectedSpriteChanged(int index);
    void spriteClicked(int index);
    void createMapFromSelection(QUuid mapId, QSize size);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void scroll(const QPoint& delta);

    QRubberBand mRubberBand;
    QMenu mContextMenu;
    QHash<int, std::shared_ptr<MapTool>> mTools;
    MapTool* mTool = nullptr;
    QColor mGridColour1 { 64, 64, 64 };
    QColor mGridColour2 { 80, 80, 80 };
    QPoint mHoverCell { -1, 1 };
    QPoint mPressPos { -1, -1 };
    QRect mSelection;
    Tintorel::Ui::ToolButton mMode = Tintorel::Ui::Draw;
    Tintorel::Ui::ToolButton mPreviousMode = Tintorel::Ui::Draw;
    bool mGridVisible = false;
    bool mCheckerBoard = true;
    bool mRotated = false;
    bool mFlipped = false;
    bool mMirrored = false;
    int mCurrentTile = 0;
    int mTransparencyIndex = -1;
    int mBackgroundTile = -1;
    MapViewState mView;
    QPointer<Map> mMap;
    int mButtons = 0;
    QPointer<QUndoStack> mUndoStack;
    int mEditDepth = 0;
    Map::State mEditSnapshot;
    QPointer<TileAnimation> mCurrentAnimation;
    Map::PlacedSprite mSpriteTemplate;
    bool mHasSpriteTemplate = false;
    QList<QPointer<SpriteBank>> mSpriteBanks;
    qint64 mSpriteTicks = 0;
    int mHoverSprite = -1;
    int mSelectedSprite = -1;
    QRect mPasteRect;
    QRect mHoverBlockRect;
    MapGridEdits mEdits;
};

} // namespace MapEditor
