#pragma once
#include "model/map.h"

#include <QPointer>
#include <QUndoCommand>

// An edit of a map's cells, blocks or sprites, undone by restoring the
// whole map state. Never merges: each tool gesture is its own step.
class MapEditCommand : public QUndoCommand
{
public:
    MapEditCommand(const QString& text, Map* map, const Map::State& before, const Map::State& after,
                   QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;

private:
    QPointer<Map> mMap;
    Map::State mBefore;
    Map::State mAfter;
    // The map holds `after` already when the command is pushed.
    bool mApplied = true;
};
