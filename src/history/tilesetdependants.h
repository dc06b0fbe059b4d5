#pragma once
#include "model/map.h"
#include "model/tileanimation.h"

#include <QList>
#include <QPair>
#include <QPointer>

class QUndoCommand;

// The maps and blocks drawn from one tile set, as they stood before a
// structural edit of it. Their cells follow inserted and deleted tiles, but
// the set's undo restores it without those signals, so its command must
// restore them too.
class TileSetDependants
{
public:
    void capture(const QList<Map*>& maps, const QList<TileAnimation*>& blocks);
    // Adds to `parent` a child command for each dependant that has changed since capture.
    void addChanged(QUndoCommand* parent) const;

private:
    QList<QPair<QPointer<Map>, Map::State>> mMaps;
    QList<QPair<QPointer<TileAnimation>, TileAnimation::State>> mBlocks;
};
