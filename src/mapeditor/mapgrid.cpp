#include "mapeditor/mapgrid.h"

#include "history/mapeditcommand.h"
#include "interchange/maprenderer.h"
#include "mapeditor/drawtool.h"
#include "mapeditor/mappainter.h"
#include "mapeditor/pastetool.h"
#include "mapeditor/picktool.h"
#include "mapeditor/placeanimationtool.h"
#include "mapeditor/placespritetool.h"
#include "mapeditor/selecttool.h"
#include "model/animatedblocks.h"
#include "model/animationproperties.h"
#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "model/tileanimation.h"
#include "model/tileset.h"

#include <QClipboard>
#include <QDebug>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyle>
#include <QUndoStack>

using Tintorel::Ui::ToolButton;

namespace MapEditor {

namespace {

Map::PlacedSprite blankTemplate()
{
    Map::PlacedSprite sprite;
    sprite.sprite = -1;
    return sprite;
}

} // namespace

MapGrid::MapGrid(QWidget* parent)
    : QWidget(parent)
    , mRubberBand(QRubberBand::Rectangle, this)
    , mSpriteTemplate(blankTemplate())
    , mEdits(this)
{
    const std::shared_ptr<MapTool> tools[] = {
        std::make_shared<DrawTool>(this),        std::make_shared<PlaceAnimationTool>(this),
        std::make_shared<PlaceSpriteTool>(this), std::make_shared<SelectTool>(this),
        std::make_shared<PickTool>(this),        std::make_shared<PasteTool>(this),
    };
    for (const std::shared_ptr<MapTool>& tool : tools)
        mTools.insert(int(tool->mode()), tool);
    mTool = mTools.value(int(ToolButton::Draw)).get();
    connect(mContextMenu.addAction(tr("Cut")), &QAction::triggered, this, &MapGrid::cut);
    connect(mContextMenu.addAction(tr("Copy")), &QAction::triggered, this, &MapGrid::copy);
    connect(mContextMenu.addAction(tr("Copy to new map")), &QAction::triggered, this, &MapGrid::mapFromSelection);
    connect(mContextMenu.addAction(tr("Copy as Image")), &QAction::triggered, this, &MapGrid::copyAsImage);
    connect(mContextMenu.addAction(tr("Fill")), &QAction::triggered, this, &MapGrid::fillSelection);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_MouseTracking);
    setFocusPolicy(Qt::StrongFocus);
    setEnabled(false);
}

MapGrid::~MapGrid() = default;

void MapGrid::setMap(QPointer<Map> map)
{
    if (mMap) {
        if (mMap->tileSet())
            disconnect(mMap->tileSet(), nullptr, this, nullptr);
        disconnect(mMap, nullptr, this, nullptr);
    }
    setEnabled(false);
    mMap = map;
    if (!mMap)
        return;
    mGridVisible = mMap->gridVisible();
    if (const QPointer<TileSet> tiles = mMap->tileSet()) {
        connect(tiles, &TileSet::tileChanged, this, qOverload<>(&QWidget::update));
        connect(tiles, &TileSet::restored, this, qOverload<>(&QWidget::update));
    }
    connect(mMap, &Map::restored, this, &MapGrid::tileMapChanged, Qt::UniqueConnection);
    connect(mMap, &Map::resized, this, &MapGrid::tileMapChanged, Qt::UniqueConnection);
    // Cells under a block are never shown from the tile layer.
    if (mMap->blocks())
        for (const auto& placement : mMap->blocks()->list())
            mMap->setTiles(placement->rect(), 0, false, false, false, true);
    setEnabled(true);
    layoutMap();
    updateCursor();
    repaint();
}

void MapGrid::setUndoStack(QUndoStack* stack)
{
    mUndoStack = stack;
}

bool MapGrid::spriteTemplateUsable() const
{
    if (!mHasSpriteTemplate)
        return false;
    for (const QPointer<SpriteBank>& bank : mSpriteBanks)
        if (bank && bank->id() == mSpriteTemplate.bank)
            return true;
    return false;
}

