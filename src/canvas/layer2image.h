#pragma once
#include <QImage>
#include <QObject>
#include <QPointer>

class Palette;

// An indexed picture with the drawing primitives of the canvas. Every
// primitive writes palette indices into the image's bytes and silently
// drops pixels outside it, and none emits a signal, so the canvas decides
// what an edit is. Nothing here needs a widget.
class Layer2Image : public QObject
{
    Q_OBJECT
public:
    explicit Layer2Image(const QSize& size, QObject* parent = nullptr);

    int width() const { return mImage.width(); }
    int height() const { return mImage.height(); }
    QRect rect() const { return mImage.rect(); }
    QImage image() const { return mImage; }
    void setImage(const QImage& image) { mImage = image; }
    // The index at `point`, or -1 outside the image.
    int pixel(const QPoint& point) const;

    int ink() const { return mInk; }
    int paper() const { return mPaper; }
    // Stored only within 0 to colorCount(); the upper bound is inclusive.
    void setInk(int index);
    void setPaper(int index);
    QPointer<Palette> palette() const { return mPalette; }
    // Takes the palette's colour table; a null palette leaves none.
    void setPalette(QPointer<Palette> palette);

    // An index of -1 stands for ink. Indices the colour table does not hold
    // are refused, as QImage::setPixel refuses them.
    void plot(const QPoint& point, int index = -1);
    void plotPaper(const QPoint& point) { plot(point, mPaper); }
    // `rect` is inclusive of both corners.
    void fillRect(const QRect& rect, int index);
    void drawLine(const QPoint& from, const QPoint& to);
    void drawRectangle(const QRect& rect);
    // The ellipse inside the bounding `rect`, tips of flat ones included.
    void drawEllipse(const QRect& rect);
    // 4-connected; a seed outside the image or already in `index` does nothing.
    void floodFill(const QPoint& seed, int index);
    // Copies `clip` from its top-left into `rect`, every index, 0 included.
    void paste(const QRect& rect, const QImage& clip);

    // Circular moves by one pixel: what leaves one edge comes back at the other.
    void scrollUp();
    void scrollDown();
    void scrollLeft();
    void scrollRight();
    // Quarter turns clockwise that keep the image's size, then the mirrors:
    // `mirror` left-right, `flip` top-bottom.
    void rotate(int degrees, bool flip, bool mirror);
    // Puts pixels, ink and paper into bank `offset` (1 to 16) of a 4-bit picture.
    void remap(int offset);
    // `index` moved into bank `offset`; offset 0 gives the last bank.
    static int banked(int index, int offset);

private:
    bool isIndexed() const { return mImage.format() == QImage::Format_Indexed8; }
    bool isColour(int index) const { return index >= 0 && index < mImage.colorCount(); }
    // The one pixel write of the shapes: bounds and index tested, no warning.
    void put(qint64 x, qint64 y, int index);

    QImage mImage;
    QPointer<Palette> mPalette;
    int mInk = 1;
    int mPaper = 0;
};
