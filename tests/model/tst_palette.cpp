#include "model/palette.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class TestPalette : public QObject
{
    Q_OBJECT
private slots:
    void decodeLevel_data();
    void decodeLevel();
    void snapChannel_data();
    void snapChannel();
    void encodeLayout_data();
    void encodeLayout();
    void standardEntries_data();
    void standardEntries();

    void setColourEmitsChangedThenEdited();
    void setColourEmitsOnlyWhenTheEntryChanges();
    void restoreAndFillEmitPerChangedEntry();
    void setNameEmitsOnlyOnChange();
    void badIndicesDoNothing();

    void transparencyAffectsColourNotRgbTableNorCopies();
    void nearestIndex_data();
    void nearestIndex();

    void fileSizeByName_data();
    void fileSizeByName();
    void importRefusesWrongSize_data();
    void importRefusesWrongSize();
    void roundTripThroughFile();

private:
    QTemporaryDir mDir;
};

void TestPalette::decodeLevel_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("channel");
    const int expected[8] = { 0, 37, 73, 110, 146, 183, 219, 255 };
    for (int level = 0; level < 8; ++level)
        QTest::addRow("level %d", level) << level << expected[level];
}

void TestPalette::decodeLevel()
{
    QFETCH(int, level);
    QFETCH(int, channel);
    // The same level in every channel: red bits 15-13, green 12-10, blue 9-8 and 0.
    const ushort raw = ushort((level << 13) | (level << 10) | ((level >> 1) << 8) | (level & 1));
    QCOMPARE(Palette::decode(raw), QColor(channel, channel, channel));
}

void TestPalette::snapChannel_data()
{
    QTest::addColumn<int>("input");
    QTest::addColumn<int>("snapped");
    QTest::addColumn<int>("level");
    QTest::newRow("0 stays") << 0 << 0 << 0;
    QTest::newRow("24 goes down to 16") << 24 << 16 << 0;
    QTest::newRow("25 goes up to 32") << 25 << 32 << 1;
    QTest::newRow("40 ties and goes down") << 40 << 32 << 1;
    // The edges of levels 1 to 6: the top of level n and the start of n + 1.
    for (int level = 1; level < 7; ++level) {
        const int top = 24 + 32 * level;
        QTest::addRow("%d is the top of level %d", top, level) << top << top - 8 << level;
        QTest::addRow("%d starts level %d", top + 1, level + 1) << top + 1 << top + 8 << level + 1;
    }
    QTest::newRow("219 from level 6 decodes to level 7") << 219 << 224 << 7;
    QTest::newRow("247 snaps to 240") << 247 << 240 << 7;
    QTest::newRow("248 snaps to 255") << 248 << 255 << 7;
    QTest::newRow("255 stays") << 255 << 255 << 7;
}

void TestPalette::snapChannel()
{
    QFETCH(int, input);
    QFETCH(int, snapped);
    QFETCH(int, level);
    // A transparent input still snaps to an opaque colour.
    QCOMPARE(Palette::snapColour(QColor(input, input, input, 0)), QColor(snapped, snapped, snapped));
    const ushort raw = Palette::encode(QColor(input, input, input), false);
    QCOMPARE((raw >> 13) & 7, level);
    QCOMPARE((raw >> 10) & 7, level);
    QCOMPARE(((raw >> 7) & 6) | (raw & 1), level);
}

void TestPalette::encodeLayout_data()
{
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<bool>("priority");
    QTest::addColumn<int>("raw");
    QTest::newRow("black") << QColor(0, 0, 0) << false << 0x0000;
    QTest::newRow("black with priority") << QColor(0, 0, 0) << true << 0x0080;
    QTest::newRow("pure red") << QColor(255, 0, 0) << false << 0xE000;
    QTest::newRow("pure green") << QColor(0, 255, 0) << false << 0x1C00;
    QTest::newRow("pure blue sets the low bit") << QColor(0, 0, 255) << false << 0x0301;
    QTest::newRow("blue level 1 is the low bit alone") << QColor(0, 0, 37) << false << 0x0001;
    QTest::newRow("white with priority") << QColor(255, 255, 255) << true << 0xFF81;
}

void TestPalette::encodeLayout()
{
    QFETCH(QColor, colour);
    QFETCH(bool, priority);
    QFETCH(int, raw);
    QCOMPARE(int(Palette::encode(colour, priority)), raw);
}

void TestPalette::standardEntries_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("raw");
    QTest::newRow("0") << 0 << 0x0000;
    QTest::newRow("1") << 1 << 0x0101;
    QTest::newRow("3") << 3 << 0x0301;
    QTest::newRow("4") << 4 << 0x0400;
    QTest::newRow("227") << 227 << 0xE301;
    QTest::newRow("255") << 255 << 0xFF01;
}

