#include "model/map.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"
#include "project/project.h"
#include "project/projectstore.h"
#include "project/zipfile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// The command-line tool run as a makefile would run it.
class TestCli : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void info();
    void exportEverythingOrOneMap();
    void importIntoNewAndExistingProjects();
    void exportedTileMapImportsBack();
    void failedImportLeavesTheProjectAlone();
    void damagedProjectIsNeverSavedOver_data();
    void damagedProjectIsNeverSavedOver();
    void importWarnsOfWhatItLeftOut();
    void assetsOfOneNameGetFilesOfTheirOwn();
    void render();
    void failures_data();
    void failures();

private:
    struct Result
    {
        int status;
        QByteArray out;
        QByteArray err;
    };
    Result run(const QStringList& arguments) const;

    QTemporaryDir mDir;
    QString mProject;
};

TestCli::Result TestCli::run(const QStringList& arguments) const
{
    QProcess process;
    process.start(TINTOREL_CLI, arguments);
    if (!process.waitForFinished(60000))
        return { -1, {}, {} };
    return { process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1, process.readAllStandardOutput(),
             process.readAllStandardError() };
}

void TestCli::initTestCase()
{
    ProjectStore store;
    const QPointer<Project> project = store.create("Game", false);
    const auto palette = project->createPalette(CreateAction::Standard, "Colours");
    const auto tiles = project->createTileSet("Tiles", palette->id(), 20);
    const auto forest = project->createMap("Forest", tiles->id(), QSize(5, 4));
    forest->setTile({ 0, 0 }, { 300, true, false, true, 5, true });
    project->createMap("Cave", tiles->id(), QSize(2, 2));
    const auto bank = project->createSpriteBank(Tintorel::Sprite::EightBit, "Hero", palette->id());
    bank->addSprite();
    project->createImage(Tintorel::ImageMode::Layer2_320x256, "Title", palette->id());
    mProject = mDir.filePath("game.tintorel");
    QVERIFY(store.saveAs(mProject));
}

void TestCli::info()
{
    const Result result = run({ "info", mProject });
    QCOMPARE(result.status, 0);
    const QJsonObject info = QJsonDocument::fromJson(result.out).object();
    QCOMPARE(info["name"].toString(), QStringLiteral("Game"));
    QVERIFY(!QUuid::fromString(info["id"].toString()).isNull());
    const QJsonArray maps = info["maps"].toArray();
    QCOMPARE(maps.size(), 2);
    QCOMPARE(maps.at(0)["name"].toString(), QStringLiteral("Cave")); // sorted by name
    QCOMPARE(maps.at(1)["size"]["width"].toInt(), 5);
    QCOMPARE(maps.at(1)["size"]["height"].toInt(), 4);
    QCOMPARE(info["tileSets"].toArray().at(0)["size"].toInt(), 20);
    QCOMPARE(info["spriteBanks"].toArray().at(0)["size"].toInt(), 2);
    QCOMPARE(info["images"].toArray().at(0)["size"].toString(), QStringLiteral("Layer2_320x256"));
    QCOMPARE(info["palettes"].toArray().at(0)["name"].toString(), QStringLiteral("Colours"));
}

void TestCli::exportEverythingOrOneMap()
{
    const QString out = mDir.filePath("all/assets");
    QCOMPARE(run({ "export", mProject, "--out", out }).status, 0);
    const QDir dir(out);
    QCOMPARE(QFileInfo(dir.filePath("Forest_tilemap.bin")).size(), 5 * 4 * 2);
    QCOMPARE(QFileInfo(dir.filePath("Cave_tilemap.bin")).size(), 2 * 2 * 2);
    QCOMPARE(QFileInfo(dir.filePath("Tiles_tiles.nxt")).size(), 20 * 32);
    QCOMPARE(QFileInfo(dir.filePath("Colours_palette.bin")).size(), 512);
    QCOMPARE(QFileInfo(dir.filePath("Hero.spr")).size(), 2 * 256);
    QFile map(dir.filePath("Forest_tilemap.bin"));
    QVERIFY(map.open(QIODevice::ReadOnly));
    QCOMPARE(map.read(2), QByteArray::fromHex("2c5b"));

    const QString one = mDir.filePath("one");
    QCOMPARE(run({ "export", mProject, "--out", one, "--map", "Cave" }).status, 0);
    QCOMPARE(QDir(one).entryList(QDir::Files),
             (QStringList { "Cave_tilemap.bin", "Colours_palette.bin", "Tiles_tiles.nxt" }));
}

