#include "interchange/binaryfile.h"

#include <QFile>

namespace BinaryFile {

bool write(const QString& fileName, const QByteArray& content, QIODevice::OpenMode extraMode)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | extraMode))
        return false;
    return file.write(content) == content.size();
}

QByteArray readExact(const QString& fileName, qint64 size, bool* ok)
{
    *ok = false;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly) || file.size() != size)
        return {};
    QByteArray bytes = file.read(size);
    *ok = bytes.size() == size;
    return *ok ? bytes : QByteArray();
}

bool hasSuffix(const QString& fileName, const QString& suffix)
{
    return fileName.toLower().endsWith(suffix);
}

} // namespace BinaryFile
