#include "model/tile.h"

#include "model/indexedpixels.h"
#include "model/transform.h"

#include <QColor>
#include <cstring>

namespace {

// Drawing and export read exactly 8 rows of 8 index bytes, so a picture of
// another shape or format is kept as its top-left 8 x 8, index 0 where it
// has no pixel. A failed import (a null picture) thus leaves a blank tile.
QImage tileShaped(const QImage& source)
{
    if (source.format() == QImage::Format_Indexed8 && source.size() == QSize(Tile::Size, Tile::Size))
        return source.copy();
    const QImage indexed = source.convertToFormat(QImage::Format_Indexed8);
    QImage result = Tile::blankImage(indexed.colorTable());
    const int width = qMin(int(Tile::Size), indexed.width());
    const int height = qMin(int(Tile::Size), indexed.height());
    for (int y = 0; y < height; ++y)
        std::memcpy(result.scanLine(y), indexed.constScanLine(y), size_t(width));
    return result;
}

} // namespace

Tile::Tile(int offset, QObject* parent)
    : QObject(parent)
    , mImage(blankImage())
    , mOffset(offset)
{
}

QImage Tile::blankImage(const QList<QRgb>& colourTable)
{
    static const QList<QRgb> black(256, qRgb(0, 0, 0));
    QImage image(Size, Size, QImage::Format_Indexed8);
    image.setColorTable(colourTable.isEmpty() ? black : colourTable);
    image.fill(0);
    return image;
}

QImage Tile::fourBit(const QImage& image)
{
    return lowNibbles(tileShaped(image));
}

void Tile::setImage(const QImage& image)
{
    mImage = tileShaped(image);
}

void Tile::setColour(int index, const QColor& colour)
{
    if (index < 0 || index >= mImage.colorCount())
        return;
    mImage.setColor(index, colour.rgb());
}

QImage Tile::render(bool rotate, bool flip, bool mirror, int offset) const
{
    QImage drawn = mImage;
    // Unsigned, so that a negative or huge bank cannot overflow the shift.
    const uchar bank = uchar((uint(offset) << 4) & 0xF0);
    uchar* bits = drawn.bits(); // detaches: the tile's own picture stays as it is
    const qsizetype stride = drawn.bytesPerLine();
    for (int y = 0; y < Size; ++y) {
        uchar* row = bits + y * stride;
        for (int x = 0; x < Size; ++x)
            row[x] = uchar((row[x] & 0x0F) | bank);
    }
    return transformed(drawn, rotate, flip, mirror);
}

QByteArray Tile::toPacked() const
{
    QByteArray packed(PackedSize, '\0');
    for (int y = 0; y < Size; ++y) {
        const uchar* row = mImage.constScanLine(y);
        for (int k = 0; k < Size / 2; ++k)
            packed[4 * y + k] = char(((row[2 * k] & 0x0F) << 4) | (row[2 * k + 1] & 0x0F));
    }
    return packed;
}

Tile* Tile::clone() const
{
    auto* copy = new Tile(mOffset);
    copy->mImage = mImage.copy();
    copy->mAttributes = mAttributes;
    copy->mValue = mValue;
    return copy;
}
