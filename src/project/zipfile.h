#pragma once
#include <QFile>
#include <QList>
#include <QMap>
#include <QObject>
#include <memory>
#include <vector>

class Deflater;
class QImage;
struct zip;
struct zip_source;

// The project archive: read entry by entry, or built in memory and written
// over the file in place when closed. Every failure is a false or an empty
// result; reading refuses entries too large to be an honest project's.
class ZipFile : public QObject
{
    Q_OBJECT
public:
    // An entry that claims to unpack to more than this is treated as missing.
    static constexpr quint64 MaxEntrySize = quint64(256) * 1024 * 1024;

    explicit ZipFile(QObject* parent = nullptr);
    ~ZipFile() override;

    bool openRead(const QString& path);
    bool openWrite(const QString& path);
    bool close();

    bool contains(const QString& name) const;
    QByteArray read(const QString& name) const;
    QImage readImage(const QString& name) const;

    bool write(const QString& name, const QByteArray& bytes);
    bool writeImage(const QString& name, const QImage& image);
    // Every entry, deflated on all the machine's cores and added in the
    // map's order; false at the first that cannot be added, named in `failed`.
    bool writeAll(const QMap<QString, QByteArray>& entries, QString* failed = nullptr);

private:
    enum class Mode { Closed, Reading, Writing };

    qint64 entryIndex(const QString& name, quint64* size = nullptr) const;
    QByteArray finishedArchive();
    void release();

    Mode mMode = Mode::Closed;
    zip* mArchive = nullptr;
    zip_source* mBuffer = nullptr; // the archive's bytes while writing
    QFile mFile;                   // opened by openWrite, filled by close
    struct Deflated;
    bool add(const QString& name, std::unique_ptr<Deflated> entry);
    std::vector<std::unique_ptr<Deflated>> mEntries; // read by libzip only in close
    std::unique_ptr<Deflater> mDeflater;
};
