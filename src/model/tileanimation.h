#pragma once
#include "model/animation.h"
#include "model/mapobjecttype.h"

#include <QPointer>

class TileSet;

// A block: an animation of a tile set's tiles that maps place as a whole.
// It keeps its own playing position, so every placement, on every map,
// shows the same frame.
class TileAnimation : public Animation
{
    Q_OBJECT
public:
    struct State : Animation::State
    {
        MapObjectType mapObjectType = MapObjectType::Normal;

        bool operator==(const State& other) const
        {
            return mapObjectType == other.mapObjectType && Animation::State::operator==(other);
        }
        bool operator!=(const State& other) const { return !(*this == other); }
    };

    explicit TileAnimation(QObject* parent = nullptr);

    QPointer<TileSet> tileSet() const { return mTileSet; }
    void setTileSet(QPointer<TileSet> tileSet) { mTileSet = tileSet; }
    MapObjectType mapObjectType() const { return mMapObjectType; }

    int currentFrame() const { return mCurrent; }
    // The frame to show at a clock tick, or -1 when nothing changes.
    int advance(qint64 tick);

    State state() const;
    using Animation::restore;
    // Ends in restored(), like Animation::restore.
    void restore(const State& state);

public slots:
    void setMapObjectType(MapObjectType type);

protected:
    QImage cellImage(const AnimationFrame::Cell& cell) const override;

private:
    QPointer<TileSet> mTileSet;
    MapObjectType mMapObjectType = MapObjectType::Normal;
    int mCurrent = 0;
    // Starting at tick 0 lets frame 0 stand for its full delay once the clock runs.
    qint64 mLastTick = 0;
};
