#include "project/projectbudget.h"

#include "model/animatedblocks.h"
#include "model/image.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "model/tileanimation.h"
#include "model/tile.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QCoreApplication>

namespace {

// A cell of each of a map's two layers.
constexpr qint64 MapCellBytes = 2 * sizeof(TileMap::TileData);
// A cell of a block or sprite frame, priced as a save writes it: an object
// of five fields in the document, about a kilobyte while it is built. At
// the model's own size, a file of empty frames could load and then take
// gigabytes to save.
constexpr qint64 FrameCellBytes = 1024;
// A placed block or sprite, a tile or a colour with what keeps it, priced
// likewise: a placed sprite is an object of thirteen fields in a save.
constexpr qint64 RecordBytes = 2048;

qint64 area(const QSize& size)
{
    return qint64(qMax(0, size.width())) * qMax(0, size.height());
}

template<typename Animations> qint64 animationsCost(const Animations& animations)
{
    qint64 cost = 0;
    for (const auto& animation : animations)
        if (animation)
            cost += ProjectBudget::animationCost(animation->size(), animation->frameCount());
    return cost;
}

} // namespace

qint64 ProjectBudget::mapCost(const QSize& cells)
{
    return area(cells) * MapCellBytes;
}

qint64 ProjectBudget::animationCost(const QSize& cells, qint64 frames)
{
    return area(cells) * qMax<qint64>(0, frames) * FrameCellBytes + recordsCost(frames);
}

qint64 ProjectBudget::pictureCost(const QSize& pixels)
{
    return area(pixels);
}

qint64 ProjectBudget::recordsCost(qint64 count)
{
    return qMax<qint64>(0, count) * RecordBytes;
}

qint64 ProjectBudget::costOf(const Project& project)
{
    qint64 cost = 0;
    for (const QPointer<Map>& map : project.maps())
        if (map)
            cost += mapCost(map->size()) + recordsCost(map->sprites().size())
                    + recordsCost(map->blocks() ? map->blocks()->count() : 0);
    for (const QPointer<TileSet>& tiles : project.tileSets())
        if (tiles)
            cost += recordsCost(tiles->count()) + pictureCost(QSize(Tile::Size, Tile::Size * tiles->count()));
    for (const QPointer<SpriteBank>& bank : project.spriteBanks())
        if (bank)
            cost += pictureCost(bank->image().size()) + recordsCost(bank->spriteCount())
                    + animationsCost(bank->animations());
    for (const QPointer<MapObjects>& blocks : project.blockLists())
        if (blocks)
            cost += animationsCost(blocks->animations());
    for (const QPointer<Image>& image : project.images())
        if (image)
            cost += pictureCost(image->image().size());
    return cost;
}

ProjectBudget::ProjectBudget(const Project& project)
    : mTotal(costOf(project))
{
}

bool ProjectBudget::charge(qint64 cost, const QString& what)
{
    mTotal += qMax<qint64>(0, cost);
    if (mTotal <= Limit)
        return true;
    mProblem = QCoreApplication::translate("ProjectBudget",
                                           "%1 would take the project past the %2 MB a project can hold")
                   .arg(what)
                   .arg(Limit >> 20);
    return false;
}
