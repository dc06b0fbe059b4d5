#include "fuzzsupport.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/projectschema.h"

namespace {

// The entries beside the document are small and fixed, so that the fuzzer
// spends its time on the document: those of one tile, a 2 x 2 map, one
// sprite and one LoRes image, as the writer makes them, found by their kind
// ("tileset", "tilemap", ...), whatever the id in their name.
QByteArray fixedEntry(const QString& name)
{
    static const QMap<QString, QByteArray> byKind = [] {
        Project project;
        const QPointer<TileSet> tiles = project.createTileSet(QStringLiteral("tiles"), QUuid(), 1, false);
        project.createMap(QStringLiteral("map"), tiles->id(), QSize(2, 2));
        project.createSpriteBank(Tintorel::Sprite::EightBit, QStringLiteral("sprites"), QUuid());
        project.createImage(Tintorel::ImageMode::LoRes_128x96, QStringLiteral("image"), QUuid());
        QMap<QString, QByteArray> entries;
        const QMap<QString, QByteArray> written = collectEntries(project, false);
        for (auto it = written.cbegin(); it != written.cend(); ++it)
            entries.insert(it.key().section(QLatin1Char('/'), 0, 0), it.value());
        return entries;
    }();
    return byKind.value(name.section(QLatin1Char('/'), 0, 0));
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
