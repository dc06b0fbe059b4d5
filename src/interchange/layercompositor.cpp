#include "interchange/layercompositor.h"

#include <cstring>

namespace {

constexpr int CellPixels = 8;

} // namespace

LayerCompositor::LayerCompositor(const QRect& cells, int cellPixels)
    : mCells(cells)
    , mCellPixels(qMax(1, cellPixels))
{
}

// The picture pixel, within a cell, that result pixel `pixel` samples: the
// nearest to its centre, as a plain scaling of the picture would take.
int LayerCompositor::sourceOffset(int pixel) const
{
    return int((qint64(2 * pixel + 1) * CellPixels) / (2 * mCellPixels));
}

void LayerCompositor::addLayer(const QImage& picture, int transparencyIndex)
{
    if (picture.format() != QImage::Format_Indexed8)
        return;
    Layer layer { &picture, QList<QRgb>(256, qRgb(0, 0, 0)), QList<bool>(256, true) };
    const QList<QRgb> table = picture.colorTable();
    for (int i = 0; i < 256; ++i) {
        if (i < table.size())
            layer.colours[i] = table.at(i) | 0xFF000000;
        layer.shown[i] = (i & 15) != transparencyIndex;
    }
    mLayers.append(layer);
}

void LayerCompositor::setBackground(const QImage& tile)
{
    const QImage source = tile.convertToFormat(QImage::Format_RGB32);
    if (source.width() < CellPixels || source.height() < CellPixels)
        return;
    mBackground = QImage(mCellPixels, mCellPixels, QImage::Format_RGB32);
    for (int y = 0; y < mCellPixels; ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(source.constScanLine(sourceOffset(y)));
        auto* to = reinterpret_cast<QRgb*>(mBackground.scanLine(y));
        for (int x = 0; x < mCellPixels; ++x)
            to[x] = from[sourceOffset(x)];
    }
}

QImage LayerCompositor::compose() const
{
    const int width = mCells.width() * mCellPixels;
    const int height = mCells.height() * mCellPixels;
    QImage result(qMax(0, width), qMax(0, height), QImage::Format_RGB32);
    if (result.isNull())
        return result;

    // Whatever lies under a layer without a transparent index never shows.
    qsizetype firstShown = 0;
    for (qsizetype i = 0; i < mLayers.size(); ++i)
        if (!mLayers.at(i).shown.contains(false))
            firstShown = i;
    const bool covered = !mLayers.isEmpty() && !mLayers.at(firstShown).shown.contains(false);

    // Per result column, the picture column it samples (the same for every
    // layer, all being pictures of the whole map at 8 pixels a cell).
    QList<int> columns(width);
    for (int x = 0; x < width; ++x)
        columns[x] = (mCells.left() - mPictureOrigin.x()) * CellPixels + (x / mCellPixels) * CellPixels
                     + sourceOffset(x % mCellPixels);
    int previousSource = -1;
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        const int source = (mCells.top() - mPictureOrigin.y()) * CellPixels + (y / mCellPixels) * CellPixels
                           + sourceOffset(y % mCellPixels);
        // Rows that sample the same picture row are the same row.
        if (source == previousSource) {
            std::memcpy(line, line - result.bytesPerLine() / int(sizeof(QRgb)), size_t(width) * sizeof(QRgb));
            continue;
        }
        previousSource = source;
        if (!covered)
            fillBackground(line, width, y);
        for (qsizetype i = firstShown; i < mLayers.size(); ++i)
            composeRow(mLayers.at(i), source, columns, line);
    }
    return result;
}

void LayerCompositor::fillBackground(QRgb* line, int width, int y) const
{
    if (mBackground.isNull()) {
        std::fill(line, line + width, qRgb(0, 0, 0));
        return;
    }
    const auto* texture = reinterpret_cast<const QRgb*>(mBackground.constScanLine(y % mCellPixels));
    for (int x = 0; x < width; x += mCellPixels)
        std::memcpy(line + x, texture, size_t(qMin(mCellPixels, width - x)) * sizeof(QRgb));
}

void LayerCompositor::composeRow(const Layer& layer, int source, const QList<int>& columns, QRgb* line) const
{
    const QImage& picture = *layer.picture;
    if (source < 0 || source >= picture.height())
        return;
    // Columns grow with x: those inside the picture are one run.
    const int width = int(columns.size());
    int first = 0;
    while (first < width && columns[first] < 0)
        ++first;
    int end = width;
    while (end > first && columns[end - 1] >= picture.width())
        --end;
    const uchar* from = picture.constScanLine(source);
    const QRgb* colours = layer.colours.constData();
    const int* column = columns.constData();
    if (!layer.shown.contains(false)) {
        for (int x = first; x < end; ++x)
            line[x] = colours[from[column[x]]];
        return;
    }
    const bool* shown = layer.shown.constData();
    for (int x = first; x < end; ++x) {
        const uchar index = from[column[x]];
        if (shown[index])
            line[x] = colours[index];
    }
}
