#include "interchange/fontimport.h"
#include "interchange/mapimport.h"
#include "interchange/paletteimport.h"
#include "interchange/spritefile.h"
#include "interchange/spritepictureimport.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

// Damaged or partial input: refused with a message naming the file, or
// imported with a warning for each thing left out; never silently.
class TestDamagedImport : public QObject
{
    Q_OBJECT
private slots:
    void reports_data();
    void reports();

private:
    QTemporaryDir mDir;
};

namespace {

QByteArray png(const QImage& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return bytes;
}

// 20 tiles of 16 colours, each sharing half of them with the next, so that
// every tile needs a bank of its own and the last four find none.
QImage tooColourful()
{
    QImage picture(160, 8, QImage::Format_RGB32);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 160; ++x) {
            const int n = (x / 8) * 8 + (y * 8 + x % 8) % 16;
            picture.setPixel(x, y, qRgb((n % 8) * 32, ((n / 8) % 8) * 32, ((n / 64) % 8) * 32));
        }
    return picture;
}

// A NextTiles set of a 2 x 2 map of one block, whose tiles are 1, 0, 0, 1.
QVariantMap nextTiles(const QByteArray& nxt, const QByteArray& nxb = QByteArray::fromHex("0100000000000100"))
{
    QByteArray nxm("\x02\x02\x00\x00", 4);
    nxm += QByteArray(254, '\0');
    return { { "lvl.nxp", QByteArray(512, '\0') }, { "lvl.nxt", nxt }, { "lvl.nxm", nxm }, { "lvl.nxb", nxb } };
}

} // namespace

void TestDamagedImport::reports_data()
{
    QTest::addColumn<QString>("importer");
    QTest::addColumn<QVariantMap>("files");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("error"); // the start of it; empty when the import goes through
    QTest::addColumn<QStringList>("warnings"); // a part of each, in order
    QTest::addColumn<int>("created"); // assets of any kind

    const QStringList none;
    QTest::newRow("zero-byte .nxt") << "map" << nextTiles({}) << "lvl.nxm"
                                    << "Could not import the tile data: \"lvl.nxt\" is empty" << none << 0;
    QTest::newRow(".nxt shorter than its map needs")
        << "map" << nextTiles(QByteArray(32, '\x11')) << "lvl.nxm" << ""
        << QStringList { "2 cells of the map name tiles that \"lvl.nxt\" does not hold" } << 3;
    QTest::newRow(".nxt with a tail and more tiles than a set holds")
        << "map" << nextTiles(QByteArray(513 * 32 + 5, '\x11')) << "lvl.nxt" << ""
        << QStringList { "\"lvl.nxt\" ends with 5 bytes that are not a whole tile",
                         "\"lvl.nxt\" holds 513 tiles; the tile set took the first 512" }
        << 3;
    QTest::newRow(".nxb of no whole block") << "map" << nextTiles(QByteArray(64, 0), QByteArray(6, 0)) << "lvl.nxp"
                                            << "Could not import the map data: \"lvl.nxb\" is shorter than one block"
                                            << none << 0;
    QTest::newRow("picture whose colours overflow the banks")
        << "map" << QVariantMap { { "wide.png", png(tooColourful()) } } << "wide.png" << ""
        << QStringList { "4 of 20 tiles got no colours" } << 3;
    QImage margin(20, 12, QImage::Format_RGB32);
    margin.fill(Qt::red);
    QTest::newRow("picture with margins") << "map" << QVariantMap { { "margin.png", png(margin) } } << "margin.png"
                                          << "" << QStringList { "the last 4 columns and 4 rows are not whole tiles" }
                                          << 3;
    QTest::newRow("picture smaller than a tile")
        << "map" << QVariantMap { { "dot.png", png(margin.copy(0, 0, 4, 4)) } } << "dot.png"
        << "\"dot.png\" is 4 × 4 pixels, smaller than one tile" << none << 0;

    QTest::newRow("zero-byte .spr") << "sprites" << QVariantMap { { "hero.spr", QByteArray() } } << "hero.spr"
                                    << "Read error: \"hero.spr\" is empty" << none << 0;
    QTest::newRow(".spr with part of a sprite") << "sprites" << QVariantMap { { "hero.spr", QByteArray(300, 1) } }
                                                << "hero.spr" << ""
                                                << QStringList { "ends with 44 bytes that are not a whole sprite" } << 1;
    QTest::newRow("sprite picture with margins")
        << "sprite picture" << QVariantMap { { "sheet.png", png(margin.scaled(40, 20)) } } << "sheet.png" << ""
        << QStringList { "the last 8 columns and 4 rows are not whole sprites" } << 2;

    QTest::newRow("palette file of the wrong length") << "palette" << QVariantMap { { "x.pal", QByteArray(100, 0) } }
                                                      << "x.pal"
                                                      << "Read error: \"x.pal\" is 100 bytes long; a palette file holds 512"
                                                      << none << 0;
    QTest::newRow("512 bytes named .npl") << "palette" << QVariantMap { { "x.npl", QByteArray(512, 0) } } << "x.npl"
                                          << "Read error: \"x.npl\" is 512 bytes long; a palette file holds 513"
                                          << none << 0;
    QTest::newRow("palette file") << "palette" << QVariantMap { { "x.npl", QByteArray(513, 0) } } << "x.npl" << ""
                                  << none << 1;

    QTest::newRow("empty ZX font") << "font" << QVariantMap { { "font.ch8", QByteArray() } } << "font.ch8"
                                   << "Read error: \"font.ch8\" is empty" << none << 0;
    QTest::newRow("ZX font with a tail") << "font" << QVariantMap { { "font.ch8", QByteArray(20, 1) } } << "font.ch8"
                                         << "" << QStringList { "ends with 4 bytes that are not a whole character" }
                                         << 0;
    QTest::newRow("ZX font longer than the set")
        << "font" << QVariantMap { { "font.ch8", QByteArray(8 * 20, 1) } } << "font.ch8" << ""
        << QStringList { "holds 20 characters; only 16 fitted from tile 1 to the end of the set" } << 0;
}

