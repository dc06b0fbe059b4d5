#include "project/zipfile.h"

#include "project/deflater.h"

#include <QBuffer>
#include <QThread>
#include <QImage>
#include <QtDebug>
#include <QtEndian>

#include <zip.h>

#include <atomic>
#include <cstring>
#include <limits>
#include <thread>
#include <utility>

namespace {

// The end-of-central-directory record alone: the smallest valid archive.
constexpr int EndRecordSize = 22;

QByteArray emptyArchive()
{
    QByteArray bytes(EndRecordSize, '\0');
    std::memcpy(bytes.data(), "PK\x05\x06", 4);
    return bytes;
}

// A NUL would cut the C string short and name another entry.
bool usableName(const QString& name)
{
    return !name.isEmpty() && !name.contains(QChar(0));
}

QString describe(int libzipError)
{
    zip_error_t error;
    zip_error_init_with_code(&error, libzipError);
    const QString text = QString::fromUtf8(zip_error_strerror(&error));
    zip_error_fini(&error);
    return text;
}

// Marks every deflated entry as compressed at the highest level (bit 1 of
// the general-purpose flags, in the central and the local header), which
// libzip leaves clear for data that it did not compress itself.
void markMaximumCompression(QByteArray& archive)
{
    auto u16 = [&archive](qsizetype at) { return qFromLittleEndian<quint16>(archive.constData() + at); };
    auto u32 = [&archive](qsizetype at) { return qFromLittleEndian<quint32>(archive.constData() + at); };
    auto mark = [&archive, &u16](qsizetype at) { qToLittleEndian<quint16>(u16(at) | 2, archive.data() + at); };
    const qsizetype end = archive.size() - EndRecordSize;
    if (end < 0 || u32(end) != 0x06054b50)
        return;
    const int count = u16(end + 10);
    qsizetype at = qsizetype(u32(end + 16));
    for (int i = 0; i < count && at + 46 <= end && u32(at) == 0x02014b50; ++i) {
        const qsizetype local = qsizetype(u32(at + 42));
        if (u16(at + 10) == ZIP_CM_DEFLATE && local + 30 <= end && u32(local) == 0x04034b50) {
            mark(at + 8);
            mark(local + 6);
        }
        at += 46 + u16(at + 28) + u16(at + 30) + u16(at + 32);
    }
}

} // namespace

// One entry's data, deflated before it reaches libzip, which then copies it
// into the archive as it is instead of compressing it again.
struct ZipFile::Deflated
{
    QByteArray data;
    quint64 size = 0;
    quint32 crc = 0;
    qint64 position = 0;
    zip_error_t error {};

    static std::unique_ptr<Deflated> of(Deflater& deflater, const QByteArray& bytes);
    static zip_int64_t callback(void* state, void* data, zip_uint64_t length, zip_source_cmd_t command);
};

std::unique_ptr<ZipFile::Deflated> ZipFile::Deflated::of(Deflater& deflater, const QByteArray& bytes)
{
    auto entry = std::make_unique<Deflated>();
    entry->data = deflater.compress(bytes);
    entry->size = quint64(bytes.size());
    entry->crc = Deflater::crc32(bytes);
    zip_error_init(&entry->error);
    return entry;
}

zip_int64_t ZipFile::Deflated::callback(void* state, void* data, zip_uint64_t length, zip_source_cmd_t command)
{
    auto* entry = static_cast<Deflated*>(state);
    switch (command) {
    case ZIP_SOURCE_OPEN:
        entry->position = 0;
        return 0;
    case ZIP_SOURCE_READ: {
        const zip_uint64_t left = zip_uint64_t(entry->data.size() - entry->position);
        const zip_uint64_t count = qMin(length, left);
        std::memcpy(data, entry->data.constData() + entry->position, count);
        entry->position += qint64(count);
        return zip_int64_t(count);
    }
    case ZIP_SOURCE_CLOSE:
    case ZIP_SOURCE_FREE: // the ZipFile owns it
        return 0;
    case ZIP_SOURCE_STAT: {
        auto* stat = static_cast<zip_stat_t*>(data);
        zip_stat_init(stat);
        stat->valid = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_COMP_METHOD | ZIP_STAT_CRC;
        stat->size = entry->size;
        stat->comp_size = zip_uint64_t(entry->data.size());
        stat->comp_method = ZIP_CM_DEFLATE;
        stat->crc = entry->crc;
        return sizeof(zip_stat_t);
    }
    case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&entry->error, data, length);
    case ZIP_SOURCE_SUPPORTS:
        return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                              ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
    default:
        zip_error_set(&entry->error, ZIP_ER_OPNOTSUPP, 0);
        return -1;
    }
}

