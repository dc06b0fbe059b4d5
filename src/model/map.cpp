#include "model/map.h"

#include "interchange/binaryfile.h"
#include "interchange/blockmapfile.h"
#include "model/animatedblocks.h"
#include "model/animationproperties.h"
#include "model/tileanimation.h"
#include "model/tileset.h"

#include <QDebug>
#include <QDir>

namespace {

constexpr int CellPixels = 8;

Map::Block blockOf(const AnimationProperties& properties)
{
    return { properties.animationId(), properties.rect(), properties.startFrame(), properties.initialDelay(),
             properties.repeatDelay() };
}

} // namespace

bool Map::PlacedSprite::operator==(const PlacedSprite& other) const
{
    return bank == other.bank && animation == other.animation && sprite == other.sprite && x == other.x
        && y == other.y && mirror == other.mirror && flip == other.flip && rotate == other.rotate
        && startFrame == other.startFrame && initialDelay == other.initialDelay
        && repeatDelay == other.repeatDelay && paletteOffset == other.paletteOffset && name == other.name;
}

bool Map::Block::operator==(const Block& other) const
{
    return animationId == other.animationId && rect == other.rect && startFrame == other.startFrame
        && initialDelay == other.initialDelay && repeatDelay == other.repeatDelay;
}

bool Map::State::operator==(const State& other) const
{
    return tiles == other.tiles && objects == other.objects && blocks == other.blocks && sprites == other.sprites;
}

Map::Map(const QString& name, const QSize& size, QObject* parent)
    : QObject(parent)
    , mId(QUuid::createUuid())
    , mName(name)
    , mTileMap(new TileMap(qMin(size.width(), MaxSide), qMin(size.height(), MaxSide)))
    , mObjectMap(new TileMap(qMin(size.width(), MaxSide), qMin(size.height(), MaxSide)))
    , mBlocks(new AnimatedBlocks)
{
    mTileMap->setVisible(true);
    mObjectMap->setVisible(false);
}

Map::~Map() = default;

void Map::setName(const QString& name)
{
    if (name == mName)
        return;
    mName = name;
    emit nameChanged(mName);
}

void Map::setTileSet(QPointer<TileSet> tileSet)
{
    mTileSet = tileSet;
    mTileSetId = tileSet ? tileSet->id() : QUuid();
    mTileMap->setTileSet(tileSet);
    mObjectMap->setTileSet(tileSet);
}

QPointer<AnimatedBlocks> Map::blocks() const
{
    return mBlocks.data();
}

QSize Map::size() const
{
    return mTileMap->size();
}

int Map::cellCount() const
{
    return mTileMap->width() * mTileMap->height() * 2;
}

TileMap::TileData Map::tile(const QPoint& cell) const
{
    return mTileMap->cell(cell);
}

bool Map::setTile(const QPoint& cell, const TileMap::TileData& data)
{
    return mTileMap->setCell(cell, data);
}

void Map::setTiles(const QRect& area, int index, bool rotate, bool flip, bool mirror, bool visible)
{
    mTileMap->setCells(area, index, rotate, flip, mirror, visible);
}

bool Map::tileLayerVisible() const
{
    return mTileMap->isVisible();
}

void Map::setTileLayerVisible(bool visible)
{
    mTileMap->setVisible(visible);
}

bool Map::objectLayerVisible() const
{
    return mObjectMap->isVisible();
}

void Map::setObjectLayerVisible(bool visible)
{
    mObjectMap->setVisible(visible);
}

void Map::afterRowOrColumnEdit(const QPoint& shift)
{
    shiftObjects(shift);
    emit resized(this);
}

// An edit at the start moves everything on the map by one cell; one at the
// end moves nothing.
void Map::addRow(int where)
{
    if (mTileMap->height() >= MaxSide)
        return;
    mTileMap->addRow(where);
    mObjectMap->addRow(where);
    afterRowOrColumnEdit(where == 0 ? QPoint(0, 1) : QPoint());
}

