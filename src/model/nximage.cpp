#include "model/nximage.h"

#include "model/picturefile.h"

#include "model/palette.h"

#include <QHash>
#include <array>

namespace {

std::array<uchar, 256> snapTable()
{
    std::array<uchar, 256> table {};
    for (int c = 0; c < 256; ++c)
        table[c] = uchar(Palette::snapChannel(c));
    return table;
}

} // namespace

NxImage::NxImage(QObject* parent)
    : QObject(parent)
{
}

bool NxImage::load(const QImage& source)
{
    mImage = source;
    mColours.clear();
    if (mImage.format() != QImage::Format_RGB32)
        mImage = mImage.convertToFormat(QImage::Format_RGB32, Qt::NoFormatConversion);

    // The list keeps the order of first appearance; the hash makes each
    // pixel one probe instead of a scan of every colour seen so far.
    static const std::array<uchar, 256> snap = snapTable();
    QHash<QRgb, bool> seen;
    QRgb last = 0;
    bool haveLast = false;
    for (int y = 0; y < mImage.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(mImage.scanLine(y));
        for (int x = 0; x < mImage.width(); ++x) {
            const QRgb snapped = qRgb(snap[qRed(row[x])], snap[qGreen(row[x])], snap[qBlue(row[x])]);
            row[x] = snapped;
            if (haveLast && snapped == last)
                continue;
            last = snapped;
            haveLast = true;
            if (!seen.contains(snapped)) {
                seen.insert(snapped, true);
                mColours.append(snapped);
            }
        }
    }
    return true;
}

bool NxImage::load(const QString& fileName)
{
    const QImage source = PictureFile::read(fileName);
    if (source.isNull()) {
        mColours.clear();
        return false;
    }
    return load(source);
}

QImage NxImage::remap(QPointer<Palette> palette) const
{
    if (!palette || mImage.isNull())
        return QImage();
    QImage result(mImage.size(), QImage::Format_Indexed8);
    result.setColorTable(palette->rgbTable());
    QHash<QRgb, int> found;
    for (int y = 0; y < mImage.height(); ++y) {
        const auto* source = reinterpret_cast<const QRgb*>(mImage.constScanLine(y));
        uchar* target = result.scanLine(y);
        for (int x = 0; x < mImage.width(); ++x) {
            const QRgb value = source[x];
            auto it = found.constFind(value);
            if (it == found.constEnd()) {
                const int index = palette->nearestIndex(QColor::fromRgb(value));
                if (index < 0)
                    return QImage();
                it = found.insert(value, index);
            }
            target[x] = uchar(*it);
        }
    }
    return result;
}

QImage NxImage::toIndexed() const
{
    QImage result(mImage.size(), QImage::Format_Indexed8);
    result.setColorTable(mColours);
    result.setColorCount(256);
    result.fill(0);
    QHash<QRgb, int> position;
    for (int i = mColours.size() - 1; i >= 0; --i)
        position.insert(mColours.at(i), i); // the first position wins
    // Pictures come in runs of one colour: a run costs one probe.
    QRgb last = 0;
    int lastIndex = -1;
    for (int y = 0; y < mImage.height(); ++y) {
        const auto* source = reinterpret_cast<const QRgb*>(mImage.constScanLine(y));
        uchar* target = result.scanLine(y);
        for (int x = 0; x < mImage.width(); ++x) {
            if (lastIndex < 0 || source[x] != last) {
                last = source[x];
                lastIndex = position.value(last, 0);
            }
            if (lastIndex < 256) // past the table an index cannot be stored
                target[x] = uchar(lastIndex);
        }
    }
    return result;
}

QImage NxImage::compacted(const QImage& indexed)
{
    if (indexed.format() != QImage::Format_Indexed8)
        return QImage();
    QImage result = indexed.copy();
    const QList<QRgb> table = indexed.colorTable();
    QList<QRgb> used;
    QHash<QRgb, int> position;
    for (int y = 0; y < result.height(); ++y) {
        uchar* row = result.scanLine(y);
        for (int x = 0; x < result.width(); ++x) {
            const QRgb colour = row[x] < table.size() ? table.at(row[x]) : 0;
            auto it = position.constFind(colour);
            if (it == position.constEnd()) {
                it = position.insert(colour, used.size());
                used.append(colour);
            }
            row[x] = uchar(*it);
        }
    }
    result.setColorCount(used.size());
    result.setColorTable(used);
    return result;
}
