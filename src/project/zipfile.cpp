#include "project/zipfile.h"

#include <QBuffer>
#include <QImage>
#include <QtDebug>

#include <zip.h>

#include <cstring>
#include <limits>
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

} // namespace

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
    if (mMode != Mode::Writing || !usableName(name) || name.startsWith(QLatin1Char('/')))
        return false;
    // libzip reads the data only in zip_close. A deep copy that we own until
    // then, because the caller's array may be raw data that dies sooner.
    const QByteArray kept(bytes.constData(), bytes.size());
    zip_source_t* source = zip_source_buffer(mArchive, kept.constData(), zip_uint64_t(kept.size()), 0);
    if (!source)
        return false;
    const zip_int64_t index = zip_file_add(mArchive, name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        return false;
    }
    if (zip_set_file_compression(mArchive, zip_uint64_t(index), ZIP_CM_DEFLATE, 9) < 0) {
        zip_delete(mArchive, zip_uint64_t(index));
        return false;
    }
    mEntries.append(kept);
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
    if (mEntries.isEmpty()) {
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
    return complete ? bytes : QByteArray();
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
