#include "seedpictures.h"

#include <QBuffer>
#include <QImage>
#include <QtEndian>

namespace SeedPictures {

namespace {

QImage picture()
{
    QImage image(24, 16, QImage::Format_Indexed8);
    image.setColorTable({ qRgb(0, 0, 0), qRgb(255, 255, 255), qRgb(219, 0, 0), qRgb(0, 146, 255) });
    image.fill(0);
    for (int y = 0; y < 8; ++y) {
        image.setPixel(y, y, 1);          // a diagonal in the first tile,
        image.setPixel(15 - y, y, 1);     // its mirror image in the second
        image.setPixel(16 + y % 4, y, 2); // and something else in the third
    }
    for (int x = 0; x < 24; ++x)
        image.setPixel(x, 8 + x % 8, 3);
    return image;
}

void appendCode(QByteArray& out, quint32& bits, int& count, int code, int width)
{
    bits |= quint32(code) << count;
    count += width;
    while (count >= 8) {
        out += char(bits & 0xff);
        bits >>= 8;
        count -= 8;
    }
}

// Qt reads GIF but does not write it. The LZW codes stay three bits wide
// because a clear code comes before every second pixel, which keeps the
// decoder's table from growing.
QByteArray gif(const QImage& image)
{
    constexpr int Clear = 4;
    constexpr int End = 5;
    auto u16 = [](int value) {
        char bytes[2];
        qToLittleEndian<quint16>(quint16(value), bytes);
        return QByteArray(bytes, 2);
    };
    QByteArray codes;
    quint32 bits = 0;
    int count = 0;
    for (int y = 0, n = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x, ++n) {
            if (n % 2 == 0)
                appendCode(codes, bits, count, Clear, 3);
            appendCode(codes, bits, count, image.pixelIndex(x, y), 3);
        }
    appendCode(codes, bits, count, End, 3);
    if (count > 0)
        codes += char(bits & 0xff);

    QByteArray out = "GIF89a" + u16(image.width()) + u16(image.height()) + QByteArray("\x81\x00\x00", 3);
    for (int i = 0; i < 4; ++i) {
        const QRgb colour = image.color(i);
        out += char(qRed(colour));
        out += char(qGreen(colour));
        out += char(qBlue(colour));
    }
    out += ',' + u16(0) + u16(0) + u16(image.width()) + u16(image.height()) + QByteArray("\x00\x02", 2);
    for (qsizetype at = 0; at < codes.size(); at += 255) {
        const QByteArray block = codes.mid(at, 255);
        out += char(block.size()) + block;
    }
    return out + QByteArray("\x00;", 2);
}

} // namespace

QByteArray encoded(const QByteArray& format)
{
    const QImage image = picture();
    if (format == "gif")
        return gif(image);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format.constData()))
        qFatal("Qt cannot write %s", format.constData());
    return bytes;
}

} // namespace SeedPictures
