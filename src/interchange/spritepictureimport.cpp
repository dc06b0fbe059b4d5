#include "interchange/spritepictureimport.h"

#include "interchange/imageslicer.h"
#include "model/palette.h"
#include "model/spritebank.h"

int importSpritePicture(SpriteBank& bank, const QImage& picture)
{
    constexpr int SpriteSize = 16;
    ImageSlicer slicer(picture);
    const int count = slicer.sliceSprites(SpriteSize);
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            bank.addSprite(true);
        bank.setImage(i, slicer.piece(i));
    }
    if (const QPointer<Palette> palette = bank.palette())
        palette->setColours(slicer.colours());
    return count;
}
