#pragma once
#include <QByteArray>
#include <QIODevice>
#include <QString>

// The two ways every hardware file is moved: whole content in one write,
// and whole content in one read, never trusting a size the file claims.
namespace BinaryFile {

// Writes `content` in one go; true only when every byte reached the file.
bool write(const QString& fileName, const QByteArray& content,
           QIODevice::OpenMode extraMode = QIODevice::NotOpen);

// Reads the whole file when it is exactly `size` bytes long. An empty result
// with `ok` false means the file was missing, unreadable or of another size.
QByteArray readExact(const QString& fileName, qint64 size, bool* ok);

// True when the lower-cased file name ends in `suffix` (".npl", ...).
bool hasSuffix(const QString& fileName, const QString& suffix);

} // namespace BinaryFile
