#include "interchange/spritefile.h"
#include "interchange/spritepictureimport.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tile.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray le16(std::initializer_list<int> values)
{
    QByteArray bytes;
    for (int value : values)
        bytes.append(char(value & 0xFF)).append(char((value >> 8) & 0xFF));
    return bytes;
}

// A block map: the size bytes, then each row of block numbers padded by 256 - width.
QByteArray nxm(int width, int height, const QList<QByteArray>& rows, bool padLast = true)
{
    QByteArray bytes;
    bytes.append(char(width)).append(char(height));
    for (int i = 0; i < rows.size(); ++i)
        bytes += rows.at(i) + QByteArray(padLast || i + 1 < rows.size() ? 256 - width : 0, '\0');
    return bytes;
}

// Tile 0 gets the pixels 1..8 on its first row, and bank 2.
void fillSet(TileSet& tiles)
{
    QImage image = Tile::blankImage();
    for (int x = 0; x < 8; ++x)
        image.setPixel(x, 0, uint(x + 1));
    tiles.setTileImage(0, image);
    tiles.setTileOffset(0, 2);
}

} // namespace

class TestFormats : public QObject
{
    Q_OBJECT
private slots:
    void nxtPacksLeftPixelHighAndReadsBack();
    void eightBitTiles();
    void attributes_data();
    void attributes();
    void mapDataPacksCells();
    void blockImport_data();
    void blockImport();
    void spriteImportTargets();
    void spriteRoundTrip();
    void sixteenThousandSpritesImportInOneGo();
    void writersFailOnUnwritablePath();

private:
    QTemporaryDir mDir;
};

void TestFormats::nxtPacksLeftPixelHighAndReadsBack()
{
    TileSet tiles(2);
    tiles.setName("set");
    fillSet(tiles);
    QImage high = Tile::blankImage();
    high.setPixel(0, 0, 0x2F); // only the low nibbles are stored
    high.setPixel(7, 7, 0xA5);
    tiles.setTileImage(1, high);
    QVERIFY(tiles.exportBinary(mDir.path()));
    QByteArray expected(64, '\0');
    expected.replace(0, 4, QByteArray::fromHex("12345678"));
    expected[32] = char(0xF0);
    expected[63] = char(0x05); // rows from the top
    QCOMPARE(readFile(mDir.filePath("set_tiles.nxt")), expected);
    TileSet loaded(2);
    QVERIFY(loaded.importNxt(mDir.filePath("set_tiles.nxt")));
    QCOMPARE(loaded.tile(0)->toPacked() + loaded.tile(1)->toPacked(), expected);
}

void TestFormats::eightBitTiles()
{
    TileSet tiles(10);
    fillSet(tiles);
    const QString path = mDir.filePath("tiles.bin");
    QVERIFY(tiles.exportBin(path, 0, 3, false));
    const QByteArray rows = readFile(path);
    QCOMPARE(rows.size(), 192);
    QCOMPARE(rows.left(9), QByteArray::fromHex("212223242526272820"));
    QVERIFY(tiles.exportBin(path, 1, 1, true));
    const QByteArray columns = readFile(path);
    QCOMPARE(columns.size(), 64);
    for (int x = 0; x < 8; ++x) { // row x of the file is column x of the tile
        QCOMPARE(columns.at(8 * x), char(0x21 + x));
        QCOMPARE(columns.at(8 * x + 1), char(0x20));
    }
    QVERIFY(tiles.exportBin(path, 9, 20, false));
    QCOMPARE(readFile(path).size(), 128);
    QVERIFY(tiles.exportBin(path, 5, 4, false));
    QCOMPARE(readFile(path).size(), 0);
}

void TestFormats::attributes_data()
{
    const QByteArray block = "\tTA_NONE        = $00\n\tTA_TOPSOLID    = $01\n\tTA_LEFTSOLID   = $02\n"
                             "\tTA_RIGHTSOLID  = $04\n\tTA_BOTTOMSOLID = $08\n\tTA_SOLID       = $0F\n"
                             "\tTA_DEADLY      = $10\n\tTA_COLLECTIBLE = $20\n\tTA_LADDER      = $40\n"
                             "\tTA_DOOR        = $80\n";
    QTest::addColumn<int>("count");
    QTest::addColumn<QByteArray>("asmText");
    QTest::newRow("no tiles: the fixed block alone") << 0 << block;
    QTest::newRow("17 tiles: a full line and one value")
        << 17
        << block + "\tdb\t$00,$01,$02,$03,$04,$05,$06,$07,$08,$09,$0a,$0b,$0c,$0d,$0e,$0f\n\tdb\t$10\n";
}

