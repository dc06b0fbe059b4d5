#pragma once
#include <QImage>
#include <QList>
#include <QRect>

// Lays a map's layers over its background in one pass, straight from the
// layers' own pictures (8 pixels a cell, indexed) into one opaque picture of
// the cells asked for: no scaled copy of a layer is made, so a repaint of a
// large view touches each pixel once.
class LayerCompositor
{
public:
    // `cells` of the map, `cellPixels` pixels a cell in the result.
    LayerCompositor(const QRect& cells, int cellPixels);

    // A layer's picture, bottom first; a pixel whose index has the low four
    // bits `transparencyIndex` shows what lies below.
    void addLayer(const QImage& picture, int transparencyIndex);
    // The picture of one cell (8 × 8, any format) tiled from the result's
    // top left behind everything; black without one.
    void setBackground(const QImage& tile);
    // The cell at the layers' pictures' top left, when they show a part of
    // the map rather than all of it.
    void setPictureOrigin(const QPoint& cell) { mPictureOrigin = cell; }

    // Format_RGB32.
    QImage compose() const;

private:
    struct Layer
    {
        const QImage* picture;
        QList<QRgb> colours; // opaque colour per index
        QList<bool> shown;   // false where the index is transparent
    };

    int sourceOffset(int pixel) const;
    void fillBackground(QRgb* line, int width, int y) const;
    void composeRow(const Layer& layer, int source, const QList<int>& columns, QRgb* line) const;

    QRect mCells;
    int mCellPixels;
    QPoint mPictureOrigin;
    QList<Layer> mLayers;
    QImage mBackground; // cellPixels square, RGB32
};
