#include "model/palette.h"
#include "model/tile.h"
#include "model/tileset.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Every signal of a set, in emission order, joined by ", ".
class SignalLog : public QObject
{
public:
    explicit SignalLog(TileSet* set)
    {
        auto add = [this](const QString& entry) { mEntries << entry; };
        connect(set, &TileSet::tileChanged, this, [=](int i) { add(QString("changed(%1)").arg(i)); });
        connect(set, &TileSet::tileDeleted, this, [=](int i) { add(QString("deleted(%1)").arg(i)); });
        connect(set, &TileSet::tileInserted, this, [=](int i) { add(QString("inserted(%1)").arg(i)); });
        connect(set, &TileSet::tileSwapped, this, [=](int a, int b) { add(QString("swapped(%1,%2)").arg(a).arg(b)); });
        connect(set, &TileSet::structureAboutToChange, this, [=] { add("about"); });
        connect(set, &TileSet::structureChanged, this, [=](const QString& text) { add(text); });
        connect(set, &TileSet::restored, this, [=] { add("restored"); });
    }
    QString text() const { return mEntries.join(", "); }

private:
    QStringList mEntries;
};

// Tile i gets pixel (0, 0), value and offset i + 1, so that each can be traced.
void mark(TileSet& set)
{
    for (int i = 0; i < set.count(); ++i) {
        QImage image = set.tile(i)->image();
        image.setPixel(0, 0, uint(i + 1));
        set.setTileImage(i, image);
        set.tile(i)->setValue(i + 1);
        set.setTileOffset(i, i + 1);
    }
}

// "pixel/value/offset" of each tile.
QString states(const TileSet& set)
{
    QStringList result;
    for (int i = 0; i < set.count(); ++i) {
        const Tile* tile = set.tile(i);
        result << QString("%1/%2/%3").arg(tile->image().pixelIndex(0, 0)).arg(tile->value()).arg(tile->offset());
    }
    return result.join(' ');
}

QString writeFile(const QTemporaryDir& dir, const QByteArray& bytes)
{
    QFile file(dir.filePath("data.bin"));
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
    return file.fileName();
}

} // namespace

class TestTileSet : public QObject
{
    Q_OBJECT
private slots:
    void renderPutsBankInHighNibble();
    void badIndicesAndPicturesAreHarmless();
    void structuralEdits_data();
    void structuralEdits();
    void paletteColourReachesEveryTileOnce();
    void importNxtReadsWholeTilesOnly_data();
    void importNxtReadsWholeTilesOnly();
    void importZXFont();
    void snapshotRestoreAndAssign();
    void pngRoundTrip();
};

void TestTileSet::renderPutsBankInHighNibble()
{
    TileSet set(1);
    QImage image = set.tile(0)->image();
    image.setPixel(7, 0, 0xA7); // top right, above 15: draws as its low nibble
    set.setTileImage(0, image);
    QCOMPARE(set.render(0, false, false, false, 3).pixelIndex(7, 0), 0x37);
    QCOMPARE(set.render(0, false, false, false, 19).pixelIndex(7, 0), 0x37);
    QCOMPARE(set.render(0, false, false, false, -1).pixelIndex(7, 0), 0xF7);
    // A clockwise turn takes the top right to the bottom right.
    QCOMPARE(set.render(0, true, false, false, 3).pixelIndex(7, 7), 0x37);
    QCOMPARE(set.tile(0)->image().pixelIndex(7, 0), 0xA7);
}

void TestTileSet::badIndicesAndPicturesAreHarmless()
{
    TileSet set(1);
    QTest::ignoreMessage(QtInfoMsg, "Image index out of range 1");
    QCOMPARE(set.render(1, false, false, false, 2).format(), QImage::Format_Indexed8);
    QVERIFY(!set.tile(-1) && !set.tile(1));
    QCOMPARE(set.tileOffset(1), 0);
    set.setTileImage(1, QImage());
    set.tile(0)->setColour(256, Qt::white);

    // A failed remap (no palette) hands over a null picture; the tile stays drawable.
    set.importImage(0, QImage(8, 8, QImage::Format_RGB32), 2);
    QCOMPARE(set.render(0, true, true, true, 2).size(), QSize(8, 8));
}