void MapGrid::layoutMap()
{
    const QSize mapSize = mMap ? mMap->size() : QSize(0, 0);
    const int cell = qMax(1, mView.scaledCell);
    int columns = width() / cell;
    int rows = height() / cell;
    if (mView.viewPortEnabled) {
        columns = qMin(columns, mView.viewPortSize.width());
        rows = qMin(rows, mView.viewPortSize.height());
    }
    const QSize drawn(qMin(mapSize.width(), columns) * cell, qMin(mapSize.height(), rows) * cell);
    mView.drawRect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignHCenter | Qt::AlignVCenter, drawn, rect());
    const QSize range = mView.scrollRange(mapSize);
    emit scrollDeltaChanged(range.width(), range.height());
}

void MapGrid::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layoutMap();
}

void MapGrid::setZoom(int level)
{
    mView.setZoom(level);
    layoutMap();
    repaint();
}

void MapGrid::setCellSize(int size)
{
    mView.setCellSize(size);
    layoutMap();
    repaint();
}

void MapGrid::zoomIn()
{
    setZoom(mView.zoom + 1);
}

void MapGrid::zoomOut()
{
    setZoom(mView.zoom - 1);
}

void MapGrid::fitTo(bool doEvent)
{
    mView.fit(QSize(rect().right() + 1 - rect().left(), rect().bottom() + 1 - rect().top()),
              mMap ? mMap->size() : QSize(1, 1));
    if (doEvent) {
        layoutMap();
        repaint();
    }
}

void MapGrid::fitTo()
{
    fitTo(true);
}

void MapGrid::setViewPort(bool enabled, QSize size)
{
    mView.setViewPort(enabled, size);
    if (enabled) {
        layoutMap();
        repaint();
    }
}

void MapGrid::scroll(const QPoint& delta)
{
    if (!mMap || !mView.scrollBy(delta, mMap->size()))
        return;
    mHoverCell = QPoint(-1, -1);
    // A band on screen stays on the cells it covers.
    if (mRubberBand.isVisible())
        mRubberBand.move(mRubberBand.pos() - delta * mView.scaledCell);
    repaint();
    emit scrollPositionChanged(mView.scroll);
}

void MapGrid::scrollRight() { scroll(QPoint(1, 0)); }
void MapGrid::scrollLeft() { scroll(QPoint(-1, 0)); }
void MapGrid::scrollUp() { scroll(QPoint(0, -1)); }
void MapGrid::scrollDown() { scroll(QPoint(0, 1)); }

void MapGrid::setHorizontalScrollPosition(int pos)
{
    mView.scroll.setX(pos);
    repaint();
}

void MapGrid::setVerticalScrollPosition(int pos)
{
    mView.scroll.setY(pos);
    repaint();
}

void MapGrid::wheelEvent(QWheelEvent* event)
{
    const bool down = event->angleDelta().y() < 1;
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    if (modifiers & Qt::ControlModifier)
        down ? zoomOut() : zoomIn();
    else if (modifiers & Qt::ShiftModifier)
        down ? scrollRight() : scrollLeft();
    else
        down ? scrollDown() : scrollUp();
    event->accept();
}

void MapGrid::setMode(ToolButton mode)
{
    mHoverSprite = -1;
    mMode = mode;
    if (mode != ToolButton::PlaceSprite)
        setSelectedSprite(-1);
    if (const std::shared_ptr<MapTool> tool = mTools.value(int(mode))) {
        mTool = tool.get();
        if (!mTool->activate() && mPreviousMode != ToolButton::Paste) {
            setMode(mPreviousMode);
            return;
        }
    } else {
        qInfo() << "MapWidget::setMode(" << mode << ")" << "Unhandled switch case";
    }
    // Compared with the mode of the last press, not the one before this call.
    if (mMode != mPreviousMode)
        emit modeChanged(mMode);
    repaint();
}

void MapGrid::setSelectedSprite(int index)
{
    if (index == mSelectedSprite)
        return;
    mSelectedSprite = index;
    emit selectedSpriteChanged(index);
}

void MapGrid::updateCursor()
{
    if (mMap && mTool)
        setCursor(mTool->isBlocked() ? QCursor(Qt::ForbiddenCursor) : mTool->cursor());
}