void TestFormats::attributes()
{
    QFETCH(int, count);
    QFETCH(QByteArray, asmText);
    TileSet tiles(count);
    for (int i = 0; i < count; ++i)
        tiles.tile(i)->setAttributes(i | 0x100); // one byte of it is kept
    const QString asmPath = mDir.filePath("attributes.asm");
    const QString binPath = mDir.filePath("attributes.bin");
    QVERIFY(writeFile(asmPath, QByteArray(2000, 'x')) && writeFile(binPath, QByteArray(100, 'x')));
    QVERIFY(tiles.exportAttributesAsm(asmPath));
    QVERIFY(tiles.exportAttributes(binPath));
    QCOMPARE(readFile(asmPath), asmText);
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes.append(char(i));
    QCOMPARE(readFile(binPath), bytes);
}

void TestFormats::mapDataPacksCells()
{
    Map map("level", QSize(2, 2));
    map.setTile(QPoint(1, 0), { 300, true, false, true, 5, true });
    map.setTile(QPoint(0, 1), { 7, false, true, false, 0, false }); // hidden cells are written too
    QVERIFY(map.exportBinary(mDir.path()));
    QCOMPARE(readFile(mDir.filePath("level_tilemap.bin")), QByteArray::fromHex("00002c5b07040000"));
}

void TestFormats::blockImport_data()
{
    QTest::addColumn<QByteArray>("blocks");
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QList<int>>("cells"); // row by row; -1 a blank cell

    const QByteArray table = le16({ 10, 11, 12, 13, 20, 21, 22, 23 });
    QTest::newRow("width 4: two blocks a row, 252 bytes skipped")
        << nxm(4, 4, { le16({ 0, 1 }), le16({ 1, 0 }) }, false) << table << true << QSize(4, 4)
        << QList<int> { 10, 11, 20, 21, 12, 13, 22, 23, 20, 21, 10, 11, 22, 23, 12, 13 };
    QTest::newRow("block number equal to the block count stops, keeping what was read")
        << nxm(4, 2, { le16({ 1, 2 }) }) << table << false << QSize(4, 2)
        << QList<int> { 20, 21, -1, -1, 22, 23, -1, -1 };
    QTest::newRow("block 0xffff is past the table, not negative")
        << nxm(2, 2, { le16({ 0xFFFF }) }) << table << false << QSize(2, 2) << QList<int> { -1, -1, -1, -1 };
    QTest::newRow("table cut inside a block")
        << nxm(4, 2, { le16({ 0, 1 }) }) << table.left(15) << false << QSize(4, 2)
        << QList<int> { 10, 11, -1, -1, 12, 13, -1, -1 };
    QTest::newRow("map cut before its second row")
        << nxm(2, 4, { le16({ 1 }) }) << table << false << QSize(2, 4) << QList<int> { 20, 21, 22, 23, -1, -1, -1, -1 };
    QTest::newRow("negative width") << nxm(-2, 2, {}) << table << false << QSize(1, 1) << QList<int> { -1 };
}

void TestFormats::blockImport()
{
    QFETCH(QByteArray, blocks);
    QFETCH(QByteArray, table);
    QFETCH(bool, ok);
    QFETCH(QSize, size);
    QFETCH(QList<int>, cells);
    const QString nxmPath = mDir.filePath("map.nxm");
    const QString nxbPath = mDir.filePath("map.nxb");
    QVERIFY(writeFile(nxmPath, blocks) && writeFile(nxbPath, table));
    Map map("imported", QSize(1, 1));
    QCOMPARE(map.importNextTiles(nxmPath, nxbPath), ok);
    QCOMPARE(map.size(), size);
    QList<int> found;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            const TileMap::TileData cell = map.tile(QPoint(x, y));
            found.append(cell.visible ? cell.index : -1);
            QVERIFY(!cell.rotate && !cell.flip && !cell.mirror && cell.offset == 0);
        }
    QCOMPARE(found, cells);
}

