#include "fuzzsupport.h"
#include "model/tilemap.h"
#include "project/project.h"
#include "project/projectschema.h"
#include "project/tilemapblob.h"

#include <QBuffer>
#include <QImage>

namespace {

QByteArray indexedPng(int width, int height)
{
    QImage picture(width, height, QImage::Format_Indexed8);
    picture.setColorCount(256);
    picture.fill(1);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "png");
    return bytes;
}

QByteArray smallBlob()
{
    return tileMapBlob(TileMap(2, 2));
}

// The entries beside the document are small and fixed, so that the fuzzer
// spends its time on the document: one tile, one sprite, a 2 x 2 map.
QByteArray fixedEntry(const QString& name)
{
    static const QByteArray tile = indexedPng(8, 8);
    static const QByteArray picture = indexedPng(16, 16);
    static const QByteArray blob = smallBlob();
    if (name.startsWith(QLatin1String("tileset/")))
        return tile;
    if (name.startsWith(QLatin1String("tilemap/")))
        return blob;
    if (name.endsWith(QLatin1String(".png")))
        return picture;
    return {};
}

} // namespace

// "project.json" with everything the reader builds from it; a project it
// accepts must also read back from what the writer makes of it, or a save
// would lose the user's work.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray document = Fuzz::bytes(data, size);
    const auto entries = [&document](const QString& name) {
        return name == ProjectEntry::document() ? document : fixedEntry(name);
    };
    Project project;
    QString error;
    if (!readProjectJson(project, entries, error))
        return 0;

    const QMap<QString, QByteArray> saved = collectEntries(project, true);
    Project reread;
    if (!readProjectJson(reread, [&saved](const QString& name) { return saved.value(name); }, error))
        Fuzz::fail(QStringLiteral("a saved project does not load again: %1").arg(error));
    return 0;
}