void TestTileSet::structuralEdits_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::addColumn<QString>("emitted");
    QTest::addColumn<QString>("after");
    QTest::newRow("insert into an empty set takes bank 1") << 0 << "insert" << 0 << 0
        << "about, inserted(0), Insert Tile" << "0/0/1";
    QTest::newRow("insert between") << 2 << "insert" << 1 << 0
        << "about, inserted(1), Insert Tile" << "1/1/1 0/0/1 2/2/2";
    QTest::newRow("delete") << 3 << "delete" << 1 << 0
        << "about, deleted(1), Delete Tile" << "1/1/1 3/3/3";
    QTest::newRow("copy takes image and offset, not value") << 4 << "copy" << 1 << 3
        << "about, changed(3), Copy Tile" << "1/1/1 2/2/2 3/3/3 2/4/2";
    QTest::newRow("move 5 up to 2") << 7 << "move" << 5 << 2
        << "about, swapped(5,4), swapped(4,3), swapped(3,2), Move Tile" << "1/1/1 2/2/2 6/6/6 3/3/3 4/4/4 5/5/5 7/7/7";
    QTest::newRow("move 1 down to 3") << 4 << "move" << 1 << 3
        << "about, swapped(1,2), swapped(2,3), Move Tile" << "1/1/1 3/3/3 4/4/4 2/2/2";
    const QString untouched = "1/1/1 2/2/2 3/3/3 4/4/4";
    QTest::newRow("copy onto itself") << 4 << "copy" << 3 << 3 << "" << untouched;
    QTest::newRow("copy to count") << 4 << "copy" << 2 << 4 << "" << untouched;
    QTest::newRow("move from negative") << 4 << "move" << -1 << 2 << "" << untouched;
    QTest::newRow("delete at count") << 4 << "delete" << 4 << 0 << "" << untouched;
    QTest::newRow("insert past count") << 4 << "insert" << 5 << 0 << "" << untouched;
    QTest::newRow("clear at negative") << 4 << "clear" << -1 << 0 << "" << untouched;
}

void TestTileSet::structuralEdits()
{
    QFETCH(int, count);
    QFETCH(QString, operation);
    QFETCH(int, first);
    QFETCH(int, second);
    QFETCH(QString, emitted);
    QFETCH(QString, after);
    TileSet set(count);
    mark(set);
    SignalLog log(&set);
    if (operation == "insert") set.insertTile(first);
    if (operation == "delete") set.deleteTile(first);
    if (operation == "copy") set.copyTile(first, second);
    if (operation == "move") set.moveTile(first, second);
    if (operation == "clear") set.clearImage(first);
    QCOMPARE(log.text(), emitted);
    QCOMPARE(states(set), after);
}

void TestTileSet::paletteColourReachesEveryTileOnce()
{
    Palette first;
    Palette second;
    TileSet set(3);
    set.setPalette(&first);
    set.setPalette(&first); // still one connection
    QCOMPARE(set.paletteId(), first.id());
    QSignalSpy changed(&set, &TileSet::tileChanged);
    first.setColour(7, QColor(0, 255, 0), false);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), 0);
    QCOMPARE(set.tile(2)->image().color(7), qRgb(0, 255, 0));

    set.setPalette(&second);
    first.setColour(5, Qt::white, false);
    QCOMPARE(changed.count(), 1);
    second.setColour(5, Qt::white, false);
    QCOMPARE(changed.count(), 2);
}

