#pragma once
#include "model/animationframe.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QSize>
#include <QUuid>

// A timed list of frames of one size. The tile and sprite kinds share all of
// it and differ only in where a cell's picture comes from.
class Animation : public QObject
{
    Q_OBJECT
public:
    // Values of type(): what the cells' indices refer to.
    static constexpr int TileType = 0;
    static constexpr int SpriteType = 1;

    // The undo snapshot: every field, with each frame by value.
    struct State
    {
        QList<AnimationFrame::State> frames;
        int type = TileType;
        QUuid id;
        QString name;
        QSize size { 1, 1 };
        int delay = 0;

        bool operator==(const State& other) const;
        bool operator!=(const State& other) const { return !(*this == other); }
    };

    Animation(int type, const QString& name, QObject* parent = nullptr);

    int type() const { return mType; }
    // Fixed after construction but for restore(): owners key their lists by it.
    QUuid id() const { return mId; }
    QString name() const { return mName; }
    QSize size() const { return mSize; }
    int width() const { return mSize.width(); }
    int height() const { return mSize.height(); }
    int delay() const { return mDelay; }

    int frameCount() const { return int(mFrames.size()); }
    // Null outside the list.
    QSharedPointer<AnimationFrame> frame(int index) const;
    QList<QSharedPointer<AnimationFrame>> frames() const { return mFrames; }

    void addFrame();
    void insertFrame(int index);
    // The copy goes right after its source.
    void copyFrame(int index);
    void removeFrame(int index);
    void moveFrame(int from, int to);
    void clearFrames();

    // Cells are numbered row by row: number = row * width + column.
    void setIndex(int frame, int cell, int index);
    void setOffset(int frame, int cell, int offset);
    void setRotate(int frame, int cell, bool rotate);
    void setFlip(int frame, int cell, bool flip);
    void setMirror(int frame, int cell, bool mirror);

    // These follow a structural edit of the tile set or sprite bank, whose
    // own signals and snapshot cover the change, so they emit nothing.
    void swapTiles(int first, int second);
    void deleteIndex(int index);
    void insertIndex(int index);

    State state() const;
    // Emits restored() and none of the signals of an edit.
    void restore(const State& state);

    // A frame drawn at full size on a transparent picture; null outside the list.
    QImage renderFrame(int frame) const;
    // The same, smoothly scaled to fit `size`.
    QImage preview(int frame, const QSize& size) const;

public slots:
    void setName(const QString& name);
    void setWidth(int w);
    void setHeight(int h);
    void setSize(const QSize& size);
    void setDelay(int delay);
    void frameEdited();

signals:
    void nameChanged(QString name);
    void sizeChanged(QSize size);
    void frameChanged(int index);
    void contentChanged();
    void delayChanged(int delay);
    void restored();

protected:
    // The picture of one cell, `cellPixels()` square.
    virtual QImage cellImage(const AnimationFrame::Cell& cell) const;
    virtual int cellPixels() const { return 8; }
    // restore() without its signal, for kinds that add fields.
    void applyState(const State& state);

private:
    QSharedPointer<AnimationFrame> newFrame();
    template<typename Edit> void editCell(int frame, int cell, Edit edit);
    template<typename Change> void changeIndices(Change change);

    QList<QSharedPointer<AnimationFrame>> mFrames;
    int mType = TileType;
    QUuid mId;
    QString mName;
    QSize mSize { 1, 1 };
    int mDelay = 0;
};