void TestPalette::standardEntries()
{
    QFETCH(int, index);
    QFETCH(int, raw);
    Palette palette;
    QSignalSpy changed(&palette, &Palette::colourChanged);
    palette.loadStandard();
    QCOMPARE(int(palette.entry(index)), raw);
    QVERIFY(!palette.priority(index));
    QCOMPARE(changed.count(), 0);
}

void TestPalette::setColourEmitsChangedThenEdited()
{
    Palette palette;
    QList<QString> order;
    connect(&palette, &Palette::colourChanged, this, [&] { order << "changed"; });
    connect(&palette, &Palette::colourEdited, this, [&] { order << "edited"; });
    QSignalSpy changed(&palette, &Palette::colourChanged);
    QSignalSpy edited(&palette, &Palette::colourEdited);

    palette.setColour(7, QColor(230, 100, 30), true);

    QCOMPARE(order, (QList<QString> { "changed", "edited" }));
    // The snapped colour travels, not what the entry will decode to.
    QCOMPARE(changed.at(0), (QVariantList { 7, QColor(224, 96, 32), true }));
    QCOMPARE(edited.at(0).at(1).value<ushort>(), ushort(0));
    QCOMPARE(edited.at(0).at(2).value<ushort>(), palette.entry(7));
    QCOMPARE(palette.colour(7), QColor(255, 110, 37));
}

void TestPalette::setColourEmitsOnlyWhenTheEntryChanges()
{
    Palette palette;
    palette.setColour(3, QColor(255, 0, 0), false);
    palette.setEntry(5, ushort(6 << 10)); // green level 6
    QSignalSpy changed(&palette, &Palette::colourChanged);
    QSignalSpy edited(&palette, &Palette::colourEdited);
    palette.setColour(3, QColor(250, 10, 5), false); // snaps to the same levels
    QCOMPARE(changed.count() + edited.count(), 0);
    palette.setColour(3, QColor(255, 0, 0), true); // only the priority differs
    QCOMPARE(edited.count(), 1);
    // Level 6 decodes to a channel that encodes as level 7.
    palette.setColour(5, palette.colour(5), palette.priority(5));
    QCOMPARE(changed.count(), 2);
    QCOMPARE(edited.count(), 2);
    QCOMPARE((palette.entry(5) >> 10) & 7, 7);
}

void TestPalette::restoreAndFillEmitPerChangedEntry()
{
    Palette palette;
    QSignalSpy changed(&palette, &Palette::colourChanged);
    QSignalSpy edited(&palette, &Palette::colourEdited);
    palette.restoreEntry(9, 0x0000);
    QCOMPARE(changed.count(), 0);
    palette.restoreEntry(9, 0x1C80); // not an edit of the user's
    QCOMPARE(changed.count(), 1);
    QCOMPARE(edited.count(), 0);
    QCOMPARE(changed.at(0), (QVariantList { 9, QColor(0, 255, 0), true }));
    QCOMPARE(palette.entry(9), ushort(0x1C80));

    palette.setEntry(200, 0x0301);
    palette.fill(Qt::black, false);
    QCOMPARE(edited.count(), 2);
    QCOMPARE(edited.at(0).at(0).toInt(), 9);
    QCOMPARE(edited.at(1).at(0).toInt(), 200);
}

void TestPalette::setNameEmitsOnlyOnChange()
{
    Palette palette;
    QSignalSpy named(&palette, &Palette::nameChanged);
    palette.setName("untitled");
    palette.setName("Level 1");
    palette.setName("Level 1");
    QCOMPARE(named.count(), 1);
    QCOMPARE(named.at(0).at(0).toString(), QStringLiteral("Level 1"));
    QVERIFY(!palette.id().isNull() && Palette().id() != palette.id());
}

void TestPalette::badIndicesDoNothing()
{
    Palette palette;
    QSignalSpy changed(&palette, &Palette::colourChanged);
    for (int index : { -1, 256, 100000 }) {
        palette.setColour(index, Qt::white, true);
        palette.restoreEntry(index, 0xFFFF);
        palette.setEntry(index, 0xFFFF);
        QCOMPARE(palette.entry(index), ushort(0));
        QVERIFY(!palette.priority(index));
        QVERIFY(!palette.colour(index).isValid());
    }
    QCOMPARE(changed.count(), 0);
}

