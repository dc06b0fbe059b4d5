#include "ui/indexgrid.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>

IndexGrid::IndexGrid(const QString& dragFormat, QWidget* parent)
    : QWidget(parent)
    , mDragFormat(dragFormat)
{
    setMouseTracking(true);
    setAcceptDrops(true);
}

int IndexGrid::columns() const
{
    const int count = width() / cellSize();
    return hasContent() && count > 0 ? count : 1;
}

int IndexGrid::rows() const
{
    return hasContent() && width() / cellSize() > 0 ? cellCount() / columns() + 1 : 1;
}

int IndexGrid::preferredHeight() const
{
    return hasContent() ? cellSize() * rows() : 2 * cellSize();
}

void IndexGrid::fitHeight()
{
    setMinimumHeight(preferredHeight());
    update();
}

void IndexGrid::clearMarks()
{
    mSelectedIndex = mHoverIndex = mDropIndex = -1;
}

void IndexGrid::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (minimumHeight() != preferredHeight())
        setMinimumHeight(preferredHeight());
}

int IndexGrid::indexAt(const QPoint& pos) const
{
    if (!hasContent() || pos.x() < 0 || pos.y() < 0)
        return -1;
    const int column = pos.x() / cellSize();
    if (column >= columns())
        return -1;
    const int index = (pos.y() / cellSize()) * columns() + column;
    return index < cellCount() ? index : -1;
}

QRect IndexGrid::cellRect(int index) const
{
    return QRect((index % columns()) * cellSize(), (index / columns()) * cellSize(), cellSize(), cellSize());
}

void IndexGrid::setSelectedIndex(int index)
{
    if (index == mSelectedIndex)
        return;
    mSelectedIndex = index;
    update();
    emit selectedIndexChanged(index);
}

void IndexGrid::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (!hasContent())
        return;
    const int last = qMin(cellCount(), drawnCount());
    for (int index = 0; index < last; ++index) {
        const QRect cell = cellRect(index);
        if (event->rect().intersects(cell))
            paintCell(painter, index, cell);
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

void IndexGrid::mousePressEvent(QMouseEvent* event)
{
    mPressButtons = event->buttons();
    mPressPosition = event->position().toPoint();
}

void IndexGrid::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    if ((event->buttons() & Qt::LeftButton)
        && (pos - mPressPosition).manhattanLength() >= QApplication::startDragDistance()) {
        const int index = indexAt(mPressPosition);
        mPressButtons = {};
        if (canDrag(index))
            startDrag(index);
        return;
    }
    if (event->buttons() != Qt::NoButton)
        return;
    const int index = indexAt(pos);
    if (index != mHoverIndex) {
        mHoverIndex = index;
        update();
    }
    setToolTip(index < 0 ? QString() : toolTipAt(index));
}

void IndexGrid::mouseReleaseEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    const Qt::MouseButtons buttons = mPressButtons;
    mPressButtons = {};
    if (index < 0)
        return;
    if (buttons & Qt::LeftButton)
        clicked(index);
    else if (buttons & Qt::RightButton)
        menuRequested(index, event->globalPosition().toPoint());
}

void IndexGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    if (index >= 0)
        doubleClicked(index);
}

void IndexGrid::leaveEvent(QEvent*)
{
    mHoverIndex = -1;
    update();
}

void IndexGrid::startDrag(int index)
{
    auto* mime = new QMimeData;
    mime->setData(mDragFormat, dragPayload(index));
    auto* drag = new QDrag(this);
    drag->setMimeData(mime);
    drag->setPixmap(QPixmap::fromImage(dragImage(index).scaled(cellSize(), cellSize())));
    drag->exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
}

void IndexGrid::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat(mDragFormat))
        event->acceptProposedAction();
}

void IndexGrid::dragMoveEvent(QDragMoveEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    if (index != mDropIndex) {
        mDropIndex = index;
        update();
    }
    event->acceptProposedAction();
}

void IndexGrid::dragLeaveEvent(QDragLeaveEvent*)
{
    mDropIndex = -1;
    update();
}

void IndexGrid::dropEvent(QDropEvent* event)
{
    const int source = indexAt(mPressPosition);
    if (hasContent() && canDrag(source) && canDrag(mDropIndex)) {
        const Qt::KeyboardModifiers modifiers = event->modifiers();
        if (modifiers == Qt::ShiftModifier)
            copyCell(source, mDropIndex);
        else if (modifiers == Qt::NoModifier)
            moveCell(source, mDropIndex);
        event->acceptProposedAction();
    }
    mDropIndex = -1;
    update();
}
