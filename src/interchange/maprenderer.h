#pragma once
#include <QImage>

class Map;
class Project;

// Draws a whole map as the map editor shows it, without grid or overlays:
// the background tile, the tile layer, the object layer, then the placed
// sprites at the first tick of the clock.
class MapRenderer
{
public:
    MapRenderer(const Project& project, const Map& map);

    // `scale` screen pixels per map pixel (8 map pixels to a cell).
    QImage render(int scale) const;

    // Exact 8-bit form when the picture has 256 colours or fewer, so that
    // what a build reads back is the machine's indices and the file is small;
    // otherwise the picture as it is.
    static QImage indexedIfPossible(const QImage& picture);

private:
    void drawSprites(QImage& target, int scale) const;

    const Project& mProject;
    const Map& mMap;
};
