#include "interchange/maprenderer.h"

#include "interchange/layercompositor.h"
#include "model/animatedblocks.h"
#include "model/animationproperties.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "model/tile.h"
#include "model/tileanimation.h"
#include "model/tileset.h"
#include "model/transform.h"
#include "project/project.h"

#include <QHash>
#include <QPainter>

namespace {

constexpr int CellPixels = 8;
constexpr int SpritePixels = 16;

} // namespace

MapRenderer::MapRenderer(const Map& map, BankLookup banks)
    : mMap(map)
    , mBanks(std::move(banks))
    , mBackgroundTile(map.backgroundTileIndex())
    , mTransparencyIndex(map.tileTransparencyIndex())
{
}

MapRenderer::MapRenderer(const Project& project, const Map& map)
    : MapRenderer(map, [&project](const QUuid& id) { return project.spriteBank(id).data(); })
{
}

QImage MapRenderer::composeLayers(const QRect& cells, int cellPixels, Layers layers) const
{
    LayerCompositor compositor(cells, cellPixels);
    const QPointer<TileSet> tiles = mMap.tileSet();
    if (!tiles)
        return compositor.compose();
    if (mBackgroundTile >= 0 && mBackgroundTile < tiles->count()) {
        QImage texture =
            tiles->render(mBackgroundTile, false, false, false, tiles->tileOffset(mBackgroundTile));
        if (tiles->palette())
            texture.setColorTable(tiles->palette()->rgbTable());
        compositor.setBackground(texture);
    }
    if (layers.testFlag(Tiles) && mMap.tileMap() && mMap.tileMap()->isVisible())
        compositor.addLayer(mMap.tileMap()->picture(), mTransparencyIndex);
    if (layers.testFlag(Objects) && mMap.objectMap() && mMap.objectMap()->isVisible())
        compositor.addLayer(mMap.objectMap()->picture(), mTransparencyIndex);
    return compositor.compose();
}

int MapRenderer::frameFor(const Map::PlacedSprite& sprite, int frameCount, int delay, qint64 ticks)
{
    if (frameCount < 1)
        return 0;
    const int start = sprite.startFrame < 0 ? 0 : qMin(frameCount - 1, sprite.startFrame);
    if (delay < 1 || sprite.initialDelay > ticks)
        return start;
    const qint64 cycle = qint64(frameCount) * delay;
    const qint64 period = cycle + qMax(sprite.repeatDelay, 0);
    const qint64 t = (ticks - sprite.initialDelay) % period;
    const qint64 step = t < cycle ? t / delay : frameCount - 1;
    return int((step + start) % frameCount);
}

QImage MapRenderer::spriteImage(const Map::PlacedSprite& sprite, qint64 ticks) const
{
    SpriteBank* bank = mBanks ? mBanks(sprite.bank) : nullptr;
    if (!bank)
        return {};
    if (sprite.animation.isNull())
        return bank->render(sprite.sprite, sprite.paletteOffset, sprite.rotate, sprite.flip, sprite.mirror);
    const QSharedPointer<SpriteAnim> animation = bank->animation(sprite.animation);
    if (!animation)
        return {};
    const int frame = frameFor(sprite, animation->frameCount(), animation->delay(), ticks);
    return transformed(animation->renderFrame(frame), sprite.rotate, sprite.flip, sprite.mirror);
}

QRect MapRenderer::spriteRect(const Map::PlacedSprite& sprite) const
{
    SpriteBank* bank = mBanks ? mBanks(sprite.bank) : nullptr;
    if (!bank)
        return {};
    if (sprite.animation.isNull()) {
        if (sprite.sprite < 0 || sprite.sprite >= bank->spriteCount())
            return {};
        return QRect(sprite.x, sprite.y, SpritePixels, SpritePixels);
    }
    const QSharedPointer<SpriteAnim> animation = bank->animation(sprite.animation);
    if (!animation)
        return {};
    QSize size = animation->size() * SpritePixels;
    if (sprite.rotate)
        size.transpose();
    return QRect(QPoint(sprite.x, sprite.y), size);
}

void MapRenderer::paintSprites(QPainter& painter, const std::function<QPoint(const QPoint&)>& toTarget,
                               double scale, qint64 ticks) const
{
    if (!mMap.spriteLayerVisible())
        return;
    for (const Map::PlacedSprite& sprite : mMap.sprites()) {
        const QImage image = spriteImage(sprite, ticks);
        if (image.isNull())
            continue;
        const QSize size(qRound(image.width() * scale), qRound(image.height() * scale));
        painter.drawImage(QRect(toTarget(QPoint(sprite.x, sprite.y)), size), image);
    }
}

QImage MapRenderer::render(int scale, qint64 ticks, Layers layers) const
{
    scale = qMax(1, scale);
    QImage target = composeLayers(QRect(QPoint(0, 0), mMap.size()), CellPixels * scale, layers);
    if (target.isNull() || !layers.testFlag(Sprites))
        return target;
    QPainter painter(&target);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    paintSprites(painter, [scale](const QPoint& p) { return p * scale; }, scale, ticks);
    return target;
}

void MapRenderer::showBlocksAt(Map& map, const std::function<const TileAnimation*(const QUuid&)>& find,
                               qint64 ticks)
{
    if (!map.blocks())
        return;
    for (const auto& placement : map.blocks()->list()) {
        const TileAnimation* block = find(placement->animationId());
        // Before the first tick the layer shows what was saved.
        if (!block || block->frameCount() == 0 || ticks <= 0)
            continue;
        // A fresh block shows frame 0 at tick 0, then steps at each later
        // tick that is a multiple of its delay; with no delay it stays.
        const qint64 steps = block->delay() > 0 ? (ticks - 1) / block->delay() : 0;
        map.showBlockFrame(placement->rect().topLeft(), *block, int(steps % block->frameCount()));
    }
}

void MapRenderer::showBlocksAt(const Project& project, Map& map, qint64 ticks)
{
    QList<MapObjects*> sets;
    for (const QPointer<MapObjects>& set : project.blockLists())
        if (set && set->tileSetId() == map.tileSetId())
            sets.append(set);
    showBlocksAt(map, [&sets](const QUuid& id) -> const TileAnimation* {
        for (auto set = sets.crbegin(); set != sets.crend(); ++set)
            if (const QSharedPointer<TileAnimation> block = (*set)->tileAnimation(id))
                return block.data();
        return nullptr;
    }, ticks);
}

QImage MapRenderer::indexedIfPossible(const QImage& picture)
{
    const QImage source = picture.convertToFormat(QImage::Format_ARGB32);
    QHash<QRgb, uchar> index;
    QList<QRgb> table;
    QImage result(source.size(), QImage::Format_Indexed8);
    for (int y = 0; y < source.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        uchar* to = result.scanLine(y);
        for (int x = 0; x < source.width(); ++x) {
            auto it = index.constFind(from[x]);
            if (it == index.constEnd()) {
                if (table.size() == 256)
                    return picture;
                it = index.insert(from[x], uchar(table.size()));
                table.append(from[x]);
            }
            to[x] = *it;
        }
    }
    result.setColorTable(table);
    return result;
}
