#include "mapeditor/mapanimator.h"

#include "model/animatedblocks.h"
#include "model/animationproperties.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/tileanimation.h"
#include "project/project.h"

namespace MapEditor {

MapAnimator::MapAnimator(QObject* parent)
    : QObject(parent)
{
    mTimer.setInterval(20);
    connect(&mTimer, &QTimer::timeout, this, &MapAnimator::tick);
}

void MapAnimator::setMap(Map* map)
{
    mMap = map;
}

void MapAnimator::setProject(Project* project)
{
    mProject = project;
}

void MapAnimator::setRunning(bool running)
{
    if (running)
        mTimer.start();
    else
        mTimer.stop();
}

void MapAnimator::tick()
{
    if (!mMap)
        return;
    bool changed = false;
    const QPointer<AnimatedBlocks> blocks = mMap->blocks();
    if (blocks && blocks->count() > 0 && mProject) {
        // The sets over the map's tile set, each asked in turn.
        QList<MapObjects*> sets;
        for (const QPointer<MapObjects>& set : mProject->blockLists())
            if (set && set->tileSetId() == mMap->tileSetId())
                sets.append(set);
        for (const auto& placement : blocks->list())
            for (MapObjects* set : std::as_const(sets)) {
                const QSharedPointer<TileAnimation> block = set->tileAnimation(placement->animationId());
                if (!block)
                    continue;
                const int frame = block->advance(qint64(mTicks));
                if (frame < 0)
                    continue;
                mMap->showBlockFrame(placement->rect().topLeft(), *block, frame);
                changed = true;
            }
    }
    ++mTicks;
    if (changed || !mMap->sprites().isEmpty())
        emit framesAdvanced();
}

} // namespace MapEditor