void MapGrid::mousePressEvent(QMouseEvent* event)
{
    mPressPos = event->position().toPoint();
    mPreviousMode = mMode;
    mButtons = int(event->buttons());
    if (!mMap || (event->buttons() & Qt::MiddleButton))
        return;
    if (mTool->filterPress(event))
        return;
    if (QGuiApplication::keyboardModifiers() & Qt::ShiftModifier) {
        setMode(ToolButton::Select);
        emit modeChanged(ToolButton::Select);
        return;
    }
    if (mTool->press(event))
        return;
    mouseMoveEvent(event);
}

void MapGrid::mouseMoveEvent(QMouseEvent* event)
{
    if (!mMap)
        return;
    if (mView.drawRect.contains(event->position().toPoint())) {
        mTool->move(event);
        return;
    }
    mHoverCell = QPoint(-1, -1);
    repaint();
}

void MapGrid::mouseReleaseEvent(QMouseEvent* event)
{
    if (mMap) {
        if (mButtons & Qt::MiddleButton) {
            pickCell(mView.pixelToCellUnsnapped(event->position().toPoint()));
            setMode(mPreviousMode);
        } else {
            mTool->release(event);
        }
        // An edit that a tool left open still ends in one step.
        if (mEditDepth > 0) {
            mEditDepth = 1;
            endEdit(tr("Edit"));
        }
    }
    hideRubberBand();
    mButtons = 0;
}

void MapGrid::leaveEvent(QEvent*)
{
    mHoverCell = QPoint(-1, -1);
    repaint();
}

void MapGrid::pickCell(const QPoint& cell)
{
    if (mMap)
        emit tilePicked(mMap->tile(cell));
}

void MapGrid::hideRubberBand()
{
    mRubberBand.hide();
}

void MapGrid::runContextMenu(const QPoint& globalPos)
{
    mContextMenu.exec(globalPos);
}

void MapGrid::beginEdit()
{
    if (mEditDepth++ == 0 && mMap)
        mEditSnapshot = mMap->state();
}

void MapGrid::endEdit(const QString& text)
{
    if (mEditDepth == 0)
        return;
    if (--mEditDepth > 0 || !mMap)
        return;
    const Map::State after = mMap->state();
    if (mUndoStack && after != mEditSnapshot)
        mUndoStack->push(new MapEditCommand(text, mMap, mEditSnapshot, after));
    mEditSnapshot = Map::State();
}

TileMap::TileData MapGrid::currentTileData(bool visible) const
{
    const QPointer<TileSet> tiles = mMap ? mMap->tileSet() : nullptr;
    const int offset = tiles && mCurrentTile >= 0 && mCurrentTile < tiles->count() ? tiles->tileOffset(mCurrentTile)
                                                                                   : 0;
    return { mCurrentTile, mRotated, mFlipped, mMirrored, offset, visible };
}

QRect MapGrid::spriteRect(const Map::PlacedSprite& sprite) const
{
    if (!mMap)
        return {};
    const QList<QPointer<SpriteBank>> banks = mSpriteBanks;
    MapRenderer renderer(*mMap, [banks](const QUuid& id) -> SpriteBank* {
        for (const QPointer<SpriteBank>& bank : banks)
            if (bank && bank->id() == id)
                return bank;
        return nullptr;
    });
    return renderer.spriteRect(sprite);
}

int MapGrid::spriteAt(const QPoint& mapPixel) const
{
    if (!mMap || !mMap->spriteLayerVisible())
        return -1;
    const QList<Map::PlacedSprite>& sprites = mMap->sprites();
    for (int i = int(sprites.size()) - 1; i >= 0; --i)
        if (spriteRect(sprites.at(i)).contains(mapPixel))
            return i;
    return -1;
}

void MapGrid::setCurrentTileIndex(int index)
{
    mCurrentAnimation = nullptr;
    mCurrentTile = index;
    repaint();
}

void MapGrid::setCurrentTileAnimation(QPointer<TileAnimation> anim)
{
    mCurrentTile = -1;
    mCurrentAnimation = anim;
    setMode(ToolButton::PlaceAnim);
    repaint();
}

void MapGrid::setCurrentSpriteAnimation(QPointer<SpriteAnim> anim)
{
    mCurrentTile = -1;
    mSpriteTemplate = blankTemplate();
    mHasSpriteTemplate = anim;
    if (anim) {
        const auto* bank = qobject_cast<SpriteBank*>(anim->parent());
        mSpriteTemplate.bank = bank ? bank->id() : QUuid();
        mSpriteTemplate.animation = anim->id();
        setMode(ToolButton::PlaceSprite);
    }
    repaint();
}

