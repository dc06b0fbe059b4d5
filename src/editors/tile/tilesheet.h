#pragma once
#include <QList>
#include <QPointer>
#include <QWidget>

class CheckList;
class QCheckBox;
class QSpinBox;
class Tile;

// The game's meaning of one tile: its solid edges, the flags a game reads
// (harmful, collectible, climbable, door) and a free value.
class TileSheet : public QWidget
{
    Q_OBJECT
public:
    explicit TileSheet(QWidget* parent = nullptr);

    void setTile(QPointer<Tile> tile);
    CheckList* solidEdges() const { return mSolid; }
    QList<QCheckBox*> flagBoxes() const { return mFlags; }
    QSpinBox* valueBox() const { return mValue; }

public slots:
    void updateAttributes(bool state);
    void solidStateChanged(int checked);

signals:
    // An attribute or the value changed; no undo step records it.
    void attributesEdited();

private:
    void load();

    QPointer<Tile> mTile;
    CheckList* mSolid;
    QList<QCheckBox*> mFlags;
    QSpinBox* mValue;
    QList<QMetaObject::Connection> mConnections;
};
