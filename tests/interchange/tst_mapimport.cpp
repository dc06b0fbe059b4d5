#include "interchange/mapimport.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class TestMapImport : public QObject
{
    Q_OBJECT
private slots:
    void nextTiles_data();
    void nextTiles();
    void pictureBecomesPaletteTilesAndMap();
    void tileLimitAndUnreadablePicture_data();
    void tileLimitAndUnreadablePicture();

private:
    QTemporaryDir mDir;
};

namespace {

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// `count` distinct 8x8 tiles in a row of pictures `columns` wide: a corner
// marker that no turn or mirror keeps in place, and the tile's number in bits.
QImage distinctTiles(int count, int columns)
{
    const int rows = (count + columns - 1) / columns;
    QImage picture(columns * 8, rows * 8, QImage::Format_RGB32);
    picture.fill(Qt::black);
    for (int n = 0; n < count; ++n) {
        const int left = (n % columns) * 8;
        const int top = (n / columns) * 8;
        picture.setPixel(left, top, qRgb(255, 0, 0));
        picture.setPixel(left + 1, top, qRgb(0, 255, 0));
        for (int bit = 0; bit < 10; ++bit)
            if (n & (1 << bit))
                picture.setPixel(left + 2 + bit % 5, top + 3 + bit / 5, qRgb(255, 255, 255));
    }
    return picture;
}

} // namespace

void TestMapImport::nextTiles_data()
{
    QTest::addColumn<QString>("broken");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("created"); // palettes + tile sets + maps
    QTest::newRow("complete set") << "" << "" << 3;
    QTest::newRow("a file missing") << "missing" << "Some of the required files are missing" << 0;
    QTest::newRow("palette of the wrong size") << "nxp" << "Could not import the palette data" << 0;
    QTest::newRow("block out of range") << "block" << "Could not import the map data" << 3;
}

void TestMapImport::nextTiles()
{
    QFETCH(QString, broken);
    QFETCH(QString, message);
    QFETCH(int, created);
    const QString base = mDir.filePath("level." + QString::number(qHash(broken)));
    writeFile(base + ".nxp", QByteArray(broken == "nxp" ? 100 : 512, '\x1c'));
    writeFile(base + ".nxt", QByteArray(64, '\x12'));
    QByteArray nxm("\x02\x02", 2); // 2 x 2 cells: one block
    nxm += QByteArray(broken == "block" ? "\x01\x00" : "\x00\x00", 2) + QByteArray(254, '\0');
    writeFile(base + ".nxm", nxm);
    writeFile(base + ".nxb", QByteArray::fromHex("0100000001000000")); // block 0 only
    if (broken == "missing")
        QFile::remove(base + ".nxb");

    Project project;
    const ImportReport report = importMap(project, base + ".NXT");
    QVERIFY2(message.isEmpty() ? report.ok() : report.error.startsWith(message), qPrintable(report.error));
    QCOMPARE(report.ok(), message.isEmpty());
    QCOMPARE(int(project.palettes().size() + project.tileSets().size() + project.maps().size()), created);
    if (!message.isEmpty())
        return;
    const QPointer<Map> map = project.maps().first();
    QCOMPARE(map->name(), QFileInfo(base).fileName());
    QCOMPARE(map->size(), QSize(2, 2));
    QCOMPARE(map->tile({ 0, 0 }).index, 1);
    QCOMPARE(map->tile({ 1, 1 }).index, 0);
    QCOMPARE(map->tileSet()->count(), 512);
    QCOMPARE(map->tileSet()->palette()->entry(0), ushort(0x1c1c));
}

void TestMapImport::pictureBecomesPaletteTilesAndMap()
{
    QImage picture = distinctTiles(3, 3);
    picture = picture.copy(0, 0, 32, 8); // a fourth column repeats the first tile mirrored
    const QImage first = picture.copy(0, 0, 8, 8).mirrored(true, false);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            picture.setPixel(24 + x, y, first.pixel(x, y));
    const QString path = mDir.filePath("forest.v2.png");
    QVERIFY(picture.save(path));

    Project project;
    QList<int> progress;
    QVERIFY(importMap(project, path, [&](int value, int) { progress << value; }).ok());
    QCOMPARE(progress, (QList<int> { 1 }));
    const QPointer<Map> map = project.maps().first();
    QCOMPARE(map->name(), QStringLiteral("forest")); // the base name, up to the first dot
    QCOMPARE(map->size(), QSize(4, 1));
    QCOMPARE(map->tile({ 3, 0 }).index, 0);
    QVERIFY(map->tile({ 3, 0 }).mirror);
    QVERIFY(map->tile({ 3, 0 }).visible);
    QCOMPARE(map->tile({ 2, 0 }).index, 2);
    QCOMPARE(map->tileSet()->count(), 512);
    QCOMPARE(map->tileSet()->palette()->colour(0), QColor(255, 0, 0)); // colours in order of first use
    QCOMPARE(map->tileSet()->palette()->colour(1), QColor(0, 255, 0));
}

void TestMapImport::tileLimitAndUnreadablePicture_data()
{
    QTest::addColumn<int>("tiles"); // 0: not a picture at all
    QTest::addColumn<int>("columns"); // no padding cells, which would be a tile of their own
    QTest::addColumn<QString>("message");
    QTest::newRow("512 tiles fit") << 512 << 32 << "";
    QTest::newRow("513 do not") << 513 << 27
                                << "Cannot import the image as it would need more than 512 tiles\n513 required";
    QTest::newRow("unreadable picture") << 0 << 1 << "Could not read the image file";
}

void TestMapImport::tileLimitAndUnreadablePicture()
{
    QFETCH(int, tiles);
    QFETCH(int, columns);
    QFETCH(QString, message);
    const QString path = mDir.filePath(QString("many%1.png").arg(tiles));
    if (tiles == 0)
        writeFile(path, "not a picture");
    else
        QVERIFY(distinctTiles(tiles, columns).save(path));
    Project project;
    QCOMPARE(importMap(project, path).error, message);
    QCOMPARE(project.maps().size(), message.isEmpty() ? 1 : 0);
    QCOMPARE(project.palettes().size(), message.isEmpty() ? 1 : 0);
}

QTEST_GUILESS_MAIN(TestMapImport)
#include "tst_mapimport.moc"
