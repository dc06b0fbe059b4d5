#include "editors/tile/tilepickergrid.h"

#include "model/palette.h"
#include "model/tileset.h"

#include <QActionGroup>
#include <QApplication>
#include <QDataStream>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace {

const int kZoomLevels[] = { 1, 2, 3, 4, 6, 8, 12, 16 };

} // namespace

TilePickerGrid::TilePickerGrid(QWidget* parent)
    : QWidget(parent)
    , mZoomGroup(new QActionGroup(this))
{
    setMouseTracking(true);
    setAcceptDrops(true);
    buildMenu();
}

void TilePickerGrid::buildMenu()
{
    connect(mMenu.addAction(tr("Zoom In")), &QAction::triggered, this, [this] { setZoom(mZoom + 1); });
    connect(mMenu.addAction(tr("Zoom Out")), &QAction::triggered, this, [this] { setZoom(mZoom - 1); });
    for (int level : kZoomLevels) {
        QAction* action = mMenu.addAction(tr("%1x").arg(level));
        action->setCheckable(true);
        action->setData(level);
        action->setChecked(level == mZoom);
        mZoomGroup->addAction(action);
        connect(action, &QAction::triggered, this, [this, level] { setZoom(level); });
    }
    const auto onTile = [this](const QString& text, auto act) {
        connect(mMenu.addAction(text), &QAction::triggered, this, [this, act] {
            if (mTileSet && mMenuIndex >= 0 && mMenuIndex < mTileSet->count())
                act(mMenuIndex);
        });
    };
    onTile(tr("Clear"), [this](int index) { emit clearRequested(index); });
    onTile(tr("Copy Image"), [this](int index) { emit copyImageRequested(index); });
    onTile(tr("Paste Image"), [this](int index) { emit pasteImageRequested(index); });
    onTile(tr("Insert"), [this](int index) { mTileSet->insertTile(index); });
    onTile(tr("Delete"), [this](int index) { mTileSet->deleteTile(index); });
}

QList<QAction*> TilePickerGrid::magnifications() const
{
    return mZoomGroup->actions();
}

void TilePickerGrid::setTileSet(TileSet* tileSet)
{
    if (mTileSet)
        disconnect(mTileSet, nullptr, this, nullptr);
    mTileSet = tileSet;
    mSelectedIndex = mHoverIndex = mDropIndex = mMenuIndex = -1;
    if (mTileSet) {
        // Any change of a tile, its order or its colours shows at once.
        for (auto signal : { &TileSet::tileDeleted, &TileSet::tileInserted, &TileSet::tileChanged })
            connect(mTileSet, signal, this, [this] { fitHeight(); });
        connect(mTileSet, &TileSet::tileSwapped, this, [this] { update(); });
        connect(mTileSet, &TileSet::restored, this, [this] { fitHeight(); });
    }
    fitHeight();
}

int TilePickerGrid::columns() const
{
    const int count = width() / cellSize();
    return mTileSet && count > 0 ? count : 1;
}

int TilePickerGrid::rows() const
{
    // A full last row still leaves one empty row below it.
    return mTileSet && width() / cellSize() > 0 ? mTileSet->count() / columns() + 1 : 1;
}

int TilePickerGrid::preferredHeight() const
{
    return mTileSet ? cellSize() * rows() : 16 * mZoom;
}

void TilePickerGrid::fitHeight()
{
    setMinimumHeight(preferredHeight());
    update();
}

void TilePickerGrid::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (minimumHeight() != preferredHeight())
        setMinimumHeight(preferredHeight());
}

int TilePickerGrid::indexAt(const QPoint& pos) const
{
    if (!mTileSet || pos.x() < 0 || pos.y() < 0)
        return -1;
    const int column = pos.x() / cellSize();
    if (column >= columns())
        return -1;
    const int index = (pos.y() / cellSize()) * columns() + column;
    return index < mTileSet->count() ? index : -1;
}

QRect TilePickerGrid::cellRect(int index) const
{
    return QRect((index % columns()) * cellSize(), (index / columns()) * cellSize(), cellSize(), cellSize());
}

void TilePickerGrid::setSelectedIndex(int index)
{
    if (index == mSelectedIndex)
        return;
    mSelectedIndex = index;
    update();
    emit selectedIndexChanged(index);
}

void TilePickerGrid::setZoom(int level)
{
    mZoom = qBound(1, level, 16);
    for (QAction* action : mZoomGroup->actions())
        action->setChecked(action->data().toInt() == mZoom);
    fitHeight();
    emit zoomChanged(mZoom);
}

