#include "model/animation.h"

#include <QPainter>
#include <limits>

bool Animation::State::operator==(const State& other) const
{
    return type == other.type && id == other.id && name == other.name && size == other.size
        && delay == other.delay && frames == other.frames;
}

Animation::Animation(int type, const QString& name, QObject* parent)
    : QObject(parent)
    , mType(type)
    , mId(QUuid::createUuid())
    , mName(name)
{
}

QSharedPointer<AnimationFrame> Animation::frame(int index) const
{
    return index >= 0 && index < mFrames.size() ? mFrames.at(index) : QSharedPointer<AnimationFrame>();
}

void Animation::addFrame()
{
    mFrames.append(newFrame());
    emit contentChanged();
}

void Animation::insertFrame(int index)
{
    if (index < 0 || index > mFrames.size())
        return;
    mFrames.insert(index, newFrame());
    emit contentChanged();
}

void Animation::copyFrame(int index)
{
    const QSharedPointer<AnimationFrame> source = frame(index);
    if (!source)
        return;
    QSharedPointer<AnimationFrame> copy = newFrame();
    copy->restore({ copy->id(), source->cells() });
    copy->resize(mSize);
    mFrames.insert(index + 1, copy);
    emit contentChanged();
}

void Animation::removeFrame(int index)
{
    const QSharedPointer<AnimationFrame> gone = frame(index);
    if (!gone)
        return;
    // A view may still hold the frame; it must no longer speak for us.
    gone->disconnect(this);
    mFrames.removeAt(index);
    emit contentChanged();
}

void Animation::moveFrame(int from, int to)
{
    if (!frame(from) || !frame(to) || from == to)
        return;
    mFrames.move(from, to);
    emit contentChanged();
}

void Animation::clearFrames()
{
    for (const QSharedPointer<AnimationFrame>& f : std::as_const(mFrames))
        f->disconnect(this);
    mFrames.clear();
}

template<typename Edit>
void Animation::editCell(int frameIndex, int cellNumber, Edit edit)
{
    const QSharedPointer<AnimationFrame> f = frame(frameIndex);
    const int width = f ? f->size().width() : 0;
    if (!f || width < 1 || cellNumber < 0)
        return;
    const int row = cellNumber / width;
    const int column = cellNumber % width;
    if (!f->contains(row, column))
        return;
    AnimationFrame::Cell cell = f->cell(row, column);
    edit(cell);
    f->setCell(row, column, cell);
}

void Animation::setIndex(int frame, int cell, int index)
{
    editCell(frame, cell, [index](AnimationFrame::Cell& c) { c.index = index; });
}

void Animation::setOffset(int frame, int cell, int offset)
{
    editCell(frame, cell, [offset](AnimationFrame::Cell& c) { c.offset = offset; });
}

void Animation::setRotate(int frame, int cell, bool rotate)
{
    editCell(frame, cell, [rotate](AnimationFrame::Cell& c) { c.rotate = rotate; });
}

void Animation::setFlip(int frame, int cell, bool flip)
{
    editCell(frame, cell, [flip](AnimationFrame::Cell& c) { c.flip = flip; });
}

void Animation::setMirror(int frame, int cell, bool mirror)
{
    editCell(frame, cell, [mirror](AnimationFrame::Cell& c) { c.mirror = mirror; });
}

template<typename Change>
void Animation::changeIndices(Change change)
{
    for (const QSharedPointer<AnimationFrame>& f : std::as_const(mFrames)) {
        AnimationFrame::State state = f->state();
        bool changed = false;
        for (QList<AnimationFrame::Cell>& row : state.cells) {
            for (AnimationFrame::Cell& cell : row) {
                const int index = change(cell.index);
                changed = changed || index != cell.index;
                cell.index = index;
            }
        }
        if (changed)
            f->restore(state);
    }
}

void Animation::swapTiles(int first, int second)
{
    changeIndices([first, second](int index) {
        return index == first ? second : index == second ? first : index;
    });
}

void Animation::deleteIndex(int index)
{
    changeIndices([index](int i) { return i == index ? 0 : i > index ? i - 1 : i; });
}

void Animation::insertIndex(int index)
{
    changeIndices([index](int i) {
        return i >= index && i < std::numeric_limits<int>::max() ? i + 1 : i;
    });
}

Animation::State Animation::state() const
{
    State state;
    state.frames.reserve(mFrames.size());
    for (const QSharedPointer<AnimationFrame>& f : mFrames)
        state.frames.append(f->state());
    state.type = mType;
    state.id = mId;
    state.name = mName;
    state.size = mSize;
    state.delay = mDelay;
    return state;
}

void Animation::restore(const State& state)
{
    applyState(state);
    emit restored();
}

void Animation::applyState(const State& state)
{
    clearFrames();
    mType = state.type;
    mId = state.id;
    mName = state.name;
    mSize = state.size.isValid() ? state.size : QSize(0, 0);
    mDelay = state.delay;
    // New frame objects: a view holding an old frame keeps a harmless copy.
    for (const AnimationFrame::State& frameState : state.frames) {
        QSharedPointer<AnimationFrame> f = newFrame();
        f->restore(frameState);
        f->resize(mSize);
        mFrames.append(f);
    }
}

QImage Animation::cellImage(const AnimationFrame::Cell&) const
{
    return {};
}

QImage Animation::renderFrame(int frameIndex) const
{
    const QSharedPointer<AnimationFrame> f = frame(frameIndex);
    const int unit = cellPixels();
    if (!f || mSize.isEmpty())
        return {};
    QImage result(mSize * unit, QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    for (int row = 0; row < mSize.height(); ++row)
        for (int column = 0; column < mSize.width(); ++column)
            painter.drawImage(column * unit, row * unit, cellImage(f->cell(row, column)));
    return result;
}

QImage Animation::preview(int frame, const QSize& size) const
{
    const QImage picture = renderFrame(frame);
    if (picture.isNull() || size.isEmpty())
        return {};
    return picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

void Animation::setName(const QString& name)
{
    if (name == mName)
        return;
    mName = name;
    emit nameChanged(mName);
}

void Animation::setWidth(int w)
{
    setSize(QSize(w, mSize.height()));
}

void Animation::setHeight(int h)
{
    setSize(QSize(mSize.width(), h));
}

void Animation::setSize(const QSize& size)
{
    if (size == mSize || size.width() < 0 || size.height() < 0)
        return;
    mSize = size;
    for (const QSharedPointer<AnimationFrame>& f : std::as_const(mFrames))
        f->resize(mSize);
    emit sizeChanged(mSize);
}

void Animation::setDelay(int delay)
{
    mDelay = delay;
    emit delayChanged(mDelay);
}

void Animation::frameEdited()
{
    const auto* source = qobject_cast<AnimationFrame*>(sender());
    for (int i = 0; source && i < mFrames.size(); ++i) {
        if (mFrames.at(i).data() == source) {
            emit frameChanged(i);
            return;
        }
    }
}

QSharedPointer<AnimationFrame> Animation::newFrame()
{
    QSharedPointer<AnimationFrame> f(new AnimationFrame);
    f->resize(mSize);
    connect(f.data(), &AnimationFrame::frameChanged, this, &Animation::frameEdited);
    return f;
}
