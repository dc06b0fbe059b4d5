#include "ui/flowlayout.h"

#include <QWidget>

#include <algorithm>

FlowLayout::FlowLayout(QWidget* parent, int spacing)
    : QLayout(parent)
{
    setSpacing(std::max(1, spacing));
}

FlowLayout::~FlowLayout()
{
    qDeleteAll(mItems);
}

void FlowLayout::addItem(QLayoutItem* item)
{
    mItems.append(item);
}

int FlowLayout::count() const
{
    return int(mItems.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < mItems.size() ? mItems.at(index) : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    return index >= 0 && index < mItems.size() ? mItems.takeAt(index) : nullptr;
}

Qt::Orientations FlowLayout::expandingDirections() const
{
    return {};
}

bool FlowLayout::hasHeightForWidth() const
{
    return true;
}

int FlowLayout::heightForWidth(int width) const
{
    return place(QRect(QPoint(0, 0), QPoint(width - 1, -1)), false);
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem* item : mItems) {
        if (!item->isEmpty())
            size = size.expandedTo(item->minimumSize());
    }
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

QSize FlowLayout::sizeHint() const
{
    return minimumSize();
}

void FlowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    place(rect, true);
}

int FlowLayout::place(const QRect& rect, bool apply) const
{
    const QMargins margins = contentsMargins();
    const QRect area = rect.marginsRemoved(margins);
    const int gap = spacing();
    int x = area.x();
    int y = area.y();
    int rowHeight = 0;
    for (QLayoutItem* item : mItems) {
        if (item->isEmpty())
            continue;
        const QSize hint = item->sizeHint();
        // The first item of a row stays even when it is wider than the row.
        if (x > area.x() && x + hint.width() - 1 > area.right()) {
            x = area.x();
            y += rowHeight + gap;
            rowHeight = 0;
        }
        if (apply)
            item->setGeometry(QRect(QPoint(x, y), hint));
        x += hint.width() + gap;
        rowHeight = std::max(rowHeight, hint.height());
    }
    return y + rowHeight - rect.y() + margins.bottom();
}
