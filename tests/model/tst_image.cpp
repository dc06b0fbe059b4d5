#include "model/image.h"
#include "model/nximage.h"
#include "model/palette.h"
#include "model/transform.h"

#include <QtTest>

class TestImage : public QObject
{
    Q_OBJECT
private slots:
    void imageModes_data();
    void imageModes();
    void imagePaletteGivesColourTable();

    void loadSnapsChannels_data();
    void loadSnapsChannels();
    void coloursInOrderOfFirstAppearanceWithoutAlpha();
    void loadMissingFileFails();

    void remapTakesLowestEqualOpaqueEntry();
    void toIndexedUsesOwnColours();
    void compacted_data();
    void compacted();

    void rotateTurnsClockwiseAndKeepsTable();
    void flagBits_data();
    void flagBits();
    void hashIgnoresColourTable();
};

void TestImage::imageModes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QSize>("size");
    QTest::newRow("Layer 2 256x192") << 0 << QSize(256, 192);
    QTest::newRow("Layer 2 320x256") << 1 << QSize(320, 256);
    QTest::newRow("Layer 2 640x256 unpacked") << 2 << QSize(640, 256);
    QTest::newRow("LoRes 128x96") << 3 << QSize(128, 96);
    QTest::newRow("outside the table") << 9 << QSize();
}

void TestImage::imageModes()
{
    QFETCH(int, mode);
    QFETCH(QSize, size);
    Image image(static_cast<Tintorel::ImageMode>(mode));
    QCOMPARE(image.image().isNull(), !size.isValid());
    if (!size.isValid())
        return;
    QCOMPARE(image.image().size(), size);
    QCOMPARE(image.image().format(), QImage::Format_Indexed8);
    QCOMPARE(image.image().pixelIndex(size.width() - 1, size.height() - 1), 0);
    QVERIFY(image.paletteId().isNull());
}

void TestImage::imagePaletteGivesColourTable()
{
    Palette palette;
    palette.loadStandard();
    Image image(Tintorel::ImageMode::LoRes_128x96);
    image.setPalette(&palette);
    QCOMPARE(image.paletteId(), palette.id());
    QCOMPARE(image.image().colorTable(), palette.rgbTable());
    QImage replacement(128, 96, QImage::Format_Indexed8);
    replacement.setColorCount(2);
    image.setImage(replacement);
    QCOMPARE(image.image().colorTable(), palette.rgbTable());
}

void TestImage::loadSnapsChannels_data()
{
    QTest::addColumn<int>("channel");
    QTest::addColumn<int>("snapped");
    QTest::newRow("8 above 16 rounds down") << 24 << 16;
    QTest::newRow("8 above 32 rounds down") << 40 << 32;
    QTest::newRow("248 goes to 255") << 248 << 255;
    QTest::newRow("9 above 16 rounds up") << 25 << 32;
}

void TestImage::loadSnapsChannels()
{
    QFETCH(int, channel);
    QFETCH(int, snapped);
    QImage source(1, 1, QImage::Format_RGB888);
    source.setPixel(0, 0, qRgb(channel, 0, channel));
    NxImage nx;
    QVERIFY(nx.load(source));
    QCOMPARE(nx.image().format(), QImage::Format_RGB32);
    QCOMPARE(nx.colours(), (QList<QRgb> { qRgb(snapped, 0, snapped) }));
    QCOMPARE(nx.image().pixel(0, 0), qRgb(snapped, 0, snapped));
}

void TestImage::coloursInOrderOfFirstAppearanceWithoutAlpha()
{
    QImage source(3, 2, QImage::Format_ARGB32);
    const QRgb pixels[6] = { qRgba(0, 0, 255, 0), qRgb(1, 0, 250), qRgba(255, 0, 0, 128), // first two snap together
                             qRgb(0, 255, 0), qRgb(255, 0, 0), qRgb(0, 0, 255) };
    for (int i = 0; i < 6; ++i)
        source.setPixel(i % 3, i / 3, pixels[i]);
    NxImage nx;
    nx.load(source);
    QCOMPARE(nx.colours(), (QList<QRgb> { qRgb(0, 0, 255), qRgb(255, 0, 0), qRgb(0, 255, 0) }));
}

void TestImage::loadMissingFileFails()
{
    NxImage nx;
    nx.load(QImage(2, 2, QImage::Format_RGB32));
    QVERIFY(!nx.load(QStringLiteral("/no/such/picture.png")));
    QVERIFY(nx.colours().isEmpty());
}

void TestImage::remapTakesLowestEqualOpaqueEntry()
{
    Palette palette;
    palette.setEntry(0, 0xE000); // red
    palette.setEntry(7, 0x1C00); // green
    palette.setEntry(9, 0x1C00); // green again
    palette.setEntry(10, 0x0301); // blue, but transparent
    palette.setEntry(11, 0x0301);
    palette.setTransparencyIndex(10);
    QImage source(3, 1, QImage::Format_RGB32);
    source.setPixel(0, 0, qRgb(0, 255, 0));
    source.setPixel(1, 0, qRgb(250, 5, 0));
    source.setPixel(2, 0, qRgb(0, 0, 255));
    NxImage nx;
    nx.load(source);
    const QImage indexed = nx.remap(&palette);
    QCOMPARE(indexed.format(), QImage::Format_Indexed8);
    QCOMPARE(indexed.pixelIndex(0, 0), 7);
    QCOMPARE(indexed.pixelIndex(1, 0), 0);
    // Entry 10 is as near as entry 11, but only entry 11 compares equal.
    QCOMPARE(indexed.pixelIndex(2, 0), 11);
    QCOMPARE(indexed.colorTable(), palette.rgbTable());
    QVERIFY(nx.remap(nullptr).isNull());
}

