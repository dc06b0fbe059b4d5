#include "interchange/colourindexer.h"

bool ColourIndexer::append(const QImage& picture, QImage& target, int top)
{
    const QImage source = picture.format() == QImage::Format_RGB32 || picture.format() == QImage::Format_ARGB32
                              ? picture
                              : picture.convertToFormat(QImage::Format_ARGB32);
    QRgb last = 0;
    int lastIndex = -1;
    for (int y = 0; y < source.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        uchar* to = target.scanLine(top + y);
        for (int x = 0; x < source.width(); ++x) {
            const QRgb colour = from[x] | 0xFF000000;
            // Runs of one colour are the rule in a map: most pixels end here.
            if (colour != last || lastIndex < 0) {
                auto found = mIndex.constFind(colour);
                if (found == mIndex.constEnd()) {
                    if (mTable.size() == 256)
                        return false;
                    found = mIndex.insert(colour, uchar(mTable.size()));
                    mTable.append(colour);
                }
                last = colour;
                lastIndex = *found;
            }
            to[x] = uchar(lastIndex);
        }
    }
    return true;
}
