#include "project/project.h"
#include "project/projectstore.h"
#include "project/zipfile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

// Files made to hurt: each must be refused, or handled, by the command-line
// tool with a clear message, in a few seconds and a bounded amount of
// memory, and leave the project on disk as it was. The bounds are loose,
// for a sanitized build on a busy machine; what they catch costs far more.
class TestHostileFiles : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void hostileFile_data();
    void hostileFile();

private:
    struct Outcome
    {
        int status;
        QString err;
        qint64 milliseconds;
    };
    Outcome run(const QStringList& arguments) const;
    QString data(const QString& name) const { return mData.filePath(name); }
    QString made(const QString& name) const { return mDir.filePath(name); }
    void makeArchive(const QString& name, const QMap<QString, QByteArray>& entries) const;
    void makeFiles();

    QTemporaryDir mDir;
    QDir mData;
};

namespace {

// Half a gigabyte above what the sanitizers themselves take.
constexpr int MemoryLimitMb = 1800;
constexpr qint64 TimeLimitMs = 60000;

// The tile-map entry of a map of `size` cells, every cell tile 1.
QByteArray tileMapEntry(const QSize& size)
{
    const qint64 cells = qint64(size.width()) * size.height();
    QByteArray bytes(8 + cells * 12 + 16, '\0');
    auto* out = reinterpret_cast<uchar*>(bytes.data());
    qToBigEndian<qint32>(size.height(), out);
    qToBigEndian<qint32>(size.width(), out + 4);
    for (qint64 i = 0; i < cells; ++i) {
        qToBigEndian<qint32>(1, out + 8 + i * 12);
        out[8 + i * 12 + 4] = 1;
    }
    return bytes;
}

QByteArray mapDocument(const QString& id, const QByteArray& blocks)
{
    return QStringLiteral(R"({"name": "Hostile", "maps": [{"id": "%1", "name": "Level", "animations": [%2]}]})")
        .arg(id, QString::fromLatin1(blocks))
        .toUtf8();
}

} // namespace

void TestHostileFiles::initTestCase()
{
    mData = QDir(QFINDTESTDATA("../data/hostile"));
    QVERIFY(mData.exists("huge-block-animations.tintorel"));
    makeFiles();
}

void TestHostileFiles::makeArchive(const QString& name, const QMap<QString, QByteArray>& entries) const
{
    ZipFile zip;
    QVERIFY(zip.openWrite(made(name)));
    for (auto it = entries.cbegin(); it != entries.cend(); ++it)
        QVERIFY(zip.write(it.key(), it.value()));
    QVERIFY(zip.close());
}

// The files too large to keep in the repository, made afresh.
void TestHostileFiles::makeFiles()
{
    QFile::copy(data("text-drawing.svg"), made("text.svg"));
    // A drawing where the tile set's picture should be.
    const QString tiles = QStringLiteral("{00000000-0000-0000-0000-000000000001}");
    QFile drawing(data("text-drawing.svg"));
    QVERIFY(drawing.open(QIODevice::ReadOnly));
    makeArchive("drawn-tiles.tintorel",
                { { "project.json", QStringLiteral(R"({"tilesets": [{"id": "%1", "name": "T", "count": 1}]})")
                                        .arg(tiles)
                                        .toUtf8() },
                  { QStringLiteral("tileset/%1.png").arg(tiles), drawing.readAll() } });

    // A thousand blocks each covering the whole of a 1024 × 1024 map.
    const QString map = QStringLiteral("{00000000-0000-0000-0000-000000000002}");
    QByteArray blocks;
    for (int i = 0; i < 1000; ++i)
        blocks += QByteArray(i ? "," : "") + R"({"x": 0, "y": 0, "width": 1024, "height": 1024})";
    makeArchive("overlapping-blocks.tintorel", { { "project.json", mapDocument(map, blocks) },
                                                 { QStringLiteral("tilemap/%1").arg(map), tileMapEntry({ 1024, 1024 }) } });
    // A block of 256 × 256 cells with ten empty frames: a few bytes to load,
    // 655,360 cells for a save to write.
    makeArchive("empty-frames.tintorel",
                { { "project.json", R"({"mapObjects": [{"name": "s", "animations": [{"name": "a", "width": 256,
                                       "height": 256, "frames": [{}, {}, {}, {}, {}, {}, {}, {}, {}, {}]}]}]})" } });
    // 300,000 sprites placed as "{}": 900 KB to load, a save writes each
    // with all its fields.
    QByteArray sprites = "{}";
    for (int i = 1; i < 300000; ++i)
        sprites += ",{}";
    makeArchive("empty-sprites.tintorel",
                { { "project.json",
                    QStringLiteral(R"({"maps": [{"id": "%1", "name": "Level", "sprites": [%2]}]})")
                        .arg(map, QString::fromLatin1(sprites))
                        .toUtf8() },
                  { QStringLiteral("tilemap/%1").arg(map), tileMapEntry({ 2, 2 }) } });
    makeArchive("map-2000.tintorel", { { "project.json", mapDocument(map, {}) },
                                       { QStringLiteral("tilemap/%1").arg(map), tileMapEntry({ 2000, 2000 }) } });

    // 5600 × 5600 pixels of tiles that all differ: a number's bits in each.
    QImage varied(5600, 5600, QImage::Format_Mono);
    varied.setColorTable({ qRgb(0, 0, 0), qRgb(255, 255, 255) });
    for (int y = 0; y < varied.height(); ++y)
        for (int x = 0; x < varied.width(); ++x) {
            const quint64 tile = quint64(y / 8) * 700 + x / 8;
            const quint64 bits = (tile + 1) * 0x9E3779B97F4A7C15ull;
            varied.setPixel(x, y, int((bits >> ((y % 8) * 8 + x % 8)) & 1));
        }
    QVERIFY(varied.save(made("varied.png")));

    // A project of the user's, which every refused import must leave as it was.
    ProjectStore store;
    QVERIFY(store.create("Small", true));
    QVERIFY(store.saveAs(made("small.tintorel")));
}

