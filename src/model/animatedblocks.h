#pragma once
#include <QList>
#include <QObject>
#include <QSharedPointer>

class AnimationProperties;
class QPoint;
class QRect;
class QUuid;

// The blocks placed on one map, in the order they were placed. Marking the
// map's cells is the map's business; this is only the list.
class AnimatedBlocks : public QObject
{
    Q_OBJECT
public:
    explicit AnimatedBlocks(QObject* parent = nullptr);

    QList<QSharedPointer<AnimationProperties>> list() const { return mBlocks; }
    int count() const { return int(mBlocks.size()); }

    QSharedPointer<AnimationProperties> add(const QRect& rect, const QUuid& animationId);
    // The placement with exactly this rectangle, or null.
    QSharedPointer<AnimationProperties> at(const QRect& rect) const;
    // The earliest placement covering the cell, or null.
    QSharedPointer<AnimationProperties> find(const QPoint& cell) const;
    // The rectangle of find(cell); empty when no block covers it.
    QRect rectAt(const QPoint& cell) const;
    // Drops every placement lying wholly inside `rect`; false if there was none.
    bool removeInRect(const QRect& rect);
    void clear();

private:
    QList<QSharedPointer<AnimationProperties>> mBlocks;
};
