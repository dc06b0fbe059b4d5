#include "history/mapeditcommand.h"

MapEditCommand::MapEditCommand(const QString& text, Map* map, const Map::State& before, const Map::State& after,
                               QUndoCommand* parent)
    : QUndoCommand(text, parent)
    , mMap(map)
    , mBefore(before)
    , mAfter(after)
{
}

void MapEditCommand::undo()
{
    if (!mMap)
        return;
    mMap->restore(mBefore);
    mApplied = false;
}

void MapEditCommand::redo()
{
    if (!mMap || mApplied)
        return;
    mMap->restore(mAfter);
    mApplied = true;
}
