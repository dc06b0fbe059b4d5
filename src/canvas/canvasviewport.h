#pragma once
#include <QPoint>
#include <QRect>

class QPointF;

// Where a canvas shows its picture: the zoom, double-height rows, the scroll
// position and the image area in widget coordinates, and the mapping from
// widget points to image pixels.
class CanvasViewport
{
public:
    int zoom() const { return mZoom; }
    // Screen rows per image row.
    int zoomY() const { return mDoubleHeight ? 2 * mZoom : mZoom; }
    bool doubleHeight() const { return mDoubleHeight != 0; }
    void setDoubleHeight(bool doubleHeight) { mDoubleHeight = doubleHeight ? 1 : 0; }
    // Held within 1 to 64.
    void setZoom(int zoom);
    QPoint scrollOffset() const { return mScrollOffset; }
    void setScrollOffset(const QPoint& offset) { mScrollOffset = offset; }
    // Null until the first layout.
    QRect imageArea() const { return mImageArea; }

    // Fits the image area into a widget of `bounds` for a picture of
    // `imageSize`; answers the largest scroll offsets of each axis.
    QPoint layout(const QRect& bounds, const QSize& imageSize);
    // Moves the view against `delta`, held within the picture.
    void scrollBy(const QPoint& delta, const QSize& imageSize);

    // The image pixel under a widget point; not held within the picture.
    QPoint pixelAt(const QPointF& position) const;
    // Rounded half away from zero and held within the range of int.
    static QPoint roundedPoint(const QPointF& position);

private:
    int mZoom = 16;
    int mDoubleHeight = 0;
    QPoint mScrollOffset;
    QRect mImageArea;
};