TestHostileFiles::Outcome TestHostileFiles::run(const QStringList& arguments) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ASAN_OPTIONS", QStringLiteral("hard_rss_limit_mb=%1:detect_leaks=0").arg(MemoryLimitMb));
    process.setProcessEnvironment(environment);
    QElapsedTimer clock;
    clock.start();
    process.start(TINTOREL_CLI, arguments);
    if (!process.waitForFinished(int(TimeLimitMs))) {
        process.kill();
        process.waitForFinished();
        return { -1, QStringLiteral("killed after %1 s").arg(TimeLimitMs / 1000), clock.elapsed() };
    }
    return { process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
             QString::fromUtf8(process.readAllStandardError()), clock.elapsed() };
}

void TestHostileFiles::hostileFile_data()
{
    QTest::addColumn<QStringList>("arguments"); // PROJECT is a fresh copy of a small project
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");
    QTest::newRow("drawing imported as a picture")
        << QStringList { "import", made("text.svg"), "--project", "PROJECT" } << 1 << "Could not read the image file";
    QTest::newRow("drawing as a tile set's picture")
        << QStringList { "info", made("drawn-tiles.tintorel") } << 1 << "Error setting tile set anim - T";
    QTest::newRow("200 block animations of 256 × 256 cells and 16 frames")
        << QStringList { "info", data("huge-block-animations.tintorel") } << 1
        << "Invalid project file: animation \"a\" would take the project past the 512 MB a project can hold";
    QTest::newRow("one block of 256 × 256 cells and ten empty frames")
        << QStringList { "info", made("empty-frames.tintorel") } << 1
        << "Invalid project file: animation \"a\" would take the project past the 512 MB a project can hold";
    QTest::newRow("300,000 sprites placed as empty objects")
        << QStringList { "info", made("empty-sprites.tintorel") } << 1
        << "Invalid project file: map \"Level\" would take the project past the 512 MB a project can hold";
    QTest::newRow("1000 blocks over a 1024 × 1024 map")
        << QStringList { "info", made("overlapping-blocks.tintorel") } << 1
        << "Invalid project file: the blocks placed on map Level overlap";
    QTest::newRow("picture 65,537 cells wide")
        << QStringList { "import", data("wider-than-a-map.png"), "--project", "PROJECT" } << 1
        << "wider-than-a-map.png is 524296 × 16 pixels; a picture can have at most 16384 pixels a side";
    QTest::newRow("picture of 490,000 different tiles")
        << QStringList { "import", made("varied.png"), "--project", "PROJECT" } << 1
        << "Cannot import the image as it would need more than 512 tiles\n513 required";
    QTest::newRow("render of a 2000 × 2000 map")
        << QStringList { "render", made("map-2000.tintorel"), "--map", "Level", "--out", made("map-2000.png") } << 0
        << "";
    QTest::newRow("render of it at scale 2")
        << QStringList { "render", made("map-2000.tintorel"), "--map", "Level", "--out", made("map-2000.png"),
                         "--scale", "2" }
        << 1 << "the 32000 × 32000 picture would take 977 MB as an indexed picture; a render can take at most 512 MB";
}

void TestHostileFiles::hostileFile()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(QString, message);
    // Imports go into a project of the user's, which a refusal leaves alone.
    const QString project = made("project.tintorel");
    QFile::remove(project);
    QVERIFY(QFile::copy(made("small.tintorel"), project));
    QFile original(project);
    QVERIFY(original.open(QIODevice::ReadOnly));
    const QByteArray before = original.readAll();
    arguments.replaceInStrings(QRegularExpression("^PROJECT$"), project);

    const Outcome outcome = run(arguments);
    QVERIFY2(outcome.status == status, qPrintable(outcome.err));
    QVERIFY2(outcome.err.contains(message), qPrintable(outcome.err));
    QVERIFY2(outcome.milliseconds < TimeLimitMs, qPrintable(QString::number(outcome.milliseconds)));
    QFile after(project);
    QVERIFY(after.open(QIODevice::ReadOnly));
    QCOMPARE(after.readAll(), before);
}

QTEST_MAIN(TestHostileFiles)
#include "tst_hostilefiles.moc"
