#include "picturegenerator.h"

#include "model/transform.h"

#include <QRandomGenerator>
#include <QSet>

namespace {

// 256 colours on the machine's grid: sixteen banks of sixteen.
QRgb gridColour(int index)
{
    return qRgb((index & 15) * 16, ((index >> 4) & 7) * 32 + 16, (index >> 7) * 128 + 64);
}

QImage randomShape(QRandomGenerator& random)
{
    for (;;) {
        QImage shape(8, 8, QImage::Format_Indexed8);
        shape.setColorCount(16);
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x)
                shape.setPixel(x, y, random.bounded(16));
        QSet<QString> looks;
        for (int flags = 0; flags < 8; ++flags)
            looks.insert(imageHash(transformedByFlags(shape, flags)));
        if (looks.size() == 8)
            return shape;
    }
}

} // namespace

namespace PictureGenerator {

QImage tiles(int columns, int rows, int shapes, quint32 seed)
{
    QRandomGenerator random(seed);
    QList<QImage> library;
    for (int i = 0; i < shapes; ++i)
        library.append(randomShape(random));
    QImage picture(columns * 8, rows * 8, QImage::Format_RGB32);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const QImage shape = shapes > 0 ? library.at(random.bounded(shapes)) : randomShape(random);
            const QImage look = transformedByFlags(shape, random.bounded(8));
            const int bank = random.bounded(16);
            for (int y = 0; y < 8; ++y)
                for (int x = 0; x < 8; ++x)
                    picture.setPixel(column * 8 + x, row * 8 + y, gridColour(bank * 16 + look.pixelIndex(x, y)));
        }
    return picture;
}

QImage indexed(const QImage& picture)
{
    QList<QRgb> table;
    for (int i = 0; i < 256; ++i)
        table.append(gridColour(i));
    return picture.convertToFormat(QImage::Format_Indexed8, table, Qt::ThresholdDither);
}

} // namespace PictureGenerator
