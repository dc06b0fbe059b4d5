#include "model/animationframe.h"

AnimationFrame::AnimationFrame(QObject* parent)
    : QObject(parent)
    , mId(QUuid::createUuid())
{
}

bool AnimationFrame::contains(int row, int column) const
{
    return row >= 0 && row < mSize.height() && column >= 0 && column < mSize.width();
}

AnimationFrame::Cell AnimationFrame::cell(int row, int column) const
{
    return contains(row, column) ? mCells.at(row).at(column) : Cell();
}

void AnimationFrame::setCell(int row, int column, const Cell& cell)
{
    if (!contains(row, column))
        return;
    mCells[row][column] = cell;
    emit frameChanged(mId);
}

void AnimationFrame::resize(const QSize& size)
{
    if (size.width() < 0 || size.height() < 0)
        return;
    mCells.resize(size.height());
    for (QList<Cell>& row : mCells)
        row.resize(size.width());
    mSize = size;
}

void AnimationFrame::restore(const State& state)
{
    mId = state.id;
    mCells = state.cells;
    const int width = mCells.isEmpty() ? 0 : int(mCells.first().size());
    // Ragged rows from a damaged snapshot are evened out to the first one.
    resize(QSize(width, int(mCells.size())));
}
