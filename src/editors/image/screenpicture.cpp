#include "editors/image/screenpicture.h"

#include "model/palette.h"

#include <QHash>
#include <algorithm>
#include <numeric>

namespace ImageEditor {

namespace {

int distance(QRgb a, QRgb b)
{
    const int red = qRed(a) - qRed(b);
    const int green = qGreen(a) - qGreen(b);
    const int blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
}

int nearest(const QList<QRgb>& table, QRgb colour)
{
    int best = 0;
    for (int i = 1; i < table.size(); ++i)
        if (distance(table.at(i), colour) < distance(table.at(best), colour))
            best = i;
    return best;
}

// The `count` most used colours, kept in their order of first appearance;
// a tie in use goes to the colour seen first.
QList<QRgb> mostUsed(const QList<QRgb>& colours, const QHash<QRgb, int>& uses, int count)
{
    QList<int> order(colours.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return uses.value(colours.at(a)) > uses.value(colours.at(b)); });
    order.resize(count);
    std::sort(order.begin(), order.end());
    QList<QRgb> kept;
    for (int i : std::as_const(order))
        kept.append(colours.at(i));
    return kept;
}

} // namespace

ScreenPicture screenPicture(const QImage& source, const QSize& size, int maxColours)
{
    ScreenPicture result;
    if (source.isNull() || size.isEmpty() || maxColours < 1)
        return result;
    maxColours = qMin(maxColours, 256);
    const QRect covered = QRect(QPoint(0, 0), size).intersected(source.rect());
    const QImage rgb = source.copy(covered).convertToFormat(QImage::Format_RGB32);

    // Each distinct colour is snapped once; a photograph has many pixels
    // but far fewer colours.
    QHash<QRgb, QRgb> snapped;
    QHash<QRgb, int> uses;
    QList<QRgb> colours;
    for (int y = 0; y < rgb.height(); ++y) {
        const QRgb* row = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < rgb.width(); ++x) {
            auto found = snapped.constFind(row[x]);
            if (found == snapped.cend())
                found = snapped.insert(row[x], Palette::snapColour(QColor::fromRgb(row[x])).rgb());
            if (uses[*found]++ == 0)
                colours.append(*found);
        }
    }
    result.colours = colours.size() <= maxColours ? colours : mostUsed(colours, uses, maxColours);
    QHash<QRgb, uchar> entry;
    for (QRgb colour : std::as_const(colours))
        entry.insert(colour, uchar(nearest(result.colours, colour)));

    result.indexed = QImage(size, QImage::Format_Indexed8);
    result.indexed.setColorTable(result.colours.isEmpty() ? QList<QRgb> { qRgb(0, 0, 0) } : result.colours);
    result.indexed.fill(0);
    for (int y = 0; y < rgb.height(); ++y) {
        const QRgb* row = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        uchar* out = result.indexed.scanLine(y);
        for (int x = 0; x < rgb.width(); ++x)
            out[x] = entry.value(snapped.value(row[x]));
    }
    return result;
}

} // namespace ImageEditor