void TestPalette::transparencyAffectsColourNotRgbTableNorCopies()
{
    Palette palette;
    QCOMPARE(palette.colour(0).alpha(), 255); // none is transparent until one is set
    palette.setTransparencyIndex(0);
    QCOMPARE(palette.colour(0).alpha(), 0);
    QCOMPARE(palette.colours().at(0).alpha(), 0);
    QCOMPARE(qAlpha(palette.rgbTable().at(0)), 255);
    QCOMPARE(palette.rgbTable().size(), 256);

    Palette source;
    source.loadStandard();
    source.setTransparencyIndex(3);
    QSignalSpy changed(&palette, &Palette::colourChanged);
    palette.copyEntries(&source);
    palette.copyEntries(nullptr);
    QCOMPARE(palette.entry(255), ushort(0xFF01));
    QCOMPARE(palette.transparencyIndex(), 0);
    QCOMPARE(changed.count(), 0);
}

void TestPalette::nearestIndex_data()
{
    QTest::addColumn<QString>("setup");
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<int>("expected");
    QTest::newRow("all black: white ties to the lowest") << "blank" << QColor(Qt::white) << 0;
    QTest::newRow("transparent 0 fails equality, 1 matches") << "transparent0" << QColor::fromRgb(0, 0, 0) << 1;
    QTest::newRow("exact standard colour") << "standard" << QColor::fromRgb(255, 0, 0) << 0xE0;
    QTest::newRow("near colour takes the closest") << "standard" << QColor::fromRgb(250, 5, 3) << 0xE0;
    QTest::newRow("priority takes no part") << "priority" << QColor::fromRgb(0, 255, 0) << 5;
}

void TestPalette::nearestIndex()
{
    QFETCH(QString, setup);
    QFETCH(QColor, colour);
    QFETCH(int, expected);
    Palette palette;
    if (setup == "transparent0")
        palette.setTransparencyIndex(0);
    if (setup == "standard")
        palette.loadStandard();
    if (setup == "priority") {
        palette.setEntry(4, 0x1C00);
        palette.setEntry(5, 0x1C80);
        palette.setTransparencyIndex(4);
    }
    QCOMPARE(palette.nearestIndex(colour), expected);
}

void TestPalette::fileSizeByName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    QTest::newRow(".pal") << "colours.pal" << 512;
    QTest::newRow(".nxp") << "colours.nxp" << 512;
    QTest::newRow(".npl") << "colours.npl" << 513;
    QTest::newRow("upper-case .NPL") << "A.NPL" << 513;
    QTest::newRow("no suffix") << "colours" << 512;
    QTest::newRow("binary export, named after the palette") << "" << 512;
}

void TestPalette::fileSizeByName()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    Palette palette;
    palette.loadStandard();
    palette.setName("hero");
    const QString path = mDir.filePath(name.isEmpty() ? "hero_palette.bin" : name);
    QVERIFY(name.isEmpty() ? palette.exportBinary(mDir.path()) : palette.exportData(path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QCOMPARE(bytes.size(), size);
    QCOMPARE(bytes.left(10), QByteArray::fromHex("00000101020103010400"));
    if (size == 513)
        QCOMPARE(bytes.at(512), '\0');

    Palette loaded;
    QVERIFY(loaded.importData(path));
    QCOMPARE(loaded.entry(255), ushort(0xFF01));
}

void TestPalette::importRefusesWrongSize_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    QTest::newRow("512 bytes named .npl") << "x.npl" << 512;
    QTest::newRow("513 bytes named .pal") << "x.pal" << 513;
    QTest::newRow("empty") << "x.pal" << 0;
    QTest::newRow("truncated") << "x.pal" << 511;
}

void TestPalette::importRefusesWrongSize()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    QFile file(mDir.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(QByteArray(size, char(0xFF)));
    file.close();
    Palette palette;
    QVERIFY(!palette.importData(file.fileName()));
    QCOMPARE(palette.entry(0), ushort(0));
    QVERIFY(!palette.importData(mDir.filePath("missing.pal")));
    QVERIFY(!palette.exportData(mDir.filePath("no/such/folder.pal")));
}

void TestPalette::roundTripThroughFile()
{
    Palette palette;
    for (int i = 0; i < Palette::Size; ++i)
        palette.setEntry(i, ushort((i * 0x9E37) & 0xFF81)); // bits 6-1 never set by setColour
    QVERIFY(palette.exportData(mDir.filePath("p.npl")));
    Palette loaded;
    QSignalSpy changed(&loaded, &Palette::colourChanged);
    QVERIFY(loaded.importData(mDir.filePath("p.npl")));
    QCOMPARE(changed.count(), 0);
    for (int i = 0; i < Palette::Size; ++i)
        QCOMPARE(loaded.entry(i), palette.entry(i));
}

QTEST_GUILESS_MAIN(TestPalette)
#include "tst_palette.moc"
