#include "mapeditor/view.h"

#include "interchange/maprenderer.h"
#include "mapeditor/toolbar.h"
#include "mapeditor/viewbuilder.h"
#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "model/tileanimation.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QAction>
#include <QFileDialog>
#include <QSignalBlocker>
#include <QSpinBox>

using Tintorel::Ui::ToolButton;

namespace MapEditor {

View::View(QPointer<Map> map, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent)
    , mResize(this)
    , mExport(this)
    , mPopover(this)
    , mMap(map)
{
    ViewBuilder(this).build();
    chooseExportDirectory = [this] {
        return QFileDialog::getExistingDirectory(this, tr("Choose a directory to export anim into"), QString(),
                                                 QFileDialog::ShowDirsOnly);
    };
    if (!mMap)
        return;
    connect(mMap, &Map::nameChanged, this, &View::updateTabText);
    mGrid.setMap(mMap);
    mAnimator.setMap(mMap);
    mGrid.setCurrentTileIndex(0);
    mHorizontal.setMaximum(qMax(0, mMap->size().width() - 1));
    mVertical.setMaximum(qMax(0, mMap->size().height() - 1));
    mGrid.setTransparencyIndex(mMap->tileTransparencyIndex());
    mGrid.setBackgroundTileIndex(mMap->backgroundTileIndex());
    mPalette.setShowGridChecked(mMap->gridVisible());
}

View::~View()
{
    setToolBar(nullptr);
    // The parts go one by one, and the layout resizes the grid as they go:
    // nothing it says may reach the parts already gone.
    disconnect(&mGrid, nullptr, this, nullptr);
    disconnect(&mAnimator, nullptr, this, nullptr);
    disconnect(&mPalette, nullptr, this, nullptr);
}

void View::setProject(Project* project)
{
    if (mProject)
        disconnect(mProject, nullptr, this, nullptr);
    mProject = project;
    mAnimator.setProject(project);
    if (!mProject)
        return;
    const auto banks = [this] { mGrid.setSpriteBanks(mProject->spriteBanks()); };
    banks();
    connect(mProject, &Project::spritesCreated, this, banks);
}

void View::setUndoStack(QUndoStack* stack)
{
    mGrid.setUndoStack(stack);
}

void View::setToolBar(ToolBar* toolBar)
{
    for (const QMetaObject::Connection& connection : std::as_const(mToolBarConnections))
        disconnect(connection);
    mToolBarConnections.clear();
    mToolBar = toolBar;
    if (!mToolBar)
        return;
    syncToolBar();
    mToolBarConnections << connect(mToolBar, &ToolBar::transparencyIndexChanged, this, [this](int index) {
        if (mMap)
            mMap->setTileTransparencyIndex(index);
        mGrid.setTransparencyIndex(index);
    });
    mToolBarConnections << connect(mToolBar, &ToolBar::backgroundTileIndexChanged, this, [this](int index) {
        if (mMap)
            mMap->setBackgroundTileIndex(index);
        mGrid.setBackgroundTileIndex(index);
    });
    mToolBarConnections << connect(mToolBar, &ToolBar::snapToValueChanged, this, [this](int value) {
        mSnapSize = value;
        mGrid.setSnapToSize(value);
    });
    mToolBarConnections << connect(mToolBar, &ToolBar::viewPortChanged, this, [this](QSize size) {
        mViewPortSize = size;
        // A viewport on show follows at once.
        if (mGrid.view().viewPortEnabled)
            mGrid.setViewPort(true, size);
    });
    mToolBarConnections << connect(mToolBar, &ToolBar::mapVisibilityChanged, &mGrid, &MapGrid::setMapVisibility);
    mToolBarConnections << connect(mToolBar, &ToolBar::objectVisibilityChanged, &mGrid, &MapGrid::setObjectVisibility);
    mToolBarConnections << connect(mToolBar, &ToolBar::spriteVisibilityChanged, &mGrid, &MapGrid::setSpriteVisibility);
}

void View::syncToolBar()
{
    if (!mToolBar || !mMap)
        return;
    const QSignalBlocker blocker(mToolBar);
    for (QObject* child : mToolBar->findChildren<QSpinBox*>())
        child->blockSignals(true);
    mToolBar->transparencyBox()->setValue(mMap->tileTransparencyIndex());
    mToolBar->backgroundBox()->setValue(mMap->backgroundTileIndex());
    mToolBar->tilesAction()->setChecked(mMap->tileLayerVisible());
    mToolBar->objectsAction()->setChecked(mMap->objectLayerVisible());
    mToolBar->spritesAction()->setChecked(mMap->spriteLayerVisible());
    mToolBar->viewportWidth()->setValue(mViewPortSize.width());
    mToolBar->viewportHeight()->setValue(mViewPortSize.height());
    mToolBar->snapBox()->setValue(mSnapSize);
    for (QObject* child : mToolBar->findChildren<QSpinBox*>())
        child->blockSignals(false);
    updateStatus();
}

void View::updateStatus()
{
    if (mToolBar && mMap)
        mToolBar->setMapSize(mMap->size(), mMap->cellCount());
}

void View::pause()
{
    mRanBeforePause = mAnimator.isRunning();
    mAnimator.setRunning(false);
}

void View::resume()
{
    if (mRanBeforePause)
        mAnimator.setRunning(true);
    mRanBeforePause = false;
}

void View::showEvent(QShowEvent* event)
{
    QSplitter::showEvent(event);
    syncToolBar();
    if (mRanBeforeHide)
        mAnimator.setRunning(true);
}

void View::hideEvent(QHideEvent* event)
{
    mRanBeforeHide = mAnimator.isRunning();
    mAnimator.setRunning(false);
    mPopover.hide();
    QSplitter::hideEvent(event);
}

void View::setTileIndex(int index)
{
    mGrid.setCurrentTileIndex(index);
}

void View::setMapObject(QPointer<TileAnimation> anim)
{
    mGrid.setCurrentTileAnimation(anim);
    emit placeAnimModeEnabled();
}

void View::setSpriteAnimation(QPointer<SpriteAnim> anim)
{
    mGrid.setCurrentSpriteAnimation(anim);
    emit placeSpriteModeEnabled();
}

void View::setSingleSprite(QUuid bankId, int index)
{
    mGrid.setCurrentSprite(bankId, index);
    emit placeSpriteModeEnabled();
}

void View::toolPaletteClicked(ToolButton action)
{
    toolPaletteClicked(action, false);
}

void View::toolPaletteClicked(ToolButton action, bool checked)
{
    switch (action) {
    case ToolButton::Draw:
    case ToolButton::Select:
    case ToolButton::Pick:
    case ToolButton::PlaceAnim:
    case ToolButton::PlaceSprite: mGrid.setMode(action); break;
    case ToolButton::Resize:
        if (mMap) {
            mResize.setMapSize(mMap->size());
            mResize.open();
        }
        break;
    case ToolButton::Grid:
        if (mMap)
            mMap->setGridVisible(checked);
        mGrid.setGridAndChecker(checked);
        break;
    case ToolButton::ZoomIn: mGrid.zoomIn(); break;
    case ToolButton::ZoomOut: mGrid.zoomOut(); break;
    case ToolButton::RotateCW: mGrid.setRotated(checked); mGrid.repaint(); break;
    case ToolButton::Flip: mGrid.setFlipped(checked); mGrid.repaint(); break;
    case ToolButton::Mirror: mGrid.setMirrored(checked); mGrid.repaint(); break;
    case ToolButton::MoveUp: mGrid.scrollUp(); break;
    case ToolButton::MoveDown: mGrid.scrollDown(); break;
    case ToolButton::MoveLeft: mGrid.scrollLeft(); break;
    case ToolButton::MoveRight: mGrid.scrollRight(); break;
    case ToolButton::PaintPalette: mGrid.resetPaletteOffsets(); break;
    case ToolButton::Save: mExport.open(); break;
    case ToolButton::AnimPlay:
    case ToolButton::AnimStop: mAnimator.setRunning(checked); break;
    case ToolButton::ExpandToFit:
    case ToolButton::ShrinkToFit: mGrid.fitTo(true); break;
    case ToolButton::ToggleViewport: mGrid.setViewPort(checked, mViewPortSize); break;
    default: break;
    }
}

void View::runExport(ExportMapDialog::Options options)
{
    if (!mMap)
        return;
    const QString dir = chooseExportDirectory ? chooseExportDirectory() : QString();
    if (dir.isEmpty())
        return;
    const QPointer<TileSet> tiles = mMap->tileSet();
    if (options.testFlag(ExportMapDialog::MapData))
        emit exportTileMap(dir, mMap->id());
    if (options.testFlag(ExportMapDialog::TileData))
        emit exportTiles(dir, tiles ? tiles->id() : QUuid());
    if (options.testFlag(ExportMapDialog::PaletteData))
        emit exportTilePalette(dir, tiles && tiles->palette() ? tiles->palette()->id() : QUuid());
}

void View::updateScrollValues(int h, int v)
{
    mHorizontal.setRange(0, qMax(0, h));
    mVertical.setRange(0, qMax(0, v));
}

void View::updateScrollBars(QPoint pos)
{
    mHorizontal.setValue(pos.x());
    mVertical.setValue(pos.y());
}

void View::setSelectedTile(TileMap::TileData tileData)
{
    mGrid.setCurrentTileIndex(tileData.index);
    mPalette.setActionChecked(ToolButton::RotateCW, tileData.rotate);
    mPalette.setActionChecked(ToolButton::Flip, tileData.flip);
    mPalette.setActionChecked(ToolButton::Mirror, tileData.mirror);
    mGrid.setRotated(tileData.rotate);
    mGrid.setFlipped(tileData.flip);
    mGrid.setMirrored(tileData.mirror);
    emit tilePicked(tileData.index);
}

void View::addRow(Tintorel::Position where)
{
    mGrid.addRows(where, 1);
    updateStatus();
}

void View::addColumn(Tintorel::Position where)
{
    mGrid.addColumns(where, 1);
    updateStatus();
}

void View::removeRow(Tintorel::Position where)
{
    mGrid.removeRows(where, 1);
    updateStatus();
}

void View::removeColumn(Tintorel::Position where)
{
    mGrid.removeColumns(where, 1);
    updateStatus();
}

void View::updateTabText(QString text)
{
    emit tabTextChanged(text);
}

void View::resizeMap()
{
    mGrid.resizeMap(mResize.mapSize(), mResize.alignment());
    updateStatus();
}

void View::spriteClicked(int index)
{
    if (!mMap || index < 0 || index >= mMap->sprites().size())
        return;
    const Map::PlacedSprite sprite = mMap->sprites().at(index);
    const QRect box = mGrid.spriteRect(sprite);
    const int middle = box.top() + box.height() / 2;
    const QPoint left = mGrid.mapToGlobal(mGrid.view().mapPixelToWidget(QPoint(box.left(), middle)));
    const QPoint right = mGrid.mapToGlobal(mGrid.view().mapPixelToWidget(QPoint(box.right() + 1, middle)));
    mPopover.showFor(sprite, left, right);
}

} // namespace MapEditor
