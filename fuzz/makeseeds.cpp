#include "interchange/spritefile.h"
#include "model/image.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "model/tile.h"
#include "model/tileanimation.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/projectschema.h"
#include "project/projectstore.h"
#include "project/tilemapblob.h"
#include "seedpictures.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <cstdio>

// Writes the seed corpus of every fuzz target into the folder named on the
// command line: small files that the project's own writers make, and a few
// near misses of each, so that the fuzzers start at the loaders' edges.
namespace {

QString gOut;

void seed(const QString& target, const QString& name, const QByteArray& bytes)
{
    const QString folder = QDir(gOut).filePath(target);
    QDir().mkpath(folder);
    QFile file(QDir(folder).filePath(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

// Seeds of the targets whose first byte picks among choices.
void seed(const QString& target, const QString& name, int choice, const QByteArray& bytes)
{
    seed(target, name, char(choice) + bytes);
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray flipped(QByteArray bytes, qsizetype at)
{
    bytes[at] = char(bytes.at(at) ^ 0x5a);
    return bytes;
}

// One of every asset, each as small as it comes: one tile, one sprite and a
// 2 x 2 map, the sizes of the entries that the document target supplies.
void fill(Project& project)
{
    project.setName(QStringLiteral("Seed"));
    const QPointer<Palette> palette = project.createPalette(CreateAction::Standard, QStringLiteral("Colours"));
    project.setScratchPalette(palette->id());
    const QPointer<TileSet> tiles = project.createTileSet(QStringLiteral("Tiles"), palette->id(), 1, false);
    tiles->tile(0)->setAttributes(Tile::TA_SOLID);

    const QSharedPointer<TileAnimation> door =
        project.createBlockList(QStringLiteral("Blocks"), tiles->id())->createTileAnimation(QStringLiteral("Door"));
    door->setSize(QSize(2, 1));
    door->addFrame();
    door->setIndex(0, 1, 0);

    const QPointer<Map> map = project.createMap(QStringLiteral("Level"), tiles->id(), QSize(2, 2));
    map->setTiles(QRect(0, 1, 2, 1), 0, false, true, false, true);
    map->placeAnimation(door.data(), QPoint(0, 0));
    map->addSprite({ QUuid::createUuid(), QUuid(), 0, 8, 0, true, false, false, 0, 0, 0, 1, QStringLiteral("Hero") });

    const QPointer<SpriteBank> bank =
        project.createSpriteBank(Tintorel::Sprite::FourBit, QStringLiteral("Sprites"), palette->id());
    SpriteAnim* walk = bank->createAnimation(QStringLiteral("Walk"));
    walk->addFrame();
    project.createImage(Tintorel::ImageMode::LoRes_128x96, QStringLiteral("Title"), palette->id());
    project.setOpenDocuments({ map->id().toString() });
}

QByteArray archive(const QString& folder, bool filled)
{
    ProjectStore store;
    store.create(QStringLiteral("Seed"), false);
    if (filled)
        fill(*store.project());
    const QString path = QDir(folder).filePath(QStringLiteral("seed.tintorel"));
    if (!store.saveAs(path))
        qFatal("cannot save %s", qPrintable(path));
    return readFile(path);
}

void projectSeeds(const QString& folder)
{
    const QByteArray empty = archive(folder, false);
    const QByteArray full = archive(folder, true);
    seed("projectarchive", "empty.tintorel", empty);
    seed("projectarchive", "full.tintorel", full);
    seed("projectarchive", "truncated.tintorel", full.left(full.size() / 2));
    seed("projectarchive", "damaged-directory.tintorel", flipped(full, full.size() - 30));

    Project project;
    fill(project);
    const QByteArray document = writeProjectJson(project, true);
    seed("projectjson", "full.json", document);
    seed("projectjson", "empty.json", writeProjectJson(Project(), false));
    seed("projectjson", "newer.json", QByteArray(R"({"formatVersion": 3})"));
    seed("projectjson", "truncated.json", document.left(document.size() / 2));

    TileMap grid(3, 2);
    grid.setCell(QPoint(1, 1), { 5, true, false, true, 2, true });
    const QByteArray blob = tileMapBlob(grid);
    seed("tilemapblob", "three-by-two", blob);
    seed("tilemapblob", "empty", tileMapBlob(TileMap(0, 0)));
    seed("tilemapblob", "one-byte-short", blob.left(blob.size() - 1));
}

void paletteSeeds(const QString& folder)
{
    Palette palette;
    palette.loadStandard();
    palette.setEntry(3, 0x1234);
    const QString pal = QDir(folder).filePath(QStringLiteral("seed.pal"));
    const QString npl = QDir(folder).filePath(QStringLiteral("seed.npl"));
    palette.exportData(pal);
    palette.exportData(npl);
    const QByteArray pal512 = readFile(pal);
    const QByteArray npl513 = readFile(npl);
    seed("palette", "standard.pal", 0, pal512);
    seed("palette", "standard.nxp", 1, pal512);
    seed("palette", "standard.npl", 2, npl513);
    seed("palette", "short.pal", 0, pal512.left(511));
    seed("palette", "long.npl", 2, npl513 + '\0');
    seed("palette", "colours.png", 3, SeedPictures::encoded("png"));
    seed("palette", "colours.bmp", 4, SeedPictures::encoded("bmp"));
}

// A .nxm of `width` x `height` tiles naming `blocks` in turn; each row of
// blocks is padded to 256 bytes.
QByteArray blockMap(int width, int height, const QList<quint16>& blocks)
{
    QByteArray bytes { char(width), char(height) };
    qsizetype next = 0;
    for (int y = 0; y < height; y += 2) {
        QByteArray row;
        for (int x = 0; x < width; x += 2) {
            char value[2];
            qToLittleEndian<quint16>(blocks.at(next++ % blocks.size()), value);
            row.append(value, 2);
        }
        bytes += row + QByteArray(256 - width, '\0');
    }
    return bytes;
}

// The NextTiles target's input: the .nxt and the .nxm after their lengths, then the .nxb.
QByteArray nextTilesSet(const QByteArray& nxt, const QByteArray& nxm, const QByteArray& nxb)
{
    QByteArray input;
    for (const QByteArray& part : { nxt, nxm }) {
        char length[2];
        qToLittleEndian<quint16>(quint16(part.size()), length);
        input += QByteArray(length, 2) + part;
    }
    return input + nxb;
}

void nextTilesSeeds()
{
    QByteArray nxt;
    for (int i = 0; i < 4 * Tile::PackedSize; ++i)
        nxt += char(i % 7 * 0x11);
    QByteArray nxb;
    for (quint16 tile : { 0, 1, 2, 3, 3, 2, 1, 0 }) {
        char value[2];
        qToLittleEndian<quint16>(tile, value);
        nxb.append(value, 2);
    }
    seed("nexttiles", "four-by-four", nextTilesSet(nxt, blockMap(4, 4, { 0, 1, 1, 0 }), nxb));
    seed("nexttiles", "odd-sides", nextTilesSet(nxt, blockMap(3, 5, { 1, 0 }), nxb));
    seed("nexttiles", "unknown-block", nextTilesSet(nxt, blockMap(4, 2, { 0, 2 }), nxb));
    seed("nexttiles", "tile-tail", nextTilesSet(nxt + "abc", blockMap(2, 2, { 1 }), nxb + 'x'));
}

void spriteSeeds()
{
    SpriteBank bank(Tintorel::Sprite::EightBit);
    bank.addSprite(true);
    QImage sprite = bank.sprite(1);
    for (int i = 0; i < SpriteBank::SpriteSize; ++i)
        sprite.setPixel(i, i, uint(i * 17));
    bank.setImage(1, sprite);
    const QByteArray two = SpriteFile::content(bank);
    seed("spritefile", "new-bank.spr", 0, two);
    seed("spritefile", "four-bit-bank.spr", 1, two.left(256));
    seed("spritefile", "with-tail.spr", 2, two.left(300));
}

void fontSeeds()
{
    QByteArray font;
    for (int i = 0; i < 16 * 8; ++i)
        font += char((i * 37) & 0xff);
    seed("zxfont", "sixteen.ch8", 0, font);
    seed("zxfont", "past-the-end.ch8", 62, font.left(24));
    seed("zxfont", "with-tail.ch8", 5, font.left(13));
}

void pictureSeeds()
{
    const QList<QByteArray> formats { "png", "bmp", "gif", "jpg", "pbm", "pgm", "ppm", "xbm", "xpm" };
    for (int i = 0; i < formats.size(); ++i)
        seed("picture", QStringLiteral("tiles.%1").arg(formats.at(i)), SeedPictures::encoded(formats.at(i)));
    const QByteArray png = SeedPictures::encoded("png");
    seed("picture", "truncated.png", png.left(png.size() - 20));
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS_FOLDER\n", argv[0]);
        return 2;
    }
    gOut = QString::fromLocal8Bit(argv[1]);
    QTemporaryDir scratch;
    projectSeeds(scratch.path());
    paletteSeeds(scratch.path());
    nextTilesSeeds();
    spriteSeeds();
    fontSeeds();
    pictureSeeds();
    return 0;
}
