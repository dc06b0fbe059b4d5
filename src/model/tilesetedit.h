#pragma once
#include "model/indexedpixels.h"

#include <QImage>
#include <QList>

// One tile as a snapshot of its set keeps it. The image is implicitly shared
// with the tile until either side is edited, so a snapshot costs little.
struct TileRecord
{
    QImage image;
    int offset = 0;
    int attributes = 0;
    int value = 0;

    bool operator==(const TileRecord& other) const
    {
        return offset == other.offset && attributes == other.attributes
            && value == other.value && sameIndexedPixels(image, other.image);
    }
    bool operator!=(const TileRecord& other) const { return !(*this == other); }
};

// The whole of a tile set, in tile order: what a structural undo step restores.
using TileSetEdit = QList<TileRecord>;
