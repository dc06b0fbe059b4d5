#include "fuzzsupport.h"
#include "interchange/paletteimport.h"
#include "project/project.h"

#include <QStringList>

// Palette → Import. The first byte picks the file's suffix, which picks the
// reader: the two lengths of palette file, or the colours of a picture.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QStringList suffixes { "pal", "nxp", "npl", "png", "bmp" };
    QByteArray content = Fuzz::bytes(data, size);
    const QString suffix = suffixes.at(Fuzz::takeChoice(content, int(suffixes.size())));
    const QString path = Fuzz::scratchFile(QStringLiteral("palette.") + suffix, content);
    Project project;
    importPalette(project, path);
    return 0;
}
