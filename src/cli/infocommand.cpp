#include "infocommand.h"

#include "arguments.h"
#include "model/image.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/projectstore.h"
#include "projectloader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>
#include <QTextStream>
#include <algorithm>

namespace {

QJsonObject entry(const QUuid& id, const QString& name, const QJsonValue& size)
{
    return { { "id", id.toString() }, { "name", name }, { "size", size } };
}

// Sorted by name, then id, so that the output is stable between runs and
// can be compared in a build.
template<typename T, typename SizeOf>
QJsonArray listOf(QList<QPointer<T>> assets, SizeOf sizeOf)
{
    assets.removeAll(nullptr);
    std::sort(assets.begin(), assets.end(), [](const QPointer<T>& a, const QPointer<T>& b) {
        return a->name() != b->name() ? a->name() < b->name() : a->id().toString() < b->id().toString();
    });
    QJsonArray list;
    for (const auto& asset : assets)
        list.append(entry(asset->id(), asset->name(), sizeOf(*asset)));
    return list;
}

QString modeName(Tintorel::ImageMode mode)
{
    return QString::fromLatin1(QMetaEnum::fromType<Tintorel::ImageMode>().valueToKey(int(mode)));
}

} // namespace

QString InfoCommand::usage() const
{
    return QStringLiteral("info PROJECT.tintorel");
}

QString InfoCommand::help() const
{
    return QStringLiteral("Prints the project's name and id and, for each kind of asset, its list with id, name\n"
                          "and size (palette entries, tile count, map cells, blocks, sprite count, image mode)\n"
                          "as JSON on standard output.");
}

CliCommand::Status InfoCommand::run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    Arguments args(name(), {}, QStringLiteral("PROJECT.tintorel"));
    if (!args.parse(arguments, err))
        return UsageError;
    ProjectStore store;
    if (!loadProject(store, args.positional(), err))
        return Failure;
    const Project& project = *store.project();

    QJsonObject info { { "name", project.name() }, { "id", project.id().toString() } };
    info["palettes"] = listOf(project.palettes(), [](const Palette&) { return QJsonValue(Palette::Size); });
    info["tileSets"] = listOf(project.tileSets(), [](const TileSet& t) { return QJsonValue(t.count()); });
    info["maps"] = listOf(project.maps(), [](const Map& m) {
        return QJsonValue(QJsonObject { { "width", m.size().width() }, { "height", m.size().height() } });
    });
    info["blockSets"] =
        listOf(project.blockLists(), [](const MapObjects& b) { return QJsonValue(int(b.animations().size())); });
    info["spriteBanks"] =
        listOf(project.spriteBanks(), [](const SpriteBank& s) { return QJsonValue(s.spriteCount()); });
    info["images"] = listOf(project.images(), [](const Image& i) { return QJsonValue(modeName(i.mode())); });
    out << QJsonDocument(info).toJson(QJsonDocument::Indented);
    return Success;
}