void TestFormats::spriteImportTargets()
{
    const QString path = mDir.filePath("hero.spr");
    QByteArray bytes(300, '\0');
    for (int i = 0; i < bytes.size(); ++i)
        bytes[i] = char(i);
    QVERIFY(writeFile(path, bytes));
    Project project;

    SpriteBank* created = nullptr;
    QVERIFY(SpriteFile::import(project, path, {}, nullptr, {}, &created).ok());
    QVERIFY(created);
    QCOMPARE(created->name(), QStringLiteral("hero"));
    QCOMPARE(created->depth(), Tintorel::Sprite::EightBit);
    QCOMPARE(created->spriteCount(), 1); // the file's sprite in the new bank's own
    QCOMPARE(created->image().pixelIndex(15, 15), 255);
    QVERIFY(project.palettes().isEmpty());

    SpriteBank* appended = nullptr;
    QVERIFY(SpriteFile::import(project, path, SpriteFile::Append, created, {}, &appended).ok());
    QCOMPARE(appended, created);
    QCOMPARE(created->spriteCount(), 2);

    SpriteBank* withPalette = nullptr;
    SpriteFile::import(project, path, SpriteFile::CreatePalette, nullptr, {}, &withPalette);
    QVERIFY(withPalette && withPalette != created);
    QVERIFY(withPalette->palette());
    QCOMPARE(withPalette->palette()->name(), QStringLiteral("Default Next"));

    QVERIFY(!SpriteFile::import(project, path, SpriteFile::Append, nullptr).ok());
    QVERIFY(!SpriteFile::import(project, mDir.filePath("missing.spr"), {}, nullptr).ok());
    QCOMPARE(project.spriteBanks().size(), 2);
}

void TestFormats::spriteRoundTrip()
{
    SpriteBank bank(Tintorel::Sprite::FourBit);
    bank.addSprite(false);
    bank.addSprite(false);
    QImage strip = bank.image();
    for (int y = 0; y < strip.height(); ++y)
        for (int x = 0; x < 16; ++x)
            strip.setPixel(x, y, uint((x * 7 + y * 13) & 0xFF));
    bank.setBankImage(strip);
    const QString first = mDir.filePath("first.spr");
    QVERIFY(writeFile(first, QByteArray(5000, 'x')));
    QVERIFY(bank.exportData(first));
    const QByteArray bytes = readFile(first);
    QCOMPARE(bytes.size(), 3 * 256);
    QCOMPARE(bytes.mid(256, 2), QByteArray::fromHex("d0d7")); // sprite 1, row 0 is strip row 16

    Project project;
    SpriteBank* copy = nullptr;
    SpriteFile::import(project, first, {}, nullptr, {}, &copy);
    QVERIFY(copy);
    const QString second = mDir.filePath("second.spr");
    QVERIFY(copy->exportData(second));
    QCOMPARE(readFile(second), bytes);
}

// Each sprite added once used to copy the whole strip: a full bank took
// most of a minute. The bound is loose, for a sanitized build.
void TestFormats::sixteenThousandSpritesImportInOneGo()
{
    QByteArray bytes(16384 * 256, '\0');
    for (qsizetype i = 0; i < bytes.size(); ++i)
        bytes[i] = char((i * 7) >> 8);
    const QString spr = mDir.filePath("full.spr");
    QVERIFY(writeFile(spr, bytes));
    QImage blank(2048, 2048, QImage::Format_RGB32);
    blank.fill(Qt::black);
    const QString picture = mDir.filePath("blank.png");
    QVERIFY(blank.save(picture));

    Project project;
    QElapsedTimer clock;
    clock.start();
    SpriteBank* fromFile = nullptr;
    QVERIFY(SpriteFile::import(project, spr, {}, nullptr, {}, &fromFile).ok());
    SpriteBank* fromPicture = nullptr;
    QVERIFY(importSpriteSheet(project, picture, &fromPicture).ok());
    QVERIFY2(clock.elapsed() < 20000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(fromFile->spriteCount(), 16384);
    QCOMPARE(fromPicture->spriteCount(), 16384);
    QCOMPARE(SpriteFile::content(*fromFile), bytes);
}

void TestFormats::writersFailOnUnwritablePath()
{
    const QString path = mDir.filePath("no/such/folder/file");
    TileSet tiles(1);
    Map map("m", QSize(1, 1));
    SpriteBank bank(Tintorel::Sprite::EightBit);
    QVERIFY(!tiles.exportNxt(path));
    QVERIFY(!tiles.exportBin(path, 1, 1, false));
    QVERIFY(!tiles.exportBinary(path));
    QVERIFY(!tiles.exportAttributes(path));
    QVERIFY(!tiles.exportAttributesAsm(path));
    QVERIFY(!map.exportData(path));
    QVERIFY(!map.exportBinary(path));
    QVERIFY(!bank.exportData(path));
}

QTEST_GUILESS_MAIN(TestFormats)
#include "tst_formats.moc"
