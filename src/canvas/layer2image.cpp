#include "canvas/layer2image.h"

#include "model/palette.h"

#include <QList>
#include <QRgb>
#include <cstdlib>
#include <cstring>
#include <utility>

Layer2Image::Layer2Image(const QSize& size, QObject* parent)
    : QObject(parent)
    , mImage(size, QImage::Format_Indexed8)
{
    if (mImage.isNull())
        return; // an empty size: nothing to draw on, and no table to give
    mImage.setColorCount(256);
    mImage.setColor(0, qRgb(0, 0, 0));
    mImage.setColor(1, qRgb(255, 255, 255));
    mImage.fill(0);
}

int Layer2Image::pixel(const QPoint& point) const
{
    if (!isIndexed() || !mImage.rect().contains(point))
        return -1;
    return mImage.constScanLine(point.y())[point.x()];
}

void Layer2Image::setInk(int index)
{
    if (index >= 0 && index <= mImage.colorCount())
        mInk = index;
}

void Layer2Image::setPaper(int index)
{
    if (index >= 0 && index <= mImage.colorCount())
        mPaper = index;
}

void Layer2Image::setPalette(QPointer<Palette> palette)
{
    mPalette = palette;
    mImage.setColorTable(mPalette ? mPalette->rgbTable() : QList<QRgb>());
}

void Layer2Image::put(qint64 x, qint64 y, int index)
{
    if (x < 0 || y < 0 || x >= mImage.width() || y >= mImage.height() || !isIndexed() || !isColour(index))
        return;
    mImage.scanLine(int(y))[x] = uchar(index);
}

void Layer2Image::plot(const QPoint& point, int index)
{
    put(point.x(), point.y(), index == -1 ? mInk : index);
}

void Layer2Image::fillRect(const QRect& rect, int index)
{
    // A rectangle whose corners are the wrong way round covers nothing;
    // QRect's intersection would turn it round.
    if (!rect.isValid())
        return;
    const QRect inside = rect & mImage.rect();
    if (inside.isEmpty() || !isIndexed() || !isColour(index))
        return;
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        std::memset(mImage.scanLine(y) + inside.left(), index, size_t(inside.width()));
}

void Layer2Image::drawLine(const QPoint& from, const QPoint& to)
{
    // Bresenham in floats, always walked upward along the major axis, so a
    // line and its reverse set the same pixels.
    const bool steep = std::abs(to.x() - from.x()) < std::abs(to.y() - from.y());
    auto major = [steep](const QPoint& p) { return steep ? p.y() : p.x(); };
    auto minor = [steep](const QPoint& p) { return steep ? p.x() : p.y(); };
    QPoint start = from;
    QPoint end = to;
    if (major(end) < major(start))
        std::swap(start, end);

    const float dMajor = float(major(end) - major(start));
    const float dMinor = float(std::abs(minor(end) - minor(start)));
    const int minorStep = minor(start) < minor(end) ? 1 : -1;
    float error = dMajor * 0.5f;
    int m = minor(start);
    for (int M = major(start); M <= major(end); ++M) {
        if (steep)
            put(m, M, mInk);
        else
            put(M, m, mInk);
        error -= dMinor;
        if (error < 0) {
            error += dMajor;
            m += minorStep;
        }
    }
}

void Layer2Image::drawRectangle(const QRect& rect)
{
    drawLine(rect.topLeft(), rect.topRight());
    drawLine(rect.bottomLeft(), rect.bottomRight());
    drawLine(rect.topLeft(), rect.bottomLeft());
    drawLine(rect.topRight(), rect.bottomRight());
}

void Layer2Image::drawEllipse(const QRect& rect)
{
    // Bresenham's ellipse in its bounding box; 64 bits because the error
    // terms grow with the fourth power of the box's size.
    qint64 left = rect.left();
    qint64 right = rect.right();
    const qint64 a = right - left;
    const qint64 b = qint64(rect.bottom()) - rect.top();
    const qint64 b1 = b & 1;
    qint64 dx = 4 * (1 - a) * b * b;
    qint64 dy = 4 * (b1 + 1) * a * a;
    qint64 err = dx + dy + b1 * a * a;
    qint64 yLow = rect.top() + (b + 1) / 2;
    qint64 yHigh = yLow - b1;

    do {
        put(right, yLow, mInk);
        put(left, yLow, mInk);
        put(left, yHigh, mInk);
        put(right, yHigh, mInk);
        const qint64 e2 = 2 * err;
        if (e2 <= dy) {
            ++yLow;
            --yHigh;
            dy += 8 * a * a;
            err += dy;
        }
        if (e2 >= dx || 2 * err > dy) {
            ++left;
            --right;
            dx += 8 * b * b;
            err += dx;
        }
    } while (left <= right);

    // A very flat ellipse stops before reaching its tips; finish them.
    while (yLow - yHigh <= b) {
        put(left - 1, yLow, mInk);
        put(right + 1, yLow, mInk);
        put(left - 1, yHigh, mInk);
        put(right + 1, yHigh, mInk);
        ++yLow;
        --yHigh;
    }
}

