#include "project/animationreader.h"

#include "model/animation.h"
#include "model/mapobjects.h"
#include "model/mapobjecttype.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "model/tileanimation.h"
#include "project/jsonfield.h"
#include "project/projectbudget.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

using namespace JsonField;

// Width and height multiply, so their product is bounded too: per frame,
// and over all frames of one animation.
constexpr qint64 MaxFrameCells = MaxCount;
constexpr qint64 MaxAnimationCells = 1 << 20;

QUuid freshId()
{
    return QUuid::createUuid();
}

MapObjectType mapObjectTypeOf(int value)
{
    for (const MapObjectType type : mapObjectTypes())
        if (int(type) == value)
            return type;
    return MapObjectType::Normal;
}

QSize animationSize(const QJsonObject& object, qsizetype frames, const QSize& fallback)
{
    const QSize size(readCount(object, "width", fallback.width()), readCount(object, "height", fallback.height()));
    const qint64 area = qint64(size.width()) * size.height();
    if (area > MaxFrameCells || (area > 0 && frames > MaxAnimationCells / area))
        return fallback;
    return size;
}

AnimationFrame::Cell cellOf(const QJsonObject& object)
{
    return { readInt(object, "index", 0), readInt(object, "offset", 0), readBool(object, "rotate", false),
             readBool(object, "flip", false), readBool(object, "mirror", false) };
}

// Row by row from the array; cells past its end stay blank.
AnimationFrame::Cells cellsOf(const QJsonArray& array, const QSize& size)
{
    AnimationFrame::Cells cells(size.height(), QList<AnimationFrame::Cell>(size.width()));
    const qsizetype count = qMin(array.size(), qsizetype(size.width()) * size.height());
    for (qsizetype i = 0; i < count; ++i)
        cells[i / size.width()][i % size.width()] = cellOf(array.at(i).toObject());
    return cells;
}

// Frames of a block keep their stored ids; a sprite animation's frames get
// fresh ones on every load, so `keepIds` is false for them. False when the
// frames would take the project past its budget; nothing is made then.
bool readFrames(Animation::State& state, const QJsonObject& object, const QSize& fallback, const char* cellKey,
                bool keepIds, ProjectBudget& budget)
{
    const QJsonArray frames = readArray(object, "frames");
    state.size = animationSize(object, frames.size(), fallback);
    if (!budget.charge(ProjectBudget::animationCost(state.size, frames.size()),
                       QStringLiteral("animation \"%1\"").arg(state.name)))
        return false;
    state.delay = readInt(object, "delay", 0);
    state.frames.clear();
    for (const QJsonValue& value : frames) {
        const QJsonObject frame = value.toObject();
        const QUuid stored = keepIds ? readId(frame, "id", QUuid()) : QUuid();
        state.frames.append({ stored.isNull() ? freshId() : stored, cellsOf(readArray(frame, cellKey), state.size) });
    }
    return true;
}

} // namespace

bool readSpriteAnimations(SpriteBank& bank, const QJsonArray& array, ProjectBudget& budget)
{
    for (const QJsonValue& value : array) {
        const QJsonObject object = value.toObject();
        const QString name = readString(object, "name");
        // A missing or repeated id cannot key the bank's list; such an
        // animation is kept under a new one.
        SpriteAnim* animation = bank.addAnimation(readId(object, "id", QUuid()), name);
        if (!animation)
            animation = bank.createAnimation(name);
        Animation::State state = animation->state();
        if (!readFrames(state, object, QSize(1, 1), "anim", false, budget))
            return false;
        animation->restore(state);
    }
    return true;
}

bool readBlockAnimations(MapObjects& blocks, const QJsonArray& array, ProjectBudget& budget)
{
    for (const QJsonValue& value : array) {
        const QJsonObject object = value.toObject();
        const QString name = readString(object, "name");
        QSharedPointer<TileAnimation> animation = blocks.addTileAnimation(readId(object, "id", QUuid()), name);
        if (!animation)
            animation = blocks.createTileAnimation(name);
        TileAnimation::State state = animation->state();
        if (!readFrames(state, object, QSize(0, 0), "tileData", true, budget))
            return false;
        // `type` holds the MapObjectType; see the writer.
        state.mapObjectType = mapObjectTypeOf(readInt(object, "type", 0));
        animation->restore(state);
    }
    return true;
}

