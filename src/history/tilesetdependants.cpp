#include "history/tilesetdependants.h"

#include "history/mapeditcommand.h"
#include "history/snapshotcommand.h"
#include "history/undocommandids.h"

void TileSetDependants::capture(const QList<Map*>& maps, const QList<TileAnimation*>& blocks)
{
    mMaps.clear();
    mBlocks.clear();
    for (Map* map : maps)
        mMaps.append({ map, map->state() });
    for (TileAnimation* block : blocks)
        mBlocks.append({ block, block->state() });
}

void TileSetDependants::addChanged(QUndoCommand* parent) const
{
    for (const auto& [map, before] : mMaps) {
        if (!map)
            continue;
        const Map::State after = map->state();
        if (after != before)
            new MapEditCommand(parent->text(), map, before, after, parent);
    }
    for (const auto& [block, before] : mBlocks) {
        if (!block)
            continue;
        const TileAnimation::State after = block->state();
        if (after == before)
            continue;
        // A child is never offered a merge, so its window and time don't count.
        TileAnimation* target = block;
        new SnapshotCommand<TileAnimation::State>(
            parent->text(), target, before, after, [target](const TileAnimation::State& state) { target->restore(state); },
            UndoCommandId::TileAnimationFrames, 0, 0, parent);
    }
}
