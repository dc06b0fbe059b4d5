#include "fuzzsupport.h"
#include "interchange/imageslicer.h"
#include "interchange/spritepictureimport.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "project/project.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>

namespace {

// The raster formats that the import dialogs offer.
const QList<QByteArray> Formats { "png", "bmp", "gif", "jpg", "pbm", "pgm", "ppm", "xbm", "xpm" };

// Large enough for the picture of the largest map a project holds.
constexpr int DecodeLimitMegabytes = 256;

QImage decode(const QByteArray& content, const QByteArray& format)
{
    QBuffer buffer;
    buffer.setData(content);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAllocationLimit(DecodeLimitMegabytes);
    return reader.read();
}

} // namespace

// A picture imported as a map and as a sprite sheet: decoded, then sliced
// into tiles and into sprites. The first byte picks the format.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QByteArray content = Fuzz::bytes(data, size);
    const QByteArray format = Formats.at(Fuzz::takeChoice(content, int(Formats.size())));
    const QImage picture = decode(content, format);
    if (picture.isNull())
        return 0;

    ImageSlicer tiles(picture);
    tiles.sliceTiles();

    Project project;
    const QPointer<Palette> palette = project.createPalette(CreateAction::Blank, QStringLiteral("sheet"));
    const QPointer<SpriteBank> bank =
        project.createSpriteBank(Tintorel::Sprite::EightBit, QStringLiteral("sheet"), palette->id());
    importSpritePicture(*bank, picture);
    return 0;
}