void TestImage::toIndexedUsesOwnColours()
{
    QImage source(2, 2, QImage::Format_RGB32);
    source.fill(qRgb(255, 255, 255));
    source.setPixel(0, 0, qRgb(0, 0, 255));
    source.setPixel(1, 1, qRgb(0, 0, 255));
    NxImage nx;
    nx.load(source);
    const QImage indexed = nx.toIndexed();
    QCOMPARE(indexed.colorCount(), 256);
    QCOMPARE(indexed.color(0), qRgb(0, 0, 255));
    QCOMPARE(indexed.color(1), qRgb(255, 255, 255));
    QCOMPARE(indexed.pixelIndex(0, 0), 0);
    QCOMPARE(indexed.pixelIndex(1, 0), 1);
    QCOMPARE(indexed.pixelIndex(0, 1), 1);
}

void TestImage::compacted_data()
{
    QTest::addColumn<QList<int>>("pixels");
    QTest::addColumn<QList<QRgb>>("table");
    QTest::addColumn<QList<int>>("expectedPixels");
    QTest::addColumn<QList<QRgb>>("expectedTable");
    const QRgb red = qRgb(255, 0, 0), blue = qRgb(0, 0, 255);
    QTest::newRow("all zero has one colour") << QList<int> { 0, 0, 0, 0 } << QList<QRgb> { red, blue }
                                             << QList<int> { 0, 0, 0, 0 } << QList<QRgb> { red };
    QTest::newRow("renumbered by first use") << QList<int> { 5, 2, 5, 2 }
                                             << QList<QRgb> { 0, 0, red, 0, 0, blue }
                                             << QList<int> { 0, 1, 0, 1 } << QList<QRgb> { blue, red };
    QTest::newRow("equal entries merge") << QList<int> { 1, 3, 3, 1 } << QList<QRgb> { 0, red, 0, red }
                                         << QList<int> { 0, 0, 0, 0 } << QList<QRgb> { red };
}

void TestImage::compacted()
{
    QFETCH(QList<int>, pixels);
    QFETCH(QList<QRgb>, table);
    QFETCH(QList<int>, expectedPixels);
    QFETCH(QList<QRgb>, expectedTable);
    QImage source(2, 2, QImage::Format_Indexed8);
    source.setColorTable(table);
    for (int i = 0; i < 4; ++i)
        source.scanLine(i / 2)[i % 2] = uchar(pixels[i]);
    const QImage result = NxImage::compacted(source);
    QCOMPARE(result.colorTable(), expectedTable);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(result.pixelIndex(i % 2, i / 2), expectedPixels[i]);
    QCOMPARE(source.pixelIndex(0, 0), pixels[0]); // the input is untouched
}

void TestImage::rotateTurnsClockwiseAndKeepsTable()
{
    // (x, y) goes to (h - 1 - y, x), by bytes for indexed pictures and by pixels otherwise.
    QImage indexed(3, 2, QImage::Format_Indexed8);
    indexed.setColorTable({ qRgb(1, 2, 3), qRgb(4, 5, 6) });
    indexed.fill(0);
    indexed.setPixel(2, 0, 1);
    QImage argb(3, 2, QImage::Format_ARGB32);
    argb.fill(Qt::transparent);
    argb.setPixel(2, 0, qRgba(9, 8, 7, 255));
    const QImage turned = transformed(indexed, true, false, false);
    QCOMPARE(turned.size(), QSize(2, 3));
    QCOMPARE(turned.colorTable(), indexed.colorTable());
    QCOMPARE(turned.pixelIndex(1, 2), 1);
    QCOMPARE(turned.pixelIndex(0, 2), 0);
    QCOMPARE(transformed(argb, true, false, false).pixel(1, 2), qRgba(9, 8, 7, 255));
}

void TestImage::flagBits_data()
{
    // Which source pixels of a 3 x 3 picture numbered row by row land in the top corners.
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("topLeft");
    QTest::addColumn<int>("topRight");
    QTest::newRow("none") << 0 << 0 << 2;
    QTest::newRow("bit 0 flips vertically") << 1 << 6 << 8;
    QTest::newRow("bit 1 mirrors horizontally") << 2 << 2 << 0;
    QTest::newRow("flip and mirror") << 3 << 8 << 6;
    QTest::newRow("bit 2 rotates clockwise") << 4 << 6 << 0;
    QTest::newRow("rotate then flip") << 5 << 8 << 2;
    QTest::newRow("rotate then mirror") << 6 << 0 << 6;
    QTest::newRow("all three") << 7 << 2 << 8;
}

void TestImage::flagBits()
{
    QFETCH(int, flags);
    QFETCH(int, topLeft);
    QFETCH(int, topRight);
    QImage source(3, 3, QImage::Format_Indexed8);
    source.setColorCount(9);
    for (int i = 0; i < 9; ++i)
        source.setPixel(i % 3, i / 3, i);
    const QImage result = transformedByFlags(source, flags);
    QCOMPARE(result.pixelIndex(0, 0), topLeft);
    QCOMPARE(result.pixelIndex(2, 0), topRight);
}

void TestImage::hashIgnoresColourTable()
{
    QImage a(8, 8, QImage::Format_Indexed8);
    a.setColorCount(2);
    a.fill(1);
    QImage b = a.copy();
    b.setColorTable({ qRgb(9, 9, 9), qRgb(1, 1, 1) });
    QCOMPARE(imageHash(a), imageHash(b));
    QCOMPARE(imageHash(a).size(), 40);
    QCOMPARE(imageHash(a), imageHash(a).toLower());
    b.setPixel(3, 3, 0);
    QVERIFY(imageHash(a) != imageHash(b));
}

QTEST_GUILESS_MAIN(TestImage)
#include "tst_image.moc"
