#include "benchtable.h"
#include "picturegenerator.h"

#include "interchange/imageslicer.h"

void benchInterchange(BenchTable& table)
{
    struct Case
    {
        QString name;
        QImage picture;
    };
    const QImage shapes = PictureGenerator::tiles(256, 256, 480, 1);
    const QImage distinct = PictureGenerator::tiles(128, 128, 0, 2);
    const QList<Case> cases = {
        { "2048x2048 from 480 shapes, RGB", shapes },
        { "2048x2048 from 480 shapes, 8-bit", PictureGenerator::indexed(shapes) },
        { "1024x1024 all distinct, RGB", distinct },
        { "1024x1024 all distinct, 8-bit", PictureGenerator::indexed(distinct) },
    };
    for (const Case& c : cases)
        table.measure("ImageSlicer::sliceTiles, " + c.name, "s", 0.5, 5, [&] {
            ImageSlicer slicer(c.picture);
            slicer.sliceTiles();
        });
}