void MapGrid::setCurrentSprite(QUuid bankId, int index)
{
    mCurrentTile = -1;
    mSpriteTemplate = blankTemplate();
    mHasSpriteTemplate = index >= 0;
    if (mHasSpriteTemplate) {
        mSpriteTemplate.sprite = index;
        mSpriteTemplate.bank = bankId;
        setMode(ToolButton::PlaceSprite);
    }
    repaint();
}

void MapGrid::setGridVisible(bool visible)
{
    mGridVisible = visible;
    repaint();
}

void MapGrid::setGridAndChecker(bool on)
{
    mGridVisible = mCheckerBoard = on;
    repaint();
}

void MapGrid::setGridColours(const QColor& first, const QColor& second)
{
    mGridColour1 = first;
    mGridColour2 = second;
}

void MapGrid::setTransparencyIndex(int index)
{
    mTransparencyIndex = index;
    repaint();
}

void MapGrid::setBackgroundTileIndex(int index)
{
    mBackgroundTile = index;
    repaint();
}

void MapGrid::setSnapToSize(int size)
{
    mView.snap = size;
}

void MapGrid::setSpriteBanks(QList<QPointer<SpriteBank>> banks)
{
    mSpriteBanks = banks;
    update();
}

void MapGrid::setSpriteTicks(qlonglong ticks)
{
    mSpriteTicks = ticks;
}

void MapGrid::setMapVisibility(bool visible)
{
    if (mMap)
        mMap->setTileLayerVisible(visible);
    updateCursor();
    repaint();
}

void MapGrid::setObjectVisibility(bool visible)
{
    if (mMap)
        mMap->setObjectLayerVisible(visible);
    updateCursor();
    repaint();
}

void MapGrid::setSpriteVisibility(bool visible)
{
    if (mMap)
        mMap->setSpriteLayerVisible(visible);
    updateCursor();
    repaint();
}

void MapGrid::tileMapChanged()
{
    if (!mMap)
        return;
    mSelection = mSelection.intersected(QRect(QPoint(0, 0), mMap->size()));
    mHoverSprite = -1;
    mPasteRect = QRect();
    mHoverBlockRect = QRect();
    if (mSelectedSprite >= int(mMap->sprites().size()))
        mSelectedSprite = -1;
    emit selectedSpriteChanged(mSelectedSprite);
    emit mapResized(mMap->size());
    layoutMap();
    update();
}

void MapGrid::addRows(Tintorel::Position where, int count) { mEdits.addRows(where, count); }
void MapGrid::addColumns(Tintorel::Position where, int count) { mEdits.addColumns(where, count); }
void MapGrid::removeRows(Tintorel::Position where, int count) { mEdits.removeRows(where, count); }
void MapGrid::removeColumns(Tintorel::Position where, int count) { mEdits.removeColumns(where, count); }
void MapGrid::resizeMap(QSize size, Qt::Alignment alignment) { mEdits.resizeMap(size, alignment); }
void MapGrid::fillSelection() { mEdits.fillSelection(); }
void MapGrid::clearSelection() { mEdits.clearSelection(); }
bool MapGrid::deleteSelectedSprite() { return mEdits.deleteSelectedSprite(); }
bool MapGrid::removeAnimationUnderCursor() { return mEdits.removeAnimationUnderCursor(); }
void MapGrid::applySpriteEdit(const Map::PlacedSprite& sprite) { mEdits.applySpriteEdit(sprite); }
void MapGrid::cut() { mEdits.cut(); }
void MapGrid::copy() { mEdits.copy(); }
void MapGrid::copyAsImage() { mEdits.copyAsImage(); }
void MapGrid::mapFromSelection() { mEdits.mapFromSelection(); }
void MapGrid::selectAll() { mEdits.selectAll(); }
void MapGrid::resetPaletteOffsets() { mEdits.resetPaletteOffsets(); }

void MapGrid::paintEvent(QPaintEvent*)
{
    if (!isEnabled() || !mMap)
        return;
    MapPainter painter(this);
    painter.paintMap();
}

} // namespace MapEditor
