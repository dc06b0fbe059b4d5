#include "model/map.h"
#include "model/palette.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/projectstore.h"
#include "project/zipfile.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class TestProjectStore : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void createReplacesTheOpenProject();
    void saveAndLoadKeepIds();
    void backupsKeepOneGenerationOnSaveOnly();
    void saveAsToAnUnwritablePathClearsThePath();
    void loadRefuses_data();
    void loadRefuses();
    void fingerprintIgnoresOpenTabs();
    void exports_data();
    void exports();

private:
    QString path(const QString& name) const { return mDir->filePath(name); }
    QByteArray fileBytes(const QString& name) const;

    std::unique_ptr<QTemporaryDir> mDir;
};

void TestProjectStore::init()
{
    mDir = std::make_unique<QTemporaryDir>();
}

QByteArray TestProjectStore::fileBytes(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestProjectStore::createReplacesTheOpenProject()
{
    ProjectStore store;
    const QPointer<Project> first = store.create("one", false);
    QVERIFY(first->palettes().isEmpty());
    const QPointer<Project> second = store.create("two", true);
    QVERIFY(!first);
    QCOMPARE(second->name(), QStringLiteral("two"));
    QCOMPARE(second->palettes().size(), 1);
    QCOMPARE(second->palettes().first()->name(), QStringLiteral("Standard Next"));
    QCOMPARE(second->scratchPalette(), second->palettes().first()->id());
    store.closeProject();
    QVERIFY(!second);
    QVERIFY(store.fingerprint().isEmpty());
}

void TestProjectStore::saveAndLoadKeepIds()
{
    ProjectStore store;
    const QPointer<Project> project = store.create("Game", false);
    const auto tiles = project->createTileSet("Tiles", QUuid(), 16);
    const auto map = project->createMap("Level", tiles->id(), QSize(4, 3));
    map->setTile({ 1, 1 }, { 9, false, true, false, 2, true });
    const QUuid projectId = project->id();
    const QUuid mapId = map->id();
    QSignalSpy messages(&store, &ProjectStore::showMessage);
    QVERIFY(store.saveAs(path("game.tintorel")));
    QCOMPARE(messages.last().at(0).toString(), "Saved Game to " + path("game.tintorel"));
    QCOMPARE(messages.last().at(1).toInt(), 2500);

    ProjectStore reader;
    QSignalSpy loaded(&reader, &ProjectStore::projectLoad);
    QVERIFY(reader.load(path("game.tintorel")));
    QCOMPARE(loaded.count(), 1);
    QCOMPARE(reader.filePath(), path("game.tintorel"));
    QCOMPARE(reader.project()->id(), projectId);
    const QPointer<Map> back = reader.project()->map(mapId);
    QVERIFY(back);
    QCOMPARE(back->tile({ 1, 1 }), map->tile({ 1, 1 }));
    // A second generation reads back exactly as the first was read.
    QVERIFY(reader.saveAs(path("again.tintorel")));
    ProjectStore again;
    QVERIFY(again.load(path("again.tintorel")));
    QCOMPARE(again.fingerprint(), reader.fingerprint());
}

// Save keeps the file it replaces as one backup; Save As never makes one.
void TestProjectStore::backupsKeepOneGenerationOnSaveOnly()
{
    ProjectStore store;
    store.create("first", false);
    store.setFilePath(path("p.tintorel"));
    QVERIFY(store.save(true)); // nothing to back up yet
    QVERIFY(!QFile::exists(path("p.tintorel.bak")));
    const QByteArray firstSave = fileBytes("p.tintorel");
    store.project()->setName("second");
    QVERIFY(store.save(true));
    QCOMPARE(fileBytes("p.tintorel.bak"), firstSave);
    const QByteArray secondSave = fileBytes("p.tintorel");
    store.project()->setName("third");
    QVERIFY(store.save(true));
    QCOMPARE(fileBytes("p.tintorel.bak"), secondSave);
    QCOMPARE(QDir(mDir->path()).entryList(QDir::Files).size(), 2);

    const QByteArray thirdSave = fileBytes("p.tintorel");
    store.project()->setName("renamed");
    QVERIFY(store.saveAs(path("new.tintorel")));
    QVERIFY(store.saveAs(path("new.tintorel")));
    QVERIFY(!QFile::exists(path("new.tintorel.bak")));
    QCOMPARE(fileBytes("p.tintorel"), thirdSave);
}

void TestProjectStore::saveAsToAnUnwritablePathClearsThePath()
{
    ProjectStore store;
    store.create("p", false);
    store.setFilePath(path("kept.tintorel"));
    QSignalSpy errors(&store, &ProjectStore::saveError);
    QVERIFY(!store.saveAs(path("no/such/folder/p.tintorel")));
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.at(0).at(0).toString(), QStringLiteral("Could not create the project file"));
    QVERIFY(store.filePath().isEmpty());
    QVERIFY(store.project()); // the project stays open and untouched
}