void TilePickerGrid::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (!mTileSet)
        return;
    const int last = qMin(mTileSet->count(), DrawnTiles);
    for (int index = 0; index < last; ++index) {
        const QRect cell = cellRect(index);
        if (!event->rect().intersects(cell))
            continue;
        const QImage tile = mTileSet->render(index, false, false, false, mTileSet->tileOffset(index));
        painter.drawImage(cell.adjusted(1, 1, -1, -1), tile);
    }
    if (mDropIndex >= 0) {
        const QRect cell = cellRect(mDropIndex).adjusted(0, 0, -1, -1);
        painter.setPen(QPen(Qt::black, 2));
        painter.drawRect(cell);
        painter.setPen(QPen(Qt::white, 2, Qt::DotLine));
        painter.drawRect(cell);
    }
    if (mHoverIndex >= 0 && mHoverIndex != mDropIndex) {
        QColor hover(0xA0, 0xA0, 0xFF);
        hover.setAlpha(0x80);
        painter.setPen(hover);
        hover.setAlpha(0x50);
        painter.setBrush(hover);
        painter.drawRect(cellRect(mHoverIndex).adjusted(0, 0, -1, -1));
        painter.setBrush(Qt::NoBrush);
    }
    if (mSelectedIndex >= 0 && mSelectedIndex < last) {
        const QRect cell = cellRect(mSelectedIndex).adjusted(1, 1, -2, -2);
        painter.setPen(QPen(Qt::black, 1));
        painter.drawRect(cell);
        painter.setPen(QPen(Qt::white, 2, Qt::DotLine));
        painter.drawRect(cell);
    }
}

void TilePickerGrid::mousePressEvent(QMouseEvent* event)
{
    mPressButtons = event->buttons();
    mPressPosition = event->position().toPoint();
}

void TilePickerGrid::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    if ((event->buttons() & Qt::LeftButton) && (pos - mPressPosition).manhattanLength() >= QApplication::startDragDistance()) {
        const int index = indexAt(mPressPosition);
        if (index >= 0)
            startDrag(index);
        mPressButtons = {};
        return;
    }
    if (event->buttons() != Qt::NoButton)
        return;
    const int index = indexAt(pos);
    if (index != mHoverIndex) {
        mHoverIndex = index;
        update();
    }
    setToolTip(index < 0 ? QString()
                         : tr("Index: %1\nPalette Offset: %2").arg(index + 1).arg(mTileSet->tileOffset(index) + 1));
}

void TilePickerGrid::mouseReleaseEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    const Qt::MouseButtons buttons = mPressButtons;
    mPressButtons = {};
    if (index < 0)
        return;
    if (buttons & Qt::LeftButton) {
        setSelectedIndex(index);
    } else if (buttons & Qt::RightButton) {
        mMenuIndex = index;
        mMenu.popup(event->globalPosition().toPoint());
    }
}

void TilePickerGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    if (index >= 0)
        emit itemDoubleClicked(index + 1);
}

void TilePickerGrid::leaveEvent(QEvent*)
{
    mHoverIndex = -1;
    update();
}

void TilePickerGrid::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QWidget::wheelEvent(event);
        return;
    }
    setZoom(mZoom + (event->angleDelta().y() < 1 ? -1 : 1));
    event->accept();
}

void TilePickerGrid::startDrag(int index)
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    stream << qint32(index) << qint32(mTileSet->tileOffset(index));
    auto* mime = new QMimeData;
    mime->setData(QString::fromLatin1(DragFormat), payload);
    auto* drag = new QDrag(this);
    drag->setMimeData(mime);
    const QImage tile = mTileSet->render(index, false, false, false, mTileSet->tileOffset(index));
    drag->setPixmap(QPixmap::fromImage(tile.scaled(cellSize(), cellSize())));
    drag->exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
}

void TilePickerGrid::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat(QString::fromLatin1(DragFormat)))
        event->acceptProposedAction();
}

void TilePickerGrid::dragMoveEvent(QDragMoveEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    if (index != mDropIndex) {
        mDropIndex = index;
        update();
    }
    event->acceptProposedAction();
}

void TilePickerGrid::dragLeaveEvent(QDragLeaveEvent*)
{
    mDropIndex = -1;
    update();
}

void TilePickerGrid::dropEvent(QDropEvent* event)
{
    const int source = indexAt(mPressPosition);
    if (mTileSet && source >= 0 && mDropIndex >= 0) {
        // Exactly Shift copies; no modifier moves; anything else does nothing.
        const Qt::KeyboardModifiers modifiers = event->modifiers();
        if (modifiers == Qt::ShiftModifier)
            mTileSet->copyTile(source, mDropIndex);
        else if (modifiers == Qt::NoModifier)
            mTileSet->moveTile(source, mDropIndex);
        event->acceptProposedAction();
    }
    mDropIndex = -1;
    update();
}