void TestDamagedImport::reports()
{
    QFETCH(QString, importer);
    QFETCH(QVariantMap, files);
    QFETCH(QString, chosen);
    QFETCH(QString, error);
    QFETCH(QStringList, warnings);
    QFETCH(int, created);

    QDir dir(mDir.filePath(QTest::currentDataTag()));
    QVERIFY(dir.mkpath("."));
    for (auto it = files.cbegin(); it != files.cend(); ++it) {
        QFile file(dir.filePath(it.key()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(it.value().toByteArray());
    }
    const QString path = dir.filePath(chosen);
    Project project;
    TileSet font(16);
    ImportReport report;
    if (importer == "map")
        report = importMap(project, path);
    else if (importer == "sprites")
        report = SpriteFile::import(project, path, {}, nullptr);
    else if (importer == "sprite picture")
        report = importSpriteSheet(project, path);
    else if (importer == "palette")
        report = importPalette(project, path);
    else
        report = importZXFont(font, 0, 1, 0, 0, path);

    QVERIFY2(error.isEmpty() ? report.ok() : report.error.startsWith(error), qPrintable(report.error));
    QCOMPARE(report.warnings.size(), warnings.size());
    for (int i = 0; i < warnings.size(); ++i)
        QVERIFY2(report.warnings.at(i).contains(warnings.at(i)), qPrintable(report.warnings.at(i)));
    QCOMPARE(int(project.palettes().size() + project.tileSets().size() + project.maps().size()
                 + project.spriteBanks().size()),
             created);
}

QTEST_GUILESS_MAIN(TestDamagedImport)
#include "tst_damagedimport.moc"