void TestCli::importIntoNewAndExistingProjects()
{
    QImage picture(24, 16, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    picture.setPixel(3, 3, qRgb(255, 255, 0));
    const QString png = mDir.filePath("intro.png");
    QVERIFY(picture.save(png));
    const QString project = mDir.filePath("imported.tintorel");

    QCOMPARE(run({ "import", png, "--project", project }).status, 0);
    QVERIFY(!QFile::exists(project + ".bak"));
    QJsonObject info = QJsonDocument::fromJson(run({ "info", project }).out).object();
    QCOMPARE(info["name"].toString(), QStringLiteral("intro"));
    QCOMPARE(info["maps"].toArray().at(0)["size"]["width"].toInt(), 3);

    QCOMPARE(run({ "import", png, "--project", project }).status, 0);
    QVERIFY(QFile::exists(project + ".bak"));
    info = QJsonDocument::fromJson(run({ "info", project }).out).object();
    QCOMPARE(info["maps"].toArray().size(), 2);
}

// The export's three files of a map whose assets have other names, named
// on the command line, and exported again as they were.
void TestCli::exportedTileMapImportsBack()
{
    const QString out = mDir.filePath("cave-out");
    QCOMPARE(run({ "export", mProject, "--out", out, "--map", "Cave" }).status, 0);
    const QDir dir(out);
    const QString project = mDir.filePath("cave-back.tintorel");
    const Result imported = run({ "import", dir.filePath("Cave_tilemap.bin"), "--width", "2", "--tiles",
                                  dir.filePath("Tiles_tiles.nxt"), "--palette", dir.filePath("Colours_palette.bin"),
                                  "--project", project });
    QVERIFY2(imported.status == 0, imported.err.constData());
    const QString again = mDir.filePath("cave-again");
    QCOMPARE(run({ "export", project, "--out", again }).status, 0);
    const auto bytes = [](const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    QCOMPARE(bytes(QDir(again).filePath("Cave_tilemap.bin")), bytes(dir.filePath("Cave_tilemap.bin")));
    QCOMPARE(bytes(QDir(again).filePath("Cave_palette.bin")), bytes(dir.filePath("Colours_palette.bin")));
}

void TestCli::failedImportLeavesTheProjectAlone()
{
    const auto bytes = [](const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArray before = bytes(mProject);
    const QString bad = mDir.filePath("bad.png");
    QFile file(bad);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no picture here") > 0);
    file.close();
    const Result result = run({ "import", bad, "--project", mProject });
    QCOMPARE(result.status, 1);
    QVERIFY(result.err.contains("Could not read the image file"));
    QCOMPARE(bytes(mProject), before);
    QVERIFY(!QFile::exists(mProject + ".bak"));
}

void TestCli::damagedProjectIsNeverSavedOver_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("message");
    QTest::newRow("garbled JSON") << QByteArray("{ \"name\": \"Game\", \"maps\": [") << "does not parse";
    QTest::newRow("not an object") << QByteArray("[ \"Game\" ]") << "does not hold an object";
}

void TestCli::damagedProjectIsNeverSavedOver()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, message);
    const QString path = mDir.filePath(QStringLiteral("damaged-%1.tintorel").arg(QTest::currentDataTag()));
    ZipFile zip;
    QVERIFY(zip.openWrite(path) && zip.write("project.json", document) && zip.close());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    file.close();

    const QString png = mDir.filePath("intro.png");
    QImage(8, 8, QImage::Format_RGB32).save(png);
    for (const QStringList& arguments : { QStringList { "import", png, "--project", path }, QStringList { "info", path } }) {
        const Result result = run(arguments);
        QCOMPARE(result.status, 1);
        QVERIFY2(result.err.contains("Invalid project file: project.json " + message.toUtf8()), result.err);
    }
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), before);
    QVERIFY(!QFile::exists(path + ".bak"));
}

void TestCli::importWarnsOfWhatItLeftOut()
{
    QImage picture(20, 8, QImage::Format_RGB32);
    picture.fill(Qt::green);
    const QString png = mDir.filePath("strip.png");
    QVERIFY(picture.save(png));
    const Result result = run({ "import", png, "--project", mDir.filePath("strip.tintorel") });
    QCOMPARE(result.status, 0);
    QCOMPARE(result.err.count("warning:"), 1);
    QVERIFY2(result.err.contains("the last 4 columns and 0 rows are not whole tiles"), result.err);
}

