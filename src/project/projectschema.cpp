#include "project/projectschema.h"

#include "model/image.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/tilemapblob.h"

#include <QBuffer>
#include <QUuid>

namespace {

QByteArray pngBytes(const QImage& image)
{
    QByteArray bytes;
    if (image.isNull())
        return bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return bytes;
}

} // namespace

QString ProjectEntry::document()
{
    return QStringLiteral("project.json");
}

QString ProjectEntry::tileSet(const QUuid& id)
{
    return QStringLiteral("tileset/%1.png").arg(id.toString());
}

QString ProjectEntry::tileMap(const QUuid& id)
{
    return QStringLiteral("tilemap/%1").arg(id.toString());
}

QString ProjectEntry::spriteBank(const QUuid& id)
{
    return QStringLiteral("sprite/%1.png").arg(id.toString());
}

QString ProjectEntry::image(const QUuid& id)
{
    return QStringLiteral("images/%1.png").arg(id.toString());
}

QString ProjectEntry::scratch()
{
    return QStringLiteral("scratch.png");
}

QMap<QString, QByteArray> collectEntries(const Project& project, bool includeOpenDocuments)
{
    QMap<QString, QByteArray> entries;
    entries.insert(ProjectEntry::document(), writeProjectJson(project, includeOpenDocuments));
    for (const QPointer<TileSet>& tiles : project.tileSets())
        if (tiles)
            entries.insert(ProjectEntry::tileSet(tiles->id()), tiles->toPng(tiles->palette()));
    for (const QPointer<Map>& map : project.maps())
        if (map)
            entries.insert(ProjectEntry::tileMap(map->id()), tileMapBlob(*map->tileMap()));
    for (const QPointer<SpriteBank>& bank : project.spriteBanks())
        if (bank)
            entries.insert(ProjectEntry::spriteBank(bank->id()), pngBytes(bank->image()));
    for (const QPointer<Image>& image : project.images())
        if (image)
            entries.insert(ProjectEntry::image(image->id()), pngBytes(image->image()));
    entries.insert(ProjectEntry::scratch(), pngBytes(project.scratchImage()));
    return entries;
}