void TestTileSet::importNxtReadsWholeTilesOnly_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<QString>("after");
    QTest::newRow("31 bytes change nothing") << 31 << "1/1/1 2/2/2 3/3/3";
    QTest::newRow("33 bytes change one tile") << 33 << "10/1/0 2/2/2 3/3/3";
    QTest::newRow("more tiles than the set") << 32 * 5 << "10/1/0 10/2/0 10/3/0";
}

void TestTileSet::importNxtReadsWholeTilesOnly()
{
    QFETCH(int, bytes);
    QFETCH(QString, after);
    TileSet set(3);
    mark(set);
    QTemporaryDir dir;
    SignalLog log(&set);
    QVERIFY(set.importNxt(writeFile(dir, QByteArray(bytes, char(0xAB)))));
    QCOMPARE(states(set), after);
    QCOMPARE(log.text(), QString());
    QVERIFY(!set.importNxt(dir.filePath("missing.nxt")));
}

void TestTileSet::importZXFont()
{
    QByteArray font(800, '\0');
    for (int i = 0; i < font.size(); i += 8)
        font[i] = char(0xC0); // the two leftmost pixels of the top row
    QTemporaryDir dir;
    TileSet set(64);
    QSignalSpy spy(&set, &TileSet::tileChanged);
    QVERIFY(set.importZXFont(0, 5, 2, 3, writeFile(dir, font))); // stops at the last tile
    QCOMPARE(spy.count(), 64);
    QCOMPARE(spy.at(63).at(0).toInt(), 63);
    const QImage glyph = set.tile(63)->image();
    QCOMPARE(glyph.pixelIndex(1, 0) * 100 + glyph.pixelIndex(2, 0) * 10 + glyph.pixelIndex(7, 7), 522);
    QCOMPARE(set.tileOffset(63), 3);

    // A glyph cut short fails; the one before it stays imported.
    TileSet cut(4);
    QVERIFY(!cut.importZXFont(1, 5, 2, 7, writeFile(dir, font.left(12))));
    QCOMPARE(states(cut), "0/0/0 5/0/7 0/0/0 0/0/0");
}

void TestTileSet::snapshotRestoreAndAssign()
{
    TileSet set(5);
    mark(set);
    const TileSetEdit before = set.snapshot();
    TileSetEdit unshared = before; // an edit that reached the snapshot would show against this
    for (TileRecord& record : unshared)
        record.image = record.image.copy();
    set.insertTile(2);
    set.moveTile(0, 4);
    set.updateColour(1, Qt::red);
    set.tile(3)->setAttributes(Tile::TA_DEADLY | Tile::TA_LADDER);
    QCOMPARE(before, unshared);

    SignalLog log(&set);
    set.restore(before);
    QCOMPARE(log.text(), QString("restored"));
    QCOMPARE(set.snapshot(), before);

    TileSet copy(1);
    SignalLog copyLog(&copy);
    copy.assign(&set);
    copy.assign(&copy);
    QCOMPARE(copy.snapshot(), before);
    QCOMPARE(copy.tile(4)->parent(), &copy);
    QCOMPARE(copyLog.text(), QString());
    set.updateColour(1, Qt::red);
    QCOMPARE(copy.snapshot(), before);
}

void TestTileSet::pngRoundTrip()
{
    Palette palette;
    palette.loadStandard();
    TileSet set(3);
    mark(set);
    set.tile(1)->setImage(set.render(1, false, false, false, 12)); // raw bytes travel, high nibble too
    const QByteArray png = set.toPng(&palette);

    TileSet loaded(3);
    QVERIFY(loaded.fromPng(png));
    QCOMPARE(states(loaded), "1/0/0 194/0/0 3/0/0");
    QCOMPARE(loaded.tile(1)->image().colorTable(), palette.rgbTable());

    QVERIFY(!TileSet(4).fromPng(png));
    QVERIFY(!loaded.fromPng("not a picture"));
}

QTEST_GUILESS_MAIN(TestTileSet)
#include "tst_tileset.moc"
