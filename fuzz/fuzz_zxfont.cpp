#include "fuzzsupport.h"
#include "interchange/fontimport.h"
#include "model/tileset.h"

// Tiles → Spectrum Chars. The first byte picks the tile the font starts
// at, so that fonts longer than the room left are read too.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    constexpr int TileCount = 64;
    QByteArray content = Fuzz::bytes(data, size);
    const int start = Fuzz::takeChoice(content, TileCount);
    const QString path = Fuzz::scratchFile(QStringLiteral("font.ch8"), content);
    TileSet tiles(TileCount);
    importZXFont(tiles, start, 1, 0, 0, path);
    return 0;
}
