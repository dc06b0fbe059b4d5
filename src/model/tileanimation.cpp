#include "model/tileanimation.h"

#include "model/tileset.h"

#include <QtGlobal>

TileAnimation::TileAnimation(QObject* parent)
    : Animation(TileType, QStringLiteral("Blocks!"), parent)
{
}

int TileAnimation::advance(qint64 tick)
{
    if (tick == mLastTick)
        return mCurrent;
    mLastTick = tick;
    if (delay() == 0)
        return -1;
    // By the divisor's size: the same multiples, and no overflow at the ends of the range.
    if (tick % qAbs(qint64(delay())) != 0)
        return -1;
    if (++mCurrent >= frameCount())
        mCurrent = 0;
    return mCurrent;
}

TileAnimation::State TileAnimation::state() const
{
    State result;
    static_cast<Animation::State&>(result) = Animation::state();
    result.mapObjectType = mMapObjectType;
    return result;
}

void TileAnimation::restore(const State& state)
{
    applyState(state);
    mMapObjectType = state.mapObjectType;
    emit restored();
}

void TileAnimation::setMapObjectType(MapObjectType type)
{
    mMapObjectType = type;
    emit contentChanged();
}

QImage TileAnimation::cellImage(const AnimationFrame::Cell& cell) const
{
    return mTileSet ? mTileSet->render(cell.index, cell.rotate, cell.flip, cell.mirror, cell.offset)
                    : QImage();
}
