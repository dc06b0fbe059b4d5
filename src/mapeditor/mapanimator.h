#pragma once
#include <QObject>
#include <QPointer>
#include <QTimer>

class Map;
class MapObjects;
class Project;

namespace MapEditor {

// The clock of a map tab: every 20 ms the placed blocks step through their
// frames on the map's object layer, and the placed sprites are told the new
// tick. It knows no widget and writes outside the undo history.
class MapAnimator : public QObject
{
    Q_OBJECT
public:
    explicit MapAnimator(QObject* parent = nullptr);

    void setMap(Map* map);
    // Where the blocks' animations are looked up: the sets of the map's tile set.
    void setProject(Project* project);
    void setRunning(bool running);
    bool isRunning() const { return mTimer.isActive(); }
    quint64 ticks() const { return mTicks; }
    QTimer& timer() { return mTimer; }

public slots:
    void tick();

signals:
    // Something may look different: a block stepped, or sprites may have.
    void framesAdvanced();

private:
    QPointer<Map> mMap;
    QPointer<Project> mProject;
    QTimer mTimer;
    quint64 mTicks = 0;
};

} // namespace MapEditor
