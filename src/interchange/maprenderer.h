#pragma once
#include "model/map.h"

#include <QFlags>
#include <QImage>
#include <functional>

class Project;
class QPainter;
class SpriteBank;
class TileAnimation;

// Draws a map as the map tab shows it, without grid or overlays: the
// background tile, the tile layer, the object layer and the placed sprites
// at a tick of the clock. The tab and the command-line render both draw
// through it, so that they cannot disagree.
class MapRenderer
{
public:
    enum Layer { Tiles = 1, Objects = 2, Sprites = 4, AllLayers = 7 };
    Q_DECLARE_FLAGS(Layers, Layer)
    using BankLookup = std::function<SpriteBank*(const QUuid& id)>;

    MapRenderer(const Map& map, BankLookup banks);
    MapRenderer(const Project& project, const Map& map);

    // The map's own values unless set otherwise, as the map tab does.
    void setBackgroundTile(int index) { mBackgroundTile = index; }
    void setTransparencyIndex(int index) { mTransparencyIndex = index; }

    // The visible layers of `cells` over the background tile (tiled from
    // the picture's top left), `cellPixels` pixels a cell, as one opaque
    // picture; cells outside the map show the background.
    QImage composeLayers(const QRect& cells, int cellPixels, Layers layers = AllLayers) const;
    // The placed sprites in list order, later ones on top; `toTarget` takes a
    // map pixel to the painter's coordinates and `scale` target pixels a map pixel.
    void paintSprites(QPainter& painter, const std::function<QPoint(const QPoint&)>& toTarget, double scale,
                      qint64 ticks) const;

    // The picture a placed sprite shows at a tick; null when its bank or
    // animation has gone.
    QImage spriteImage(const Map::PlacedSprite& sprite, qint64 ticks) const;
    // Its rectangle in map pixels, inclusive corners; empty for a sprite that draws nothing.
    QRect spriteRect(const Map::PlacedSprite& sprite) const;

    // The most a whole-map picture may take, in bytes.
    static constexpr qint64 MaxRenderBytes = qint64(512) << 20;

    // The whole map, `scale` pixels a map pixel, at a tick; the picture of
    // the layers chosen. 8-bit indexed when 256 colours cover all that is
    // drawn (the machine's indices stay readable, the file small), else full
    // colour. Null past MaxRenderBytes, with `problem` saying what it would need.
    QImage render(int scale, qint64 ticks = 0, Layers layers = AllLayers, QString* problem = nullptr) const;

    // The frame a placed sprite's animation shows at a tick: from its start
    // frame after its initial delay, holding the last step for its repeat delay.
    static int frameFor(const Map::PlacedSprite& sprite, int frameCount, int delay, qint64 ticks);
    // The frame every placed block shows once a freshly opened map's clock
    // has run `ticks` ticks, written into the map's object layer as the
    // running clock would.
    static void showBlocksAt(Map& map, const std::function<const TileAnimation*(const QUuid&)>& find, qint64 ticks);
    // The same, with each block looked up in the project's sets over the
    // map's tile set, the last set holding it winning as on the clock.
    static void showBlocksAt(const Project& project, Map& map, qint64 ticks);

private:
    // The layers of `cells` drawn from `tiles` and `objects`, pictures of
    // the layers from cell `origin`.
    QImage compose(const QRect& cells, int cellPixels, Layers layers, const QImage& tiles, const QImage& objects,
                   const QPoint& origin) const;
    // A band of rows of the whole-map picture, sprites included, from
    // pictures drawn for the band alone.
    QImage renderBand(const QRect& cells, int scale, qint64 ticks, Layers layers) const;

    const Map& mMap;
    BankLookup mBanks;
    int mBackgroundTile;
    int mTransparencyIndex;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(MapRenderer::Layers)
