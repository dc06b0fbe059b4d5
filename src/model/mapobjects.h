#pragma once
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QUuid>

class TileAnimation;
class TileSet;

// A named set of blocks over one tile set. The blocks' cells follow the
// tile set when tiles are deleted or inserted.
class MapObjects : public QObject
{
    Q_OBJECT
public:
    explicit MapObjects(QObject* parent = nullptr);

    QUuid id() const { return mId; }
    void setId(const QUuid& id) { mId = id; }
    QString name() const { return mName; }
    QUuid tileSetId() const { return mTileSetId; }
    void setTileSetId(const QUuid& id) { mTileSetId = id; }
    QPointer<TileSet> tileSet() const { return mTileSet; }

    QHash<QUuid, QSharedPointer<TileAnimation>> animations() const { return mAnimations; }
    // Null for an unknown id.
    QSharedPointer<TileAnimation> tileAnimation(const QUuid& id) const;
    // Under a known id (a file's); null if the id is null or taken.
    QSharedPointer<TileAnimation> addTileAnimation(const QUuid& id, const QString& name);
    void removeTileAnimation(const QUuid& id);
    // A copy with its own ids, named "%1 (Copy)"; null for an unknown id.
    QSharedPointer<TileAnimation> copyTileAnimation(const QUuid& id);

public slots:
    void setName(const QString& name);
    void setTileSet(QPointer<TileSet> tiles);
    QSharedPointer<TileAnimation> createTileAnimation(const QString& name);
    void swapTiles(int first, int second);

signals:
    void nameChanged(QString name);
    void animationsChanged();

private:
    QSharedPointer<TileAnimation> adopt(TileAnimation* animation);
    void followDeletedTile(int index);
    void followInsertedTile(int index);

    QUuid mId;
    QString mName;
    QUuid mTileSetId;
    QPointer<TileSet> mTileSet;
    QHash<QUuid, QSharedPointer<TileAnimation>> mAnimations;
};
