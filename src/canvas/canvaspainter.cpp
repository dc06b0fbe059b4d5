#include "canvas/canvaspainter.h"

#include "canvas/canvas.h"

#include <QPixmap>

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
    // One cell's top and left edge, tiled over the image. Lines drawn one by
    // one cost far more: the raster engine hands every line taller than a
    // few dozen rows to worker threads and waits for them.
    QPixmap cell(mStepX, mStepY);
    cell.fill(Qt::transparent);
    {
        QPainter edges(&cell);
        edges.setPen(QColor(255, 255, 255, 0x30));
        edges.drawLine(0, 0, mStepX - 1, 0);
        edges.drawLine(0, 0, 0, mStepY - 1);
    }
    QBrush brush(cell);
    brush.setTransform(QTransform::fromTranslate(area.left(), area.top()));
    fillRect(area, brush);
}
