#include "model/picturefile.h"

#include "model/map.h"
#include "model/tile.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

static_assert(PictureFile::MaxSide == Map::MaxSide * Tile::Size, "a picture as wide as the widest map");

namespace {

const QStringList& acceptedFormats()
{
    static const QStringList formats { "png", "bmp", "gif", "jpeg", "jpg", "pbm", "pgm", "ppm", "xbm", "xpm" };
    return formats;
}

QString tr(const char* text)
{
    return QCoreApplication::translate("PictureFile", text);
}

bool fail(QString* problem, const QString& message)
{
    if (problem)
        *problem = message;
    return false;
}

} // namespace

QImage PictureFile::read(const QString& fileName, QString* problem)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return decode(&file, QFileInfo(fileName).fileName(), problem);
}

QImage PictureFile::fromData(const QByteArray& bytes, const QString& name, QString* problem)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return decode(&buffer, name, problem);
}

QString PictureFile::patterns()
{
    QStringList patterns;
    for (const QString& format : acceptedFormats())
        patterns << QStringLiteral("*.") + format;
    return patterns.join(u' ');
}

QImage PictureFile::decode(QIODevice* device, const QString& name, QString* problem)
{
    // The content decides, not the name: a drawing renamed .png stays a drawing.
    QImageReader reader(device);
    reader.setDecideFormatFromContent(true);
    const QString format = QString::fromLatin1(reader.format()).toLower();
    if (!acceptedFormats().contains(format))
        return {};
    const QSize size = reader.size();
    if (size.width() > MaxSide || size.height() > MaxSide
        || (size.isValid() && qint64(size.width()) * size.height() > MaxPixels)) {
        fail(problem, tr("%1 is %2 × %3 pixels; a picture can have at most %4 pixels a side and %5 million in all")
                          .arg(name)
                          .arg(size.width())
                          .arg(size.height())
                          .arg(MaxSide)
                          .arg(MaxPixels >> 20));
        return {};
    }
    // Formats that do not state their size up front are held to the same
    // bound while decoding.
    reader.setAllocationLimit(int((MaxPixels * 4) >> 20));
    QImage image;
    if (!reader.read(&image) || image.isNull())
        return {};
    if (image.width() > MaxSide || image.height() > MaxSide) {
        fail(problem, tr("%1 is %2 × %3 pixels; a picture can have at most %4 pixels a side")
                          .arg(name)
                          .arg(image.width())
                          .arg(image.height())
                          .arg(MaxSide));
        return {};
    }
    return image;
}
