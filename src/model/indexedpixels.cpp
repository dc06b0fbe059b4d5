#include "model/indexedpixels.h"

#include <QImage>
#include <cstring>

bool sameIndexedPixels(const QImage& a, const QImage& b)
{
    if (a.format() != QImage::Format_Indexed8 || b.format() != QImage::Format_Indexed8)
        return a == b;
    if (a.size() != b.size())
        return false;
    if (a.constBits() == b.constBits())
        return true;
    // Row by row and only the width's bytes: the padding at a row's end is
    // not pixels and may hold anything.
    const size_t width = size_t(a.width());
    for (int y = 0; y < a.height(); ++y)
        if (std::memcmp(a.constScanLine(y), b.constScanLine(y), width) != 0)
            return false;
    return true;
}

QImage lowNibbles(const QImage& image)
{
    if (image.format() != QImage::Format_Indexed8)
        return image;
    QImage result = image.copy();
    for (int y = 0; y < result.height(); ++y) {
        uchar* row = result.scanLine(y);
        for (int x = 0; x < result.width(); ++x)
            row[x] &= 0x0F;
    }
    return result;
}