void TestProjectStore::loadRefuses_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("message");
    QTest::newRow("missing file") << "missing" << "Invalid project file";
    QTest::newRow("not a zip") << "text" << "Invalid project file";
    QTest::newRow("zip without project.json") << "nojson" << "Invalid project file";
    QTest::newRow("newer format") << "newer" << "Project file is from a newer version of Tintorel";
    QTest::newRow("garbled project.json") << "garbled"
                                          << "Invalid project file: project.json does not parse (unterminated "
                                             "array at line 1, column 11)";
}

void TestProjectStore::loadRefuses()
{
    QFETCH(QString, kind);
    QFETCH(QString, message);
    const QString file = path("bad.tintorel");
    if (kind == "text") {
        QFile text(file);
        QVERIFY(text.open(QIODevice::WriteOnly));
        text.write("not an archive");
    } else if (kind != "missing") {
        ZipFile zip;
        QVERIFY(zip.openWrite(file));
        const QByteArray document = kind == "garbled" ? "{\"maps\": [" : "{\"formatVersion\": 3}";
        zip.write(kind == "nojson" ? "other.json" : "project.json", document);
        QVERIFY(zip.close());
    }
    QFile before(file);
    const QByteArray bytes = before.open(QIODevice::ReadOnly) ? before.readAll() : QByteArray();
    before.close();
    ProjectStore store;
    store.create("loading...", false);
    QSignalSpy errors(&store, &ProjectStore::loadError);
    QVERIFY(!store.load(file));
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.at(0).at(0).toString(), message);
    QVERIFY(!store.project());
    QVERIFY(store.filePath().isEmpty());
    QFile after(file);
    QCOMPARE(after.open(QIODevice::ReadOnly) ? after.readAll() : QByteArray(), bytes); // left as it was
}

void TestProjectStore::fingerprintIgnoresOpenTabs()
{
    ProjectStore store;
    const QPointer<Project> project = store.create("p", false);
    const QByteArray empty = store.fingerprint();
    QCOMPARE(empty.size(), 20);
    project->setOpenDocuments({ QUuid::createUuid().toString() });
    QCOMPARE(store.fingerprint(), empty);
    project->createPalette(CreateAction::Standard, "new");
    QVERIFY(store.fingerprint() != empty);
}

void TestProjectStore::exports_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("target"); // "known", "unknown", "unwritable"
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("file");
    QTest::newRow("map") << "map" << "known" << "Map exported" << "Level_tilemap.bin";
    QTest::newRow("map unknown") << "map" << "unknown" << "Invalid map id" << "";
    QTest::newRow("map failed") << "map" << "unwritable" << "Exporting the map failed" << "";
    QTest::newRow("tiles") << "tiles" << "known" << "Tile set exported" << "Tiles_tiles.nxt";
    QTest::newRow("tiles unknown") << "tiles" << "unknown" << "Invalid tile set id" << "";
    QTest::newRow("tiles failed") << "tiles" << "unwritable" << "Exporting the tile set failed" << "";
    QTest::newRow("palette") << "palette" << "known" << "Palette exported" << "Colours_palette.bin";
    QTest::newRow("palette unknown") << "palette" << "unknown" << "Invalid palette id" << "";
    QTest::newRow("palette failed") << "palette" << "unwritable" << "Exporting the palette failed" << "";
}

void TestProjectStore::exports()
{
    QFETCH(QString, kind);
    QFETCH(QString, target);
    QFETCH(QString, message);
    QFETCH(QString, file);
    ProjectStore store;
    const QPointer<Project> project = store.create("p", false);
    const auto palette = project->createPalette(CreateAction::Standard, "Colours");
    const auto tiles = project->createTileSet("Tiles", palette->id(), 4);
    const auto map = project->createMap("Level", tiles->id(), QSize(2, 2));
    QUuid id = kind == "map" ? map->id() : kind == "tiles" ? tiles->id() : palette->id();
    if (target == "unknown")
        id = QUuid::createUuid();
    const QString dir = target == "unwritable" ? path("missing/folder") : mDir->path();

    QSignalSpy messages(&store, &ProjectStore::showMessage);
    QSignalSpy errors(&store, &ProjectStore::saveError);
    if (kind == "map")
        store.exportMap(dir, id);
    else if (kind == "tiles")
        store.exportTiles(dir, id);
    else
        store.exportPalette(dir, id);
    QSignalSpy& spy = target == "known" ? messages : errors;
    QCOMPARE(messages.count() + errors.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), message);
    if (target == "known") {
        QCOMPARE(messages.at(0).at(1).toInt(), 2000);
        QVERIFY(QFile::exists(path(file)));
    }
}

QTEST_GUILESS_MAIN(TestProjectStore)
#include "tst_projectstore.moc"