void Map::addColumn(int where)
{
    if (mTileMap->width() >= MaxSide)
        return;
    mTileMap->addColumn(where);
    mObjectMap->addColumn(where);
    afterRowOrColumnEdit(where == 0 ? QPoint(1, 0) : QPoint());
}

void Map::removeRow(int where)
{
    mTileMap->removeRow(where);
    mObjectMap->removeRow(where);
    afterRowOrColumnEdit(where == 0 ? QPoint(0, -1) : QPoint());
}

void Map::removeColumn(int where)
{
    mTileMap->removeColumn(where);
    mObjectMap->removeColumn(where);
    afterRowOrColumnEdit(where == 0 ? QPoint(-1, 0) : QPoint());
}

void Map::resize(const QSize& size, Qt::Alignment alignment)
{
    if (!mTileMap) {
        qWarning() << "_tileMap==nullptr";
        return;
    }
    const QSize bounded(qMin(size.width(), MaxSide), qMin(size.height(), MaxSide));
    const QPoint shift = mTileMap->resize(bounded, alignment);
    mObjectMap->resize(bounded, alignment);
    afterRowOrColumnEdit(shift);
}

void Map::setBlocks(const QList<Block>& blocks)
{
    mBlocks->clear();
    for (const Block& block : blocks) {
        const auto placement = mBlocks->add(block.rect, block.animationId);
        placement->setStartFrame(block.startFrame);
        placement->setInitialDelay(block.initialDelay);
        placement->setRepeatDelay(block.repeatDelay);
    }
}

