#pragma once
#include "model/mapobjects.h"
#include "model/tileanimation.h"
#include "model/tileset.h"
#include "project/project.h"

// A block over `tiles` of `size` cells whose four frames show tiles 10, 11,
// 12 and 13, in a block set of its own.
inline QSharedPointer<TileAnimation> makeTestBlock(Project& project, TileSet* tiles, const QSize& size, int delay = 1)
{
    const QPointer<MapObjects> set = project.createBlockList("Blocks", tiles->id());
    const QSharedPointer<TileAnimation> block = set->createTileAnimation("Door");
    block->setTileSet(tiles);
    block->setSize(size);
    block->setDelay(delay);
    while (block->frameCount() < 4)
        block->addFrame();
    for (int frame = 0; frame < 4; ++frame)
        for (int cell = 0; cell < size.width() * size.height(); ++cell)
            block->setIndex(frame, cell, 10 + frame);
    return block;
}
