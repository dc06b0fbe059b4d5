#include "canvas/canvaspainter.h"

#include "canvas/canvas.h"

#include <algorithm>

CanvasPainter::CanvasPainter(Canvas* canvas)
    : QPainter(canvas)
    , mCanvas(canvas)
    , mZoomY(canvas->zoomY())
    , mStepX(std::max(16, canvas->zoom()))
    , mStepY(std::max(16, canvas->zoomY()))
{
    setRenderHint(QPainter::Antialiasing);
    setPen(Qt::NoPen);
}

void CanvasPainter::fillBackground()
{
    fillRect(mCanvas->rect(), mCanvas->palette().brush(QPalette::Window));
}

void CanvasPainter::drawPicture(const QImage& picture)
{
    const QRect area = mCanvas->imageArea();
    QRect source(mCanvas->scrollOffset(), QSize(area.width() / mCanvas->zoom(), area.height() / mZoomY));
    // Widget and image coordinates compared as they stand: only an area
    // that strictly encloses the image's own rectangle shows all of it.
    if (area.contains(picture.rect(), true))
        source = picture.rect();
    // The raster engine scales indexed pictures pixel by pixel through the
    // colour table; converted first, the same pixels scale about four times
    // faster.
    const QImage::Format format =
        picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    drawImage(area, picture.convertToFormat(format), source);
}

void CanvasPainter::drawChecker(const std::array<QColor, 2>& colours, int alpha)
{
    const QRect area = mCanvas->imageArea();
    std::array<QColor, 2> shades = colours;
    for (QColor& shade : shades)
        shade.setAlpha(alpha);
    for (int y = area.top(); y < area.bottom(); y += mStepY)
        for (int x = area.left(); x < area.right(); x += mStepX)
            fillRect(x, y, mStepX, mStepY, shades[((y / mStepY) ^ (x / mStepX)) & 1]);
}

void CanvasPainter::drawGridLines()
{
    const QRect area = mCanvas->imageArea();
    setPen(QColor(255, 255, 255, 0x30));
    for (int y = area.top(); y < area.bottom(); y += mStepY)
        drawLine(area.left(), y, area.right(), y);
    for (int x = area.left(); x < area.right(); x += mStepX)
        drawLine(x, area.top(), x, area.bottom());
}