void TestCli::assetsOfOneNameGetFilesOfTheirOwn()
{
    ProjectStore store;
    const QPointer<Project> project = store.create("Twins", false);
    const auto palette = project->createPalette(CreateAction::Standard, "Colours");
    const auto first = project->createMap("Level", project->createTileSet("Tiles", palette->id(), 2)->id(), QSize(1, 1));
    const auto second = project->createMap("Level", project->createTileSet("Tiles", palette->id(), 3)->id(), QSize(2, 1));
    const QString path = mDir.filePath("twins.tintorel");
    QVERIFY(store.saveAs(path));

    const QString out = mDir.filePath("twins");
    const Result result = run({ "export", path, "--out", out });
    QCOMPARE(result.status, 0);
    QStringList written = QString::fromUtf8(result.out).split('\n', Qt::SkipEmptyParts);
    QCOMPARE(written.takeLast(), QString("5 files written to %1").arg(out)); // the shared palette once
    QStringList onDisk;
    for (const QString& file : QDir(out).entryList(QDir::Files))
        onDisk << QDir(out).filePath(file);
    written.sort();
    QCOMPARE(written, onDisk);
    const QString firstMap = "Level-" + first->id().toString(QUuid::WithoutBraces).left(8) + "_tilemap.bin";
    QCOMPARE(QFileInfo(QDir(out).filePath(firstMap)).size(), 2);

    const Result ambiguous = run({ "export", path, "--out", out, "--map", "Level" });
    QCOMPARE(ambiguous.status, 1);
    QVERIFY(ambiguous.err.contains(first->id().toString().toUtf8()));
    QVERIFY(ambiguous.err.contains(second->id().toString().toUtf8()));
    const QString one = mDir.filePath("twins-one");
    QCOMPARE(run({ "export", path, "--out", one, "--map", second->id().toString() }).status, 0);
    QCOMPARE(QDir(one).entryList(QDir::Files).size(), 3);
}

void TestCli::render()
{
    const QString png = mDir.filePath("forest.png");
    QCOMPARE(run({ "render", mProject, "--map", "Forest", "--out", png, "--scale", "2" }).status, 0);
    const QImage picture(png);
    QCOMPARE(picture.size(), QSize(5 * 16, 4 * 16));
    QCOMPARE(picture.depth(), 8); // one byte a pixel (a grey-only table is stored as grey)
}

void TestCli::failures_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");
    const QString missing = QDir::temp().filePath("no-such-project.tintorel");
    QTest::newRow("no arguments") << QStringList() << 2 << "no command given";
    QTest::newRow("unknown command") << QStringList { "draw" } << 2 << "unknown command 'draw'";
    QTest::newRow("export without --out") << QStringList { "export", "x.tintorel" } << 2
                                          << "tintorel-cli export: --out DIR is required";
    QTest::newRow("unknown option") << QStringList { "info", "x.tintorel", "--fast" } << 2 << "Unknown option 'fast'";
    QTest::newRow("two projects") << QStringList { "info", "a.tintorel", "b.tintorel" } << 2
                                  << "unexpected argument 'b.tintorel'";
    QTest::newRow("option without its value") << QStringList { "export", "x.tintorel", "--out" } << 2
                                              << "Missing value after '--out'";
    QTest::newRow("tile map without width") << QStringList { "import", "level.map", "--project", "p.tintorel" } << 2
                                            << "tintorel-cli import: a tile map needs --width, its row length in cells";
    QTest::newRow("scale 0") << QStringList { "render", "PROJECT", "--map", "Forest", "--out", "x.png", "--scale", "0" }
                             << 2 << "tintorel-cli render: scale must be 1 to 64";
    QTest::newRow("tick below 0") << QStringList { "render", "PROJECT", "--map", "Forest", "--out", "x.png", "--tick", "-1" }
                                  << 2 << "tintorel-cli render: tick must be a whole number from 0";
    QTest::newRow("unknown layer") << QStringList { "render", "PROJECT", "--map", "Forest", "--out", "x.png",
                                                    "--layers", "tiles,clouds" }
                                   << 2 << "tintorel-cli render: layers must be a list of tiles, objects and sprites";
    QTest::newRow("missing project") << QStringList { "info", missing } << 1 << "no such project file";
    QTest::newRow("unknown map") << QStringList { "export", "PROJECT", "--out", "OUT", "--map", "Nope" } << 1
                                 << "No map named Nope";
}

void TestCli::failures()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(QString, message);
    arguments.replaceInStrings("PROJECT", mProject);
    arguments.replaceInStrings("OUT", mDir.filePath("out"));
    const Result result = run(arguments);
    QCOMPARE(result.status, status);
    QVERIFY2(result.err.count(message.toUtf8()) == 1, result.err.constData());
    QVERIFY(result.out.isEmpty());
}

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"