void Layer2Image::floodFill(const QPoint& seed, int index)
{
    if (!isIndexed() || !mImage.rect().contains(seed))
        return;
    const int target = pixel(seed);
    // An index the table does not hold could never be written, and the
    // region would be searched for ever.
    if (target == index || !isColour(index))
        return;

    // Span by span, from an explicit stack of seeds, so the region's size
    // is not bounded by the call stack. A span reaches only the rows above
    // and below within its own columns: the region is 4-connected.
    const int width = mImage.width();
    const int height = mImage.height();
    const uchar from = uchar(target);
    const uchar to = uchar(index);
    QList<QPoint> stack;
    stack.reserve(256);
    stack.append(seed);
    while (!stack.isEmpty()) {
        const QPoint p = stack.takeLast();
        uchar* row = mImage.scanLine(p.y());
        if (row[p.x()] != from)
            continue; // reached already from another seed
        int left = p.x();
        while (left > 0 && row[left - 1] == from)
            --left;
        int right = p.x();
        while (right + 1 < width && row[right + 1] == from)
            ++right;
        std::memset(row + left, to, size_t(right - left + 1));
        for (const int y : { p.y() - 1, p.y() + 1 }) {
            if (y < 0 || y >= height)
                continue;
            const uchar* next = mImage.constScanLine(y);
            // One seed for each run of the target index under the span.
            for (int x = left; x <= right; ++x)
                if (next[x] == from && (x == left || next[x - 1] != from))
                    stack.append(QPoint(x, y));
        }
    }
}

void Layer2Image::paste(const QRect& rect, const QImage& clip)
{
    if (!isIndexed() || clip.format() != QImage::Format_Indexed8)
        return;
    // The part of the target that both the clip and the image cover.
    const QRect source = QRect(rect.topLeft(), clip.size()) & rect;
    const QRect target = source & mImage.rect();
    if (target.isEmpty())
        return;
    const QPoint shift = target.topLeft() - rect.topLeft();
    for (int y = 0; y < target.height(); ++y)
        std::memcpy(mImage.scanLine(target.top() + y) + target.left(),
                    clip.constScanLine(shift.y() + y) + shift.x(), size_t(target.width()));
}

void Layer2Image::scrollUp()
{
    if (!isIndexed() || mImage.isNull())
        return;
    const size_t width = size_t(mImage.width());
    const QByteArray kept(reinterpret_cast<const char*>(mImage.constScanLine(0)), qsizetype(width));
    for (int y = 0; y + 1 < mImage.height(); ++y)
        std::memcpy(mImage.scanLine(y), mImage.constScanLine(y + 1), width);
    std::memcpy(mImage.scanLine(mImage.height() - 1), kept.constData(), width);
}

void Layer2Image::scrollDown()
{
    if (!isIndexed() || mImage.isNull())
        return;
    const size_t width = size_t(mImage.width());
    const int last = mImage.height() - 1;
    const QByteArray kept(reinterpret_cast<const char*>(mImage.constScanLine(last)), qsizetype(width));
    for (int y = last; y > 0; --y)
        std::memcpy(mImage.scanLine(y), mImage.constScanLine(y - 1), width);
    std::memcpy(mImage.scanLine(0), kept.constData(), width);
}

void Layer2Image::scrollLeft()
{
    if (!isIndexed() || mImage.isNull())
        return;
    const size_t last = size_t(mImage.width()) - 1;
    for (int y = 0; y < mImage.height(); ++y) {
        uchar* row = mImage.scanLine(y);
        const uchar kept = row[0];
        std::memmove(row, row + 1, last);
        row[last] = kept;
    }
}

void Layer2Image::scrollRight()
{
    if (!isIndexed() || mImage.isNull())
        return;
    const size_t last = size_t(mImage.width()) - 1;
    for (int y = 0; y < mImage.height(); ++y) {
        uchar* row = mImage.scanLine(y);
        const uchar kept = row[last];
        std::memmove(row + 1, row, last);
        row[0] = kept;
    }
}

void Layer2Image::rotate(int degrees, bool flip, bool mirror)
{
    if (!isIndexed())
        return;
    // Each turn writes (x, y) to (width - 1 - y, x) of a copy of the same
    // size. On a picture that is not square some writes fall outside and
    // some pixels of the copy are never reached; those keep their old
    // indices. The editors rely on the size staying as it is.
    const int width = mImage.width();
    const int height = mImage.height();
    for (; degrees > 0; degrees -= 90) {
        QImage turned = mImage.copy();
        for (int y = 0; y < height; ++y) {
            const uchar* row = mImage.constScanLine(y);
            const int toX = width - 1 - y;
            if (toX < 0)
                break;
            for (int x = 0; x < width && x < height; ++x)
                turned.scanLine(x)[toX] = row[x];
        }
        mImage = turned;
    }
    mImage = mImage.mirrored(mirror, flip);
}

int Layer2Image::banked(int index, int offset)
{
    // Unsigned, so that any offset wraps instead of overflowing.
    const uint high = ((uint(offset) - 1u) * 16u) & 0xF0u;
    return int((uint(index) & 0x0Fu) | high);
}

void Layer2Image::remap(int offset)
{
    if (isIndexed()) {
        const uchar high = uchar(banked(0, offset));
        for (int y = 0; y < mImage.height(); ++y) {
            uchar* row = mImage.scanLine(y);
            for (int x = 0; x < mImage.width(); ++x)
                row[x] = uchar((row[x] & 0x0F) | high);
        }
    }
    mInk = banked(mInk, offset);
    mPaper = banked(mPaper, offset);
}
