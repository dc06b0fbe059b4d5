#include "interchange/maprenderer.h"

#include "interchange/colourindexer.h"
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

#include <QCoreApplication>
#include <QHash>
#include <QPainter>
#include <cstring>

namespace {

constexpr int CellPixels = 8;
constexpr int SpritePixels = 16;
// About sixteen megabytes of a band in full colour.
constexpr int BandPixels = 1 << 22;

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
    const bool tiles = layers.testFlag(Tiles) && mMap.tileMap() && mMap.tileMap()->isVisible();
    const bool objects = layers.testFlag(Objects) && mMap.objectMap() && mMap.objectMap()->isVisible();
    return compose(cells, cellPixels, layers, tiles ? mMap.tileMap()->picture() : QImage(),
                   objects ? mMap.objectMap()->picture() : QImage(), QPoint(0, 0));
}

QImage MapRenderer::compose(const QRect& cells, int cellPixels, Layers layers, const QImage& tiles,
                            const QImage& objects, const QPoint& origin) const
{
    LayerCompositor compositor(cells, cellPixels);
    compositor.setPictureOrigin(origin);
    const QPointer<TileSet> tileSet = mMap.tileSet();
    if (!tileSet)
        return compositor.compose();
    if (mBackgroundTile >= 0 && mBackgroundTile < tileSet->count()) {
        QImage texture =
            tileSet->render(mBackgroundTile, false, false, false, tileSet->tileOffset(mBackgroundTile));
        if (tileSet->palette())
            texture.setColorTable(tileSet->palette()->rgbTable());
        compositor.setBackground(texture);
    }
    if (layers.testFlag(Tiles) && mMap.tileMap() && mMap.tileMap()->isVisible())
        compositor.addLayer(tiles, mTransparencyIndex);
    if (layers.testFlag(Objects) && mMap.objectMap() && mMap.objectMap()->isVisible())
        compositor.addLayer(objects, mTransparencyIndex);
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

QImage MapRenderer::renderBand(const QRect& cells, int scale, qint64 ticks, Layers layers) const
{
    const bool tiles = layers.testFlag(Tiles) && mMap.tileMap() && mMap.tileMap()->isVisible();
    const bool objects = layers.testFlag(Objects) && mMap.objectMap() && mMap.objectMap()->isVisible();
    QImage band = compose(cells, CellPixels * scale, layers, tiles ? mMap.tileMap()->renderRect(cells) : QImage(),
                          objects ? mMap.objectMap()->renderRect(cells) : QImage(), cells.topLeft());
    if (band.isNull() || !layers.testFlag(Sprites))
        return band;
    QPainter painter(&band);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    const QPoint shift = cells.topLeft() * CellPixels * scale;
    paintSprites(painter, [scale, shift](const QPoint& p) { return p * scale - shift; }, scale, ticks);
    return band;
}

QImage MapRenderer::render(int scale, qint64 ticks, Layers layers, QString* problem) const
{
    scale = qMax(1, scale);
    const QSize cells = mMap.size();
    const QSize pixels = cells * CellPixels * scale;
    const qint64 area = qint64(pixels.width()) * pixels.height();
    const auto refuse = [&](qint64 bytes, const QString& kind) {
        if (problem)
            *problem = QCoreApplication::translate("MapRenderer",
                                                   "the %1 × %2 picture would take %3 MB as %4; a render can take "
                                                   "at most %5 MB")
                           .arg(pixels.width())
                           .arg(pixels.height())
                           .arg((bytes + (1 << 20) - 1) >> 20)
                           .arg(kind)
                           .arg(MaxRenderBytes >> 20);
        return QImage();
    };
    if (area > MaxRenderBytes)
        return refuse(area, QCoreApplication::translate("MapRenderer", "an indexed picture"));
    QImage indexed(pixels, QImage::Format_Indexed8);
    QImage full;
    if (indexed.isNull())
        return indexed;
    // Band by band, so that nothing as large as the picture is made twice.
    ColourIndexer indexer;
    const int rowsPerBand = qMax(1, BandPixels / qMax(1, pixels.width() * CellPixels * scale));
    for (int top = 0; top < cells.height(); top += rowsPerBand) {
        const QRect band(0, top, cells.width(), qMin(rowsPerBand, cells.height() - top));
        const QImage drawn = renderBand(band, scale, ticks, layers);
        const int y = top * CellPixels * scale;
        if (full.isNull() && indexer.append(drawn, indexed, y))
            continue;
        if (full.isNull()) {
            // More than 256 colours: the rows so far go over into full colour.
            if (area * 5 > MaxRenderBytes)
                return refuse(area * 4, QCoreApplication::translate("MapRenderer", "a full-colour picture"));
            indexed.setColorTable(indexer.table());
            full = indexed.convertToFormat(QImage::Format_RGB32);
            indexed = QImage();
        }
        for (int row = 0; row < drawn.height(); ++row)
            std::memcpy(full.scanLine(y + row), drawn.constScanLine(row), size_t(drawn.bytesPerLine()));
    }
    if (!full.isNull())
        return full;
    indexed.setColorTable(indexer.table());
    return indexed;
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
