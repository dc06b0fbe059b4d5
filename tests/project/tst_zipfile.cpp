#include "project/zipfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <zip.h>

#include <cstring>
#include <memory>

namespace {

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// Sets a 32-bit field of the first entry in both its local header and its
// central directory record, where every field after "version made by" lies
// two bytes further on.
void patchFirstEntry(QByteArray& archive, int localOffset, quint32 value)
{
    const int endRecord = int(archive.size()) - 22;
    const auto centralDirectory = int(qFromLittleEndian<quint32>(archive.constData() + endRecord + 16));
    qToLittleEndian(value, archive.data() + localOffset);
    qToLittleEndian(value, archive.data() + centralDirectory + localOffset + 2);
}

constexpr int CrcField = 14;
constexpr int UncompressedSizeField = 22;

QImage sampleImage()
{
    QImage image(5, 3, QImage::Format_ARGB32);
    image.fill(qRgba(10, 20, 30, 255));
    image.setPixel(4, 2, qRgba(200, 0, 0, 128));
    return image;
}

} // namespace

class TestZipFile : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void roundTripKeepsEveryEntry();
    void entriesAreDeflatedInWrittenOrder();
    void writeAllKeepsEveryEntryInOrder();
    void lookupIsCaseSensitive_data();
    void lookupIsCaseSensitive();
    void openWriteTruncatesAndWritesInPlace();
    void openWriteRefusesUnwritablePath_data();
    void openWriteRefusesUnwritablePath();
    void closeReportsAFailedWrite();
    void hostileFiles_data();
    void hostileFiles();
    void operationsOutsideTheirModeFail_data();
    void operationsOutsideTheirModeFail();

private:
    QString path(const QString& name) const { return mDir.filePath(name); }

    QTemporaryDir mDir;
    QString mSample;          // "project.json", "images/Tile.png"
    QByteArray mSingleEntry;  // one entry, "tiles.bin", as bytes to patch
};

void TestZipFile::initTestCase()
{
    QVERIFY(mDir.isValid());
    mSample = path("sample.tintorel");
    ZipFile zip;
    QVERIFY(zip.openWrite(mSample));
    QVERIFY(zip.write("project.json", "{}"));
    QVERIFY(zip.writeImage("images/Tile.png", sampleImage()));
    QVERIFY(zip.close());

    const QString single = path("single.tintorel");
    QVERIFY(zip.openWrite(single));
    QVERIFY(zip.write("tiles.bin", "tile bytes"));
    QVERIFY(zip.close());
    mSingleEntry = readFile(single);
}

void TestZipFile::roundTripKeepsEveryEntry()
{
    const QString file = path("roundtrip.tintorel");
    const QByteArray binary("\x00\x01\xff\x00\x80", 5);
    char raw[] = "raw bytes";
    ZipFile zip;
    QVERIFY(zip.openWrite(file));
    QVERIFY(zip.write("project.json", "{\"formatVersion\": 2}"));
    QVERIFY(zip.write("tilemap/{1}.bin", binary));
    QVERIFY(zip.write("empty", QByteArray()));
    QVERIFY(zip.writeImage("images/{2}.png", sampleImage()));
    // The data is compressed only in close(): a caller's buffer may be gone by then.
    QVERIFY(zip.write("raw", QByteArray::fromRawData(raw, 9)));
    std::memset(raw, 'x', 9);
    QVERIFY(zip.close());

    QVERIFY(zip.openRead(file));
    QCOMPARE(zip.read("project.json"), QByteArray("{\"formatVersion\": 2}"));
    QCOMPARE(zip.read("tilemap/{1}.bin"), binary);
    QCOMPARE(zip.read("raw"), QByteArray("raw bytes"));
    QVERIFY(zip.contains("empty"));
    QVERIFY(zip.read("empty").isEmpty());
    QCOMPARE(zip.readImage("images/{2}.png").convertToFormat(QImage::Format_ARGB32), sampleImage());
    QVERIFY(zip.readImage("project.json").isNull());
    QVERIFY(zip.readImage("missing.png").isNull());
}

