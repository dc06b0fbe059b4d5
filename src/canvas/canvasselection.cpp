#include "canvas/canvasselection.h"

#include "canvas/canvas.h"

#include <algorithm>

namespace {

// Unlike std::clamp, defined also when the range is empty.
int into(int value, int low, int high)
{
    return std::min(std::max(value, low), high);
}

int snapped(int value, int origin, int step)
{
    return ((value - origin) / step) * step + origin;
}

} // namespace

CanvasSelection::CanvasSelection(Canvas* canvas)
    : mCanvas(canvas)
    , mBand(QRubberBand::Rectangle, canvas)
{
    mBand.hide();
}

void CanvasSelection::setBand(const QPoint& a, const QPoint& b)
{
    const QRect area = mCanvas->imageArea();
    const int stepX = mCanvas->zoom();
    const int stepY = mCanvas->zoomY();
    const QPoint sa(snapped(a.x(), area.left(), stepX), snapped(a.y(), area.top(), stepY));
    const QPoint sb(snapped(b.x(), area.left(), stepX), snapped(b.y(), area.top(), stepY));
    const QPoint topLeft(into(std::min(sa.x(), sb.x()), area.left(), area.right()),
                         into(std::min(sa.y(), sb.y()), area.top(), area.bottom()));
    const QPoint bottomRight(into(std::max(sa.x(), sb.x()), area.left(), area.right()),
                             into(std::max(sa.y(), sb.y()), area.top(), area.bottom()));
    mBand.setGeometry(QRect(topLeft, bottomRight));
    mBand.show();
}

QRect CanvasSelection::pixels() const
{
    if (!isVisible())
        return QRect();
    // A band over k cells is k steps and one screen pixel wide, so the
    // division leaves out the cell of the far corner.
    const QRect band = mBand.geometry();
    const QPoint p = mCanvas->pixelAt(band.topLeft());
    const int width = band.width() / mCanvas->zoom();
    const int height = band.height() / mCanvas->zoomY();
    const QRect selected(p, QPoint(p.x() + width - 1, p.y() + height - 1));
    if (!selected.isValid())
        return QRect();
    return selected & mCanvas->layer().rect();
}