ZipFile::ZipFile(QObject* parent)
    : QObject(parent)
{
}

ZipFile::~ZipFile()
{
    close();
}

bool ZipFile::openRead(const QString& path)
{
    if (mMode != Mode::Closed)
        return false;
    int error = 0;
    mArchive = zip_open(path.toLocal8Bit().constData(), ZIP_RDONLY, &error);
    if (!mArchive) {
        qWarning("Could not open the archive %s: %s", qPrintable(path), qPrintable(describe(error)));
        return false;
    }
    mMode = Mode::Reading;
    return true;
}

bool ZipFile::openWrite(const QString& path)
{
    if (mMode != Mode::Closed)
        return false;
    mFile.setFileName(path);
    if (!mFile.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        qWarning("Could not create the archive %s: %s", qPrintable(path), qPrintable(mFile.errorString()));
        return false;
    }
    // The archive is built in memory and only its finished bytes reach the
    // file, so libzip never writes a temporary file beside it.
    zip_error_t error;
    zip_error_init(&error);
    mBuffer = zip_source_buffer_create(nullptr, 0, 0, &error);
    if (mBuffer)
        mArchive = zip_open_from_source(mBuffer, ZIP_CREATE | ZIP_TRUNCATE, &error);
    if (!mArchive)
        qWarning("Could not start the archive %s: %s", qPrintable(path), zip_error_strerror(&error));
    zip_error_fini(&error);
    if (!mArchive) {
        release();
        return false;
    }
    // Our own reference, so that the bytes outlive zip_close.
    zip_source_keep(mBuffer);
    mMode = Mode::Writing;
    return true;
}

bool ZipFile::close()
{
    if (mMode == Mode::Closed)
        return true;
    bool ok = true;
    if (mMode == Mode::Writing) {
        const QByteArray bytes = finishedArchive();
        ok = !bytes.isEmpty() && mFile.write(bytes) == bytes.size() && mFile.flush();
        mFile.close();
        ok = ok && mFile.error() == QFileDevice::NoError;
        if (!ok)
            qWarning("Could not write the archive %s: %s", qPrintable(mFile.fileName()), qPrintable(mFile.errorString()));
    }
    release();
    return ok;
}

bool ZipFile::contains(const QString& name) const
{
    return entryIndex(name) >= 0;
}

QByteArray ZipFile::read(const QString& name) const
{
    quint64 size = 0;
    const qint64 index = entryIndex(name, &size);
    if (index < 0)
        return {};
    zip_file_t* file = zip_fopen_index(mArchive, zip_uint64_t(index), 0);
    if (!file)
        return {};
    // Grown chunk by chunk, so that a size the archive claims but whose data
    // is not there costs no memory. Asking for one byte past the declared
    // size takes libzip to the end of the entry, where it checks the CRC.
    constexpr quint64 Chunk = 1 << 20;
    QByteArray bytes;
    bool ok = true;
    while (ok && quint64(bytes.size()) < size) {
        const quint64 want = qMin(Chunk, size - quint64(bytes.size()));
        const qsizetype at = bytes.size();
        bytes.resize(at + qsizetype(want));
        ok = zip_fread(file, bytes.data() + at, want) == zip_int64_t(want);
    }
    char past = 0;
    ok = ok && zip_fread(file, &past, 1) == 0;
    zip_fclose(file);
    return ok ? bytes : QByteArray();
}

QImage ZipFile::readImage(const QString& name) const
{
    QImage image;
    const QByteArray bytes = read(name);
    if (!bytes.isEmpty())
        image.loadFromData(bytes, "png");
    return image;
}

