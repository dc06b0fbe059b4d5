#include "fuzzsupport.h"
#include "interchange/mapimport.h"
#include "interchange/spritepictureimport.h"
#include "project/project.h"

#include <QBuffer>
#include <QImageReader>

namespace {

// The instrumented build spends about a microsecond on every pixel, so a
// picture past this many pixels would only time the instrumentation. The
// imports' behaviour on large pictures is held by the regression tests and
// the benchmarks, in normal builds.
constexpr qint64 MaxPixels = qint64(4) << 20;

bool tooLargeToFuzz(const QByteArray& content)
{
    QBuffer buffer;
    buffer.setData(content);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    return size.isValid() && qint64(size.width()) * size.height() > MaxPixels;
}

} // namespace

// A picture handed to the two imports a user reaches with one: as a map
// (decoded, measured against the project's budget, sliced into at most 513
// distinct tiles) and as a sprite sheet. The content decides the format, as
// it does for a user's file, whatever its name.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray content = Fuzz::bytes(data, size);
    if (tooLargeToFuzz(content))
        return 0;
    const QString path = Fuzz::scratchFile(QStringLiteral("picture.png"), content);
    Project project;
    importMap(project, path);
    importSpriteSheet(project, path);
    return 0;
}
