#pragma once
#include <QList>
#include <QObject>
#include <QSize>
#include <QUuid>

// One picture of an animation: a grid of cells, each naming a tile or a
// sprite and how to draw it. Frames are shared between an animation and the
// views that show them.
class AnimationFrame : public QObject
{
    Q_OBJECT
public:
    struct Cell
    {
        int index = 0;
        int offset = 0;
        bool rotate = false;
        bool flip = false;
        bool mirror = false;

        bool operator==(const Cell& other) const
        {
            return index == other.index && offset == other.offset && rotate == other.rotate
                && flip == other.flip && mirror == other.mirror;
        }
        bool operator!=(const Cell& other) const { return !(*this == other); }
    };
    using Cells = QList<QList<Cell>>;

    // A frame by value, as an undo snapshot keeps it.
    struct State
    {
        QUuid id;
        Cells cells;

        bool operator==(const State& other) const { return id == other.id && cells == other.cells; }
        bool operator!=(const State& other) const { return !(*this == other); }
    };

    explicit AnimationFrame(QObject* parent = nullptr);

    QUuid id() const { return mId; }
    void setId(const QUuid& id) { mId = id; }
    QSize size() const { return mSize; }
    Cells cells() const { return mCells; }
    bool contains(int row, int column) const;

    // A blank cell outside the frame.
    Cell cell(int row, int column) const;
    // Emits frameChanged; a cell outside the frame is ignored.
    void setCell(int row, int column, const Cell& cell);
    // Keeps the cells that stay inside; new ones are blank. No signal.
    void resize(const QSize& size);

    State state() const { return { mId, mCells }; }
    // Takes the id and the cells; the size follows the cells. No signal.
    void restore(const State& state);

signals:
    void frameChanged(QUuid id);

private:
    QUuid mId;
    QSize mSize { 1, 1 };
    Cells mCells { { Cell() } };
};