void TestZipFile::entriesAreDeflatedInWrittenOrder()
{
    const QStringList names{ "tileset/b.png", "project.json", "images/a.png", "t" };
    const QString file = path("order.tintorel");
    ZipFile zip;
    QVERIFY(zip.openWrite(file));
    for (const QString& name : names)
        QVERIFY(zip.write(name, name.toUtf8()));
    QVERIFY(zip.close());

    int error = 0;
    std::unique_ptr<zip_t, decltype(&zip_discard)> archive(
        zip_open(file.toLocal8Bit().constData(), ZIP_RDONLY | ZIP_CHECKCONS, &error), &zip_discard);
    QVERIFY(archive);
    QCOMPARE(zip_get_num_entries(archive.get(), 0), zip_int64_t(names.size()));
    for (int i = 0; i < names.size(); ++i) {
        zip_stat_t stat;
        QCOMPARE(zip_stat_index(archive.get(), zip_uint64_t(i), 0, &stat), 0);
        QCOMPARE(QString::fromUtf8(stat.name), names.at(i));
        QCOMPARE(stat.comp_method, zip_uint16_t(ZIP_CM_DEFLATE));
    }
    // Bits 1-2 of the first local header's flags: 01 says "maximum compression".
    const QByteArray bytes = readFile(file);
    QCOMPARE(qFromLittleEndian<quint16>(bytes.constData() + 6) & 6, 2);
}

void TestZipFile::writeAllKeepsEveryEntryInOrder()
{
    // More entries than threads, of very different sizes, so that they
    // finish out of order.
    QMap<QString, QByteArray> entries;
    for (int i = 0; i < 40; ++i)
        entries.insert(QStringLiteral("entry/%1").arg(i, 2, 10, QLatin1Char('0')),
                       QByteArray((i % 7) * 50000 + 1, char('a' + i % 26)) + QByteArray::number(i));
    const QString file = path("all.tintorel");
    ZipFile zip;
    QVERIFY(zip.openWrite(file));
    QVERIFY(zip.writeAll(entries));
    QVERIFY(zip.close());

    int error = 0;
    std::unique_ptr<zip_t, decltype(&zip_discard)> archive(
        zip_open(file.toLocal8Bit().constData(), ZIP_RDONLY | ZIP_CHECKCONS, &error), &zip_discard);
    QVERIFY(archive);
    const QStringList names = entries.keys();
    for (int i = 0; i < names.size(); ++i)
        QCOMPARE(QString::fromUtf8(zip_get_name(archive.get(), i, 0)), names.at(i));
    QVERIFY(zip.openRead(file));
    for (auto it = entries.cbegin(); it != entries.cend(); ++it)
        QCOMPARE(zip.read(it.key()), it.value());
    QVERIFY(zip.close());

    QVERIFY(zip.openWrite(file));
    QString failed;
    QVERIFY(!zip.writeAll({ { "/absolute", "x" }, { "good", "y" } }, &failed));
    QCOMPARE(failed, QString("/absolute"));
}

void TestZipFile::lookupIsCaseSensitive_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("listed");
    QTest::newRow("exact name") << "images/Tile.png" << true;
    QTest::newRow("lower case") << "images/tile.png" << false;
    QTest::newRow("upper case") << "IMAGES/TILE.PNG" << false;
    QTest::newRow("folder alone") << "images" << false;
    QTest::newRow("cut short by a NUL") << QString("images/Tile.png" + QString(QChar(0)) + "x") << false;
}

void TestZipFile::lookupIsCaseSensitive()
{
    QFETCH(QString, name);
    QFETCH(bool, listed);
    ZipFile zip;
    QVERIFY(zip.openRead(mSample));
    QCOMPARE(zip.contains(name), listed);
    QCOMPARE(zip.read(name).isEmpty(), !listed);
}

void TestZipFile::openWriteTruncatesAndWritesInPlace()
{
    const QString file = path("existing.tintorel");
    QVERIFY(writeFile(file, "an older project"));
    // A handle opened before the save sees the new bytes only if the file
    // was rewritten, not replaced by another under the same name.
    QFile earlier(file);
    QVERIFY(earlier.open(QIODevice::ReadOnly));

    ZipFile zip;
    QVERIFY(zip.openWrite(file));
    QCOMPARE(QFileInfo(file).size(), 0);
    QVERIFY(zip.write("project.json", "{}"));
    QVERIFY(zip.close());

    QCOMPARE(earlier.readAll(), readFile(file));
    QCOMPARE(QDir(mDir.path()).entryList({ "existing*" }, QDir::Files | QDir::Hidden), QStringList{ "existing.tintorel" });
    QVERIFY(zip.openRead(file));
    QCOMPARE(zip.read("project.json"), QByteArray("{}"));
}

