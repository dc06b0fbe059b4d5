#include "interchange/tilemapimport.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

// Plain tile maps as the tool chain and Tintorel's own export write them:
// found by their companions' names, refused when they cannot be whole, and
// written back byte for byte.
class TestTileMapImport : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void goldenFiles_data();
    void goldenFiles();
    void proposedWidth_data();
    void proposedWidth();
    void roundTrip_data();
    void roundTrip();

private:
    QByteArray readFile(const QString& path) const;
    QDir mData;
    QTemporaryDir mDir;
};

void TestTileMapImport::initTestCase()
{
    mData = QDir(QFINDTESTDATA("../data/tilemap"));
    QVERIFY(mData.exists("level_tilemap.bin"));
}

QByteArray TestTileMapImport::readFile(const QString& path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestTileMapImport::goldenFiles_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("name");    // of what is made; empty when refused
    QTest::addColumn<QString>("message"); // the refusal, or a warning
    QTest::newRow("exported names") << "level_tilemap.bin" << 4 << "level" << "";
    QTest::newRow("base name, .npl") << "cave.map" << 6 << "cave" << "";
    QTest::newRow("block-less .nxm, .pal, a tile past the file")
        << "room.nxm" << 5 << "room" << "2 cells of the map name tiles that \"room.nxt\" does not hold; they stay blank";
    QTest::newRow("not whole rows") << "ragged.map" << 2 << ""
                                    << "Could not import the map data: \"ragged.map\" is 14 bytes, which are not "
                                       "whole rows of 2 cells of two bytes";
    QTest::newRow("no companions")
        << "lonely_tilemap.bin" << 2 << ""
        << "Some of the required files are missing: \"lonely_tiles.nxt\" or \"lonely_tilemap.nxt\", "
           "\"lonely_palette.bin\" or \"lonely_tilemap.nxp\" or \"lonely_tilemap.pal\" or \"lonely_tilemap.npl\"";
}

void TestTileMapImport::goldenFiles()
{
    QFETCH(QString, file);
    QFETCH(int, width);
    QFETCH(QString, name);
    QFETCH(QString, message);
    Project project;
    const ImportReport report = TileMapImport::import(project, { mData.filePath(file), {}, {} }, width);
    if (name.isEmpty()) {
        QCOMPARE(report.error, message);
        QVERIFY(project.maps().isEmpty() && project.tileSets().isEmpty() && project.palettes().isEmpty());
        return;
    }
    QVERIFY2(report.ok(), qPrintable(report.error));
    QCOMPARE(report.warnings, message.isEmpty() ? QStringList() : QStringList { message });
    QCOMPARE(project.maps().size(), 1);
    const QPointer<Map> map = project.maps().first();
    QCOMPARE(map->name(), name);
    QCOMPARE(map->size().width(), width);
    QCOMPARE(map->tileSet()->name(), name);
    QCOMPARE(map->tileSet()->palette()->name(), name);
    // The map's bytes come back as they were read.
    const QString again = mDir.filePath(file + ".again");
    QVERIFY(map->exportData(again));
    QCOMPARE(readFile(again), readFile(mData.filePath(file)));
}

void TestTileMapImport::proposedWidth_data()
{
    QTest::addColumn<qint64>("cells");
    QTest::addColumn<int>("width");
    QTest::newRow("32 × 24") << qint64(768) << 32;
    QTest::newRow("40 × 25") << qint64(1000) << 40;
    QTest::newRow("80 × 3") << qint64(240) << 40;
    QTest::newRow("square of 7") << qint64(49) << 7;
    QTest::newRow("nothing fits") << qint64(50) << 32;
}

void TestTileMapImport::proposedWidth()
{
    QFETCH(qint64, cells);
    QTEST(TileMapImport::proposedWidth(cells), "width");
}

void TestTileMapImport::roundTrip_data()
{
    QTest::addColumn<int>("firstTile"); // cells count up from here, wrapping at 512
    QTest::addColumn<int>("tileCount"); // tiles in the set exported
    QTest::newRow("tiles 0 to 255") << 0 << 256;
    QTest::newRow("past 255, a full set") << 250 << 512;
    QTest::newRow("a converter's short set") << 0 << 40;
}

// Every orientation in every bank, exported, imported into a new project
// and exported again: the same three files, a short tile set padded out.
void TestTileMapImport::roundTrip()
{
    QFETCH(int, firstTile);
    QFETCH(int, tileCount);
    Project project;
    const QPointer<Palette> palette = project.createPalette(CreateAction::Standard, "Level");
    palette->setEntry(7, 0x1FF);
    const QPointer<TileSet> tiles = project.createTileSet("Level", palette->id(), tileCount);
    for (int i = 0; i < tiles->count(); ++i) {
        QImage image(8, 8, QImage::Format_Indexed8);
        image.setColorTable(palette->rgbTable());
        for (int p = 0; p < 64; ++p)
            image.setPixel(p % 8, p / 8, (i + p * 3) % 16);
        tiles->setTileImage(i, image);
    }
    const QPointer<Map> map = project.createMap("Level", tiles->id(), QSize(16, 8));
    for (int n = 0; n < 128; ++n)
        map->setTile(QPoint(n % 16, n / 16), { (firstTile + n) % 512, bool(n & 1), bool(n & 2), bool(n & 4),
                                                n / 8, true });
    const QDir first(mDir.filePath(QTest::currentDataTag()));
    QVERIFY(QDir().mkpath(first.path()));
    QVERIFY(map->exportData(first.filePath("Level_tilemap.bin")));
    QVERIFY(tiles->exportNxt(first.filePath("Level_tiles.nxt")));
    QVERIFY(palette->exportData(first.filePath("Level_palette.bin")));

    Project imported;
    const ImportReport report = TileMapImport::import(imported, { first.filePath("Level_tilemap.bin"), {}, {} }, 16);
    QVERIFY2(report.ok(), qPrintable(report.error));
    const QPointer<Map> back = imported.maps().first();
    const QDir second(first.filePath("again"));
    QVERIFY(QDir().mkpath(second.path()));
    QVERIFY(back->exportData(second.filePath("map")));
    QVERIFY(back->tileSet()->exportNxt(second.filePath("tiles")));
    QVERIFY(back->tileSet()->palette()->exportData(second.filePath("palette")));
    QCOMPARE(readFile(second.filePath("map")), readFile(first.filePath("Level_tilemap.bin")));
    QCOMPARE(readFile(second.filePath("palette")), readFile(first.filePath("Level_palette.bin")));
    const QByteArray tilesBefore = readFile(first.filePath("Level_tiles.nxt"));
    const QByteArray tilesAfter = readFile(second.filePath("tiles"));
    QCOMPARE(tilesAfter.size(), 512 * 32);
    QCOMPARE(tilesAfter.left(tilesBefore.size()), tilesBefore);
    QCOMPARE(tilesAfter.mid(tilesBefore.size()), QByteArray(tilesAfter.size() - tilesBefore.size(), '\0'));
}

QTEST_MAIN(TestTileMapImport)
#include "tst_tilemapimport.moc"
