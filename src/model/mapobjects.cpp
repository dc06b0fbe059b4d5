#include "model/mapobjects.h"

#include "model/tileanimation.h"
#include "model/tileset.h"

MapObjects::MapObjects(QObject* parent)
    : QObject(parent)
    , mId(QUuid::createUuid())
{
}

QSharedPointer<TileAnimation> MapObjects::tileAnimation(const QUuid& id) const
{
    return mAnimations.value(id);
}

QSharedPointer<TileAnimation> MapObjects::addTileAnimation(const QUuid& id, const QString& name)
{
    if (id.isNull() || mAnimations.contains(id))
        return {};
    auto* animation = new TileAnimation;
    TileAnimation::State named = animation->state();
    named.id = id;
    named.name = name;
    animation->restore(named);
    QSharedPointer<TileAnimation> added = adopt(animation);
    emit animationsChanged();
    return added;
}

void MapObjects::removeTileAnimation(const QUuid& id)
{
    if (mAnimations.remove(id) > 0)
        emit animationsChanged();
}

QSharedPointer<TileAnimation> MapObjects::copyTileAnimation(const QUuid& id)
{
    const QSharedPointer<TileAnimation> source = tileAnimation(id);
    if (!source)
        return {};
    TileAnimation::State copy = source->state();
    copy.id = QUuid::createUuid();
    copy.name = QStringLiteral("%1 (Copy)").arg(source->name());
    for (AnimationFrame::State& frame : copy.frames)
        frame.id = QUuid::createUuid();
    auto* animation = new TileAnimation;
    animation->restore(copy);
    QSharedPointer<TileAnimation> added = adopt(animation);
    emit animationsChanged();
    return added;
}

void MapObjects::setName(const QString& name)
{
    if (name == mName)
        return;
    mName = name;
    emit nameChanged(mName);
}

void MapObjects::setTileSet(QPointer<TileSet> tiles)
{
    if (mTileSet)
        disconnect(mTileSet, nullptr, this, nullptr);
    mTileSet = tiles;
    for (const QSharedPointer<TileAnimation>& animation : std::as_const(mAnimations))
        animation->setTileSet(mTileSet);
    if (!mTileSet)
        return;
    mTileSetId = mTileSet->id();
    connect(mTileSet, &TileSet::tileDeleted, this, &MapObjects::followDeletedTile);
    connect(mTileSet, &TileSet::tileInserted, this, &MapObjects::followInsertedTile);
}

QSharedPointer<TileAnimation> MapObjects::createTileAnimation(const QString& name)
{
    auto* animation = new TileAnimation;
    animation->setName(name);
    QSharedPointer<TileAnimation> added = adopt(animation);
    emit animationsChanged();
    return added;
}

void MapObjects::swapTiles(int first, int second)
{
    for (const QSharedPointer<TileAnimation>& animation : std::as_const(mAnimations))
        animation->swapTiles(first, second);
}

QSharedPointer<TileAnimation> MapObjects::adopt(TileAnimation* animation)
{
    animation->setTileSet(mTileSet);
    QSharedPointer<TileAnimation> shared(animation);
    mAnimations.insert(animation->id(), shared);
    return shared;
}

// Cells follow the tiles as the map layers do: a cell of the deleted tile
// falls back to tile 0 and those above move down one; an insert at i moves
// every cell from i up by one, so each still shows the tile it showed.
void MapObjects::followDeletedTile(int index)
{
    for (const QSharedPointer<TileAnimation>& animation : std::as_const(mAnimations))
        animation->deleteIndex(index);
}

void MapObjects::followInsertedTile(int index)
{
    for (const QSharedPointer<TileAnimation>& animation : std::as_const(mAnimations))
        animation->insertIndex(index);
}
