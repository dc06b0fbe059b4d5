#include "model/transform.h"

#include <QCryptographicHash>

namespace {

QImage rotatedClockwise(const QImage& source)
{
    const int w = source.width();
    const int h = source.height();
    QImage result(h, w, source.format());
    result.setColorTable(source.colorTable());
    if (source.format() == QImage::Format_Indexed8) {
        for (int y = 0; y < h; ++y) {
            const uchar* row = source.constScanLine(y);
            for (int x = 0; x < w; ++x)
                result.scanLine(x)[h - 1 - y] = row[x];
        }
    } else {
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                result.setPixel(h - 1 - y, x, source.pixel(x, y));
    }
    return result;
}

} // namespace

QImage transformed(const QImage& source, bool rotate, bool flip, bool mirror)
{
    if (source.isNull())
        return source;
    const QImage turned = rotate ? rotatedClockwise(source) : source;
    return turned.mirrored(mirror, flip);
}

QImage transformedByFlags(const QImage& source, int flags)
{
    return transformed(source, (flags & 4) != 0, (flags & 1) != 0, (flags & 2) != 0);
}

QString imageHash(const QImage& source)
{
    const QByteArrayView bytes(reinterpret_cast<const char*>(source.constBits()), source.sizeInBytes());
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
}