bool ZipFile::write(const QString& name, const QByteArray& bytes)
{
    if (mMode != Mode::Writing || !usableName(name))
        return false;
    if (!mDeflater)
        mDeflater = std::make_unique<Deflater>();
    return add(name, Deflated::of(*mDeflater, bytes));
}

bool ZipFile::writeAll(const QMap<QString, QByteArray>& entries, QString* failed)
{
    if (mMode != Mode::Writing)
        return false;
    // Deflating is nearly all of a save's time, and the entries are
    // independent: each thread takes the next one left, with a compressor
    // of its own.
    std::vector<std::pair<QString, const QByteArray*>> work;
    for (auto it = entries.cbegin(); it != entries.cend(); ++it)
        work.emplace_back(it.key(), &it.value());
    std::vector<std::unique_ptr<Deflated>> deflated(work.size());
    std::atomic<size_t> next { 0 };
    const auto deflateRest = [&] {
        Deflater deflater;
        for (size_t i = next++; i < work.size(); i = next++)
            deflated[i] = Deflated::of(deflater, *work[i].second);
    };
    const size_t helpers = std::min(size_t(std::max(1, QThread::idealThreadCount())), work.size());
    std::vector<std::thread> threads;
    for (size_t i = 1; i < helpers; ++i)
        threads.emplace_back(deflateRest);
    deflateRest();
    for (std::thread& thread : threads)
        thread.join();

    for (size_t i = 0; i < work.size(); ++i) {
        if (!add(work[i].first, std::move(deflated[i]))) {
            if (failed)
                *failed = work[i].first;
            return false;
        }
    }
    return true;
}

bool ZipFile::add(const QString& name, std::unique_ptr<Deflated> entry)
{
    if (mMode != Mode::Writing || !usableName(name) || name.startsWith(QLatin1Char('/')) || entry->data.isEmpty())
        return false;
    // libzip reads the data only in zip_close; the entry lives until then.
    zip_source_t* source = zip_source_function(mArchive, &Deflated::callback, entry.get());
    if (!source)
        return false;
    const zip_int64_t index = zip_file_add(mArchive, name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        return false;
    }
    mEntries.push_back(std::move(entry));
    return true;
}

bool ZipFile::writeImage(const QString& name, const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "png") && write(name, buffer.data());
}

qint64 ZipFile::entryIndex(const QString& name, quint64* size) const
{
    if (mMode != Mode::Reading || !usableName(name))
        return -1;
    const zip_int64_t index = zip_name_locate(mArchive, name.toUtf8().constData(), 0);
    if (index < 0)
        return -1;
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (zip_stat_index(mArchive, zip_uint64_t(index), 0, &stat) < 0
        || !(stat.valid & ZIP_STAT_SIZE) || stat.size > MaxEntrySize)
        return -1;
    if (size)
        *size = stat.size;
    return index;
}

QByteArray ZipFile::finishedArchive()
{
    zip_t* archive = std::exchange(mArchive, nullptr);
    // With no entries libzip finishes by removing the archive altogether, but
    // an empty project file should still open.
    if (mEntries.empty()) {
        zip_discard(archive);
        return emptyArchive();
    }
    if (zip_close(archive) < 0) {
        qWarning("Could not finish the archive: %s", zip_strerror(archive));
        zip_discard(archive);
        return {};
    }
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (zip_source_stat(mBuffer, &stat) < 0 || !(stat.valid & ZIP_STAT_SIZE)
        || stat.size > quint64(std::numeric_limits<qsizetype>::max())
        || zip_source_open(mBuffer) < 0)
        return {};
    QByteArray bytes(qsizetype(stat.size), Qt::Uninitialized);
    const bool complete = zip_source_read(mBuffer, bytes.data(), stat.size) == zip_int64_t(stat.size);
    zip_source_close(mBuffer);
    if (!complete)
        return {};
    markMaximumCompression(bytes);
    return bytes;
}

void ZipFile::release()
{
    if (mArchive)
        zip_discard(mArchive);
    mArchive = nullptr;
    zip_source_free(mBuffer);
    mBuffer = nullptr;
    mEntries.clear();
    if (mFile.isOpen())
        mFile.close();
    mMode = Mode::Closed;
}