void Map::clearBlockCells(const QRect& rect)
{
    const QRect inside = rect.intersected(mObjectMap->rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            mObjectMap->setCell(QPoint(x, y), TileMap::TileData());
}

void Map::shiftObjects(const QPoint& delta)
{
    // The layers have moved already; blocks and sprites follow them, and
    // whatever no longer lies wholly on the map is dropped.
    const QRect bounds = mTileMap->rect();
    QList<Block> kept;
    for (const auto& placement : mBlocks->list()) {
        Block block = blockOf(*placement);
        block.rect.translate(delta);
        if (bounds.contains(block.rect))
            kept.append(block);
        else
            clearBlockCells(block.rect);
    }
    setBlocks(kept);

    const QRect pixels(0, 0, bounds.width() * CellPixels, bounds.height() * CellPixels);
    QList<PlacedSprite> sprites;
    for (PlacedSprite sprite : mSprites) {
        sprite.x += delta.x() * CellPixels;
        sprite.y += delta.y() * CellPixels;
        if (pixels.contains(sprite.x, sprite.y))
            sprites.append(sprite);
    }
    mSprites = sprites;
}

bool Map::placeAnimation(const TileAnimation* animation, const QPoint& position)
{
    if (!animation)
        return false;
    const QRect rect(position, animation->size());
    if (!mObjectMap->rect().contains(rect))
        return false;
    // A block replaces whatever blocks it lands on.
    for (const auto& placement : mBlocks->list())
        if (placement->rect().intersects(rect))
            removeBlock(placement->rect());
    mBlocks->add(rect, animation->id());

    const auto first = animation->frame(0);
    for (int row = 0; row < rect.height(); ++row)
        for (int column = 0; column < rect.width(); ++column) {
            const AnimationFrame::Cell cell = first ? first->cell(row, column) : AnimationFrame::Cell();
            const QPoint at = position + QPoint(column, row);
            mObjectMap->setCell(at, { cell.index, cell.rotate, cell.flip, cell.mirror, cell.offset, true });
            // The tile layer never shows through a block.
            mTileMap->setCell(at, { 0, false, false, false, 0, true });
        }
    return true;
}

void Map::rebuildObjectLayer(const std::function<const TileAnimation*(const QUuid&)>& findAnimation)
{
    const QSize cells = size();
    mObjectMap->setGrid(TileMap::Grid(cells.height(), QList<TileMap::TileData>(cells.width())));
    for (const auto& placement : mBlocks->list()) {
        const TileAnimation* animation = findAnimation ? findAnimation(placement->animationId()) : nullptr;
        if (!animation)
            continue;
        const auto first = animation->frame(0);
        const QRect rect = placement->rect();
        // A stored rectangle may reach past the map; only the part on it is marked.
        const QRect inside = rect.intersected(mObjectMap->rect());
        for (int y = inside.top(); y <= inside.bottom(); ++y)
            for (int x = inside.left(); x <= inside.right(); ++x) {
                const AnimationFrame::Cell cell =
                    first ? first->cell(y - rect.top(), x - rect.left()) : AnimationFrame::Cell();
                mObjectMap->setCell(QPoint(x, y),
                                    { cell.index, cell.rotate, cell.flip, cell.mirror, cell.offset, true });
            }
    }
}

bool Map::removeBlock(const QRect& rect)
{
    if (!mBlocks->removeInRect(rect))
        return false;
    const QRect inside = rect.intersected(mTileMap->rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x) {
            mTileMap->setCell(QPoint(x, y), TileMap::TileData());
            mObjectMap->setCell(QPoint(x, y), { 0, false, false, false, 0, true });
        }
    return true;
}

bool Map::showBlockFrame(const QPoint& topLeft, const TileAnimation& block, int frameIndex)
{
    const auto frame = block.frame(frameIndex);
    if (!frame)
        return false;
    bool changed = false;
    for (int row = 0; row < block.height(); ++row)
        for (int column = 0; column < block.width(); ++column) {
            const AnimationFrame::Cell cell = frame->cell(row, column);
            changed |= mObjectMap->setCell(topLeft + QPoint(column, row),
                                           { cell.index, cell.rotate, cell.flip, cell.mirror, cell.offset, true });
        }
    return changed;
}

QRect Map::rectAt(const QPoint& cell) const
{
    return mBlocks->rectAt(cell);
}

int Map::addSprite(const PlacedSprite& sprite)
{
    mSprites.append(sprite);
    return int(mSprites.size()) - 1;
}

bool Map::setSprite(int index, const PlacedSprite& sprite)
{
    if (index < 0 || index >= mSprites.size())
        return false;
    mSprites[index] = sprite;
    return true;
}

bool Map::removeSprite(int index)
{
    if (index < 0 || index >= mSprites.size())
        return false;
    mSprites.removeAt(index);
    return true;
}

void Map::moveSpriteInBank(const QUuid& bank, int from, int to)
{
    // Placed sprites name a sprite by position; when the bank moves one, the
    // sprites between the two positions slide by one towards `from`.
    if (from == to)
        return;
    for (PlacedSprite& sprite : mSprites) {
        if (sprite.bank != bank || !sprite.animation.isNull())
            continue;
        if (sprite.sprite == from)
            sprite.sprite = to;
        else if (from > to && sprite.sprite >= to && sprite.sprite < from)
            ++sprite.sprite;
        else if (from < to && sprite.sprite > from && sprite.sprite <= to)
            --sprite.sprite;
    }
}

Map::State Map::state() const
{
    State state { mTileMap->cells(), mObjectMap->cells(), {}, mSprites };
    for (const auto& placement : mBlocks->list())
        state.blocks.append(blockOf(*placement));
    return state;
}

void Map::restore(const State& state)
{
    mTileMap->setGrid(state.tiles);
    mObjectMap->setGrid(state.objects);
    setBlocks(state.blocks);
    mSprites = state.sprites;
    emit restored();
}

bool Map::exportData(const QString& fileName) const
{
    return BinaryFile::write(fileName, mTileMap->toNextData());
}

bool Map::exportBinary(const QString& directory) const
{
    return exportData(QDir(directory).filePath(QStringLiteral("%1_tilemap.bin").arg(mName)));
}

bool Map::importNextTiles(const QString& nxmFile, const QString& nxbFile)
{
    return BlockMapFile::read(*this, nxmFile, nxbFile);
}
