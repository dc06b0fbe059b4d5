#include "canvas/canvasviewport.h"

#include <QPointF>
#include <QStyle>
#include <algorithm>
#include <climits>
#include <cmath>

namespace {

int roundedCoordinate(qreal value)
{
    return int(std::clamp<qreal>(std::round(value), INT_MIN, INT_MAX));
}

// Unlike std::clamp, defined also when the range is empty.
int into(int value, int low, int high)
{
    return std::min(std::max(value, low), high);
}

} // namespace

void CanvasViewport::setZoom(int zoom)
{
    mZoom = std::clamp(zoom, 1, 64);
}

QPoint CanvasViewport::layout(const QRect& bounds, const QSize& imageSize)
{
    // availableH steps by `zoom` also for double-height pictures.
    const int availableW = (bounds.width() / mZoom) * mZoom;
    const int availableH = (bounds.height() / mZoom) * mZoom;
    const int imageW = imageSize.width() * mZoom;
    const int imageH = imageSize.height() * zoomY();
    QSize size(availableW, availableH);
    // Larger than the picture in either direction: show it whole, also in
    // the direction in which it does not fit.
    if (imageW < availableW || availableH > imageH) {
        mScrollOffset = QPoint(0, 0);
        size = QSize(imageW, imageH);
    }
    mImageArea = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, bounds);
    return QPoint(imageSize.width() - availableW / mZoom, imageSize.height() - availableH / mZoom);
}

void CanvasViewport::scrollBy(const QPoint& delta, const QSize& imageSize)
{
    mScrollOffset -= delta;
    const int maxX = imageSize.width() - mImageArea.width() / mZoom;
    const int maxY = imageSize.height() - mImageArea.height() / zoomY();
    mScrollOffset = QPoint(into(mScrollOffset.x(), 0, maxX), into(mScrollOffset.y(), 0, maxY));
}

QPoint CanvasViewport::pixelAt(const QPointF& position) const
{
    const QPoint p = roundedPoint(position);
    return QPoint((p.x() - mImageArea.left()) / mZoom + mScrollOffset.x(),
                  (p.y() - mImageArea.top()) / zoomY() + mScrollOffset.y());
}

QPoint CanvasViewport::roundedPoint(const QPointF& position)
{
    return QPoint(roundedCoordinate(position.x()), roundedCoordinate(position.y()));
}