void TestZipFile::openWriteRefusesUnwritablePath_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing folder") << "missing/project.tintorel";
    QTest::newRow("a folder") << "";
}

void TestZipFile::openWriteRefusesUnwritablePath()
{
    QFETCH(QString, name);
    ZipFile zip;
    QVERIFY(!zip.openWrite(path(name)));
    QVERIFY(!zip.write("project.json", "{}"));
    // The object is still usable, and an archive left without entries is valid.
    QVERIFY(zip.close());
    QVERIFY(zip.openWrite(path("no-entries.tintorel")));
    QVERIFY(zip.close());
    QVERIFY(zip.openRead(path("no-entries.tintorel")));
}

void TestZipFile::closeReportsAFailedWrite()
{
    if (!QFileInfo::exists("/dev/full"))
        QSKIP("needs /dev/full, a device on which every write fails");
    ZipFile zip;
    QVERIFY(zip.openWrite("/dev/full"));
    QVERIFY(zip.write("project.json", "{}"));
    QVERIFY(!zip.close());
    QVERIFY(zip.close());
}

void TestZipFile::hostileFiles_data()
{
    QTest::addColumn<QByteArray>("bytes"); // null: no file at all
    QTest::addColumn<bool>("opens");
    QTest::addColumn<bool>("listed");
    const auto patched = [this](int field, quint32 value) {
        QByteArray archive = mSingleEntry;
        patchFirstEntry(archive, field, value);
        return archive;
    };
    QTest::newRow("missing file") << QByteArray() << false << false;
    QTest::newRow("empty file, as a failed save leaves") << QByteArray("") << false << false;
    QTest::newRow("text file") << QByteArray(R"({"formatVersion": 2, "name": "not an archive"})") << false << false;
    QTest::newRow("archive cut short") << mSingleEntry.left(mSingleEntry.size() - 10) << false << false;
    const quint32 limit = quint32(ZipFile::MaxEntrySize);
    QTest::newRow("size at the limit") << patched(UncompressedSizeField, limit) << true << true;
    QTest::newRow("size one byte over") << patched(UncompressedSizeField, limit + 1) << true << false;
    QTest::newRow("wrong CRC") << patched(CrcField, 0x12345678) << true << true;
}

// Nothing in them is read: a refused file, an entry that claims too much or
// one whose data does not match its checksum.
void TestZipFile::hostileFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, opens);
    QFETCH(bool, listed);
    const QString file = path("hostile.tintorel");
    QFile::remove(file);
    if (!bytes.isNull())
        QVERIFY(writeFile(file, bytes));
    ZipFile zip;
    QCOMPARE(zip.openRead(file), opens);
    QCOMPARE(zip.contains("tiles.bin"), listed);
    QVERIFY(zip.read("tiles.bin").isEmpty());
}

void TestZipFile::operationsOutsideTheirModeFail_data()
{
    QTest::addColumn<QString>("state");
    QTest::newRow("never opened") << "closed";
    QTest::newRow("reading") << "reading";
    QTest::newRow("writing") << "writing";
}

void TestZipFile::operationsOutsideTheirModeFail()
{
    QFETCH(QString, state);
    ZipFile zip;
    const bool reading = state == "reading";
    const bool writing = state == "writing";
    if (reading)
        QVERIFY(zip.openRead(mSample));
    if (writing)
        QVERIFY(zip.openWrite(path("mode.tintorel")) && zip.write("project.json", "{}"));
    QCOMPARE(zip.contains("project.json"), reading);
    QCOMPARE(zip.read("project.json").isEmpty(), !reading);
    QCOMPARE(zip.readImage("images/Tile.png").isNull(), !reading);
    QCOMPARE(zip.write("new.json", "{}"), writing);
    QCOMPARE(zip.writeImage("new.png", sampleImage()), writing);
    if (reading || writing) {
        // One archive at a time: a second open is refused and touches nothing.
        QVERIFY(!zip.openRead(mSample));
        QVERIFY(!zip.openWrite(path("second.tintorel")));
        QVERIFY(!QFileInfo::exists(path("second.tintorel")));
    }
    QVERIFY(zip.close());
    QVERIFY(zip.close());
}

QTEST_GUILESS_MAIN(TestZipFile)
#include "tst_zipfile.moc"
