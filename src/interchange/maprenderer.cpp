#include "interchange/maprenderer.h"

#include "model/animationproperties.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "model/tile.h"
#include "model/tileset.h"
#include "model/transform.h"
#include "project/project.h"

#include <QHash>
#include <QPainter>

namespace {

constexpr int CellPixels = 8;

// A placed sprite's picture at tick 0: a plain sprite, or the frame its
// timing shows first.
QImage spriteImage(const Project& project, const Map::PlacedSprite& placed)
{
    const QPointer<SpriteBank> bank = project.spriteBank(placed.bank);
    if (!bank)
        return {};
    if (placed.animation.isNull())
        return bank->render(placed.sprite, placed.paletteOffset, placed.rotate, placed.flip, placed.mirror);
    const QSharedPointer<SpriteAnim> animation = bank->animation(placed.animation);
    if (!animation)
        return {};
    AnimationProperties timing;
    timing.setStartFrame(placed.startFrame);
    timing.setInitialDelay(placed.initialDelay);
    timing.setRepeatDelay(placed.repeatDelay);
    const int frame = timing.frameAt(animation->frameCount(), animation->delay(), 0);
    return transformed(animation->renderFrame(frame), placed.rotate, placed.flip, placed.mirror);
}

} // namespace

MapRenderer::MapRenderer(const Project& project, const Map& map)
    : mProject(project)
    , mMap(map)
{
}

QImage MapRenderer::render(int scale) const
{
    scale = qMax(1, scale);
    const QSize cells = mMap.size();
    const int cell = CellPixels * scale;
    QImage target(cells * cell, QImage::Format_ARGB32_Premultiplied);
    if (target.isNull())
        return target;
    target.fill(Qt::black);
    QPainter painter(&target);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);

    const QPointer<TileSet> tiles = mMap.tileSet();
    const int background = mMap.backgroundTileIndex();
    if (tiles && background >= 0 && background < tiles->count()) {
        QImage texture = tiles->tile(background)->image();
        if (tiles->palette())
            texture.setColorTable(tiles->palette()->rgbTable());
        painter.fillRect(target.rect(), QBrush(texture.scaled(cell, cell)));
    }
    const QRect all(QPoint(0, 0), cells);
    const int transparency = mMap.tileTransparencyIndex();
    for (const QPointer<TileMap>& layer : { mMap.tileMap(), mMap.objectMap() })
        if (layer && layer->isVisible() && tiles)
            painter.drawImage(0, 0, layer->scaledPreview(all, cell, transparency));
    painter.end();

    if (mMap.spriteLayerVisible())
        drawSprites(target, scale);
    return target;
}

void MapRenderer::drawSprites(QImage& target, int scale) const
{
    QPainter painter(&target);
    for (const Map::PlacedSprite& placed : mMap.sprites()) {
        const QImage image = spriteImage(mProject, placed);
        if (!image.isNull())
            painter.drawImage(QRect(placed.x * scale, placed.y * scale, image.width() * scale,
                                    image.height() * scale),
                              image);
    }
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
