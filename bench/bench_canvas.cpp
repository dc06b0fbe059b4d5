#include "benchtable.h"

#include "canvas/canvas.h"
#include "canvas/layer2image.h"
#include "model/palette.h"

#include <QApplication>
#include <QMouseEvent>

namespace {

// A 640 x 256 picture of bands of many indices, so no run of equal pixels
// makes a paint or a scale cheaper than a real picture.
QImage bandedPicture()
{
    QImage image(640, 256, QImage::Format_Indexed8);
    image.setColorCount(256);
    for (int y = 0; y < image.height(); ++y) {
        uchar* row = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x)
            row[x] = uchar((x / 3 + y * 7) % 256);
    }
    return image;
}

void sendMouse(Canvas& canvas, QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, at, canvas.mapToGlobal(at), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&canvas, &event);
}

void benchPaint(BenchTable& table, Palette& palette)
{
    Canvas canvas(QSize(640, 256));
    canvas.setPalette(&palette);
    canvas.setImage(bandedPicture());
    canvas.setZoomLevel(3);
    canvas.resize(1920, 1080);
    canvas.show();
    QCoreApplication::processEvents();
    table.measure("Canvas paint 640x256, zoom 3, 1920x1080 widget", "ms", 4, 31, [&] { canvas.repaint(); });

    Canvas tile(QSize(8, 8));
    tile.setPalette(&palette);
    QImage picture(8, 8, QImage::Format_Indexed8);
    picture.setColorTable(palette.rgbTable());
    for (int i = 0; i < 64; ++i)
        picture.setPixel(i % 8, i / 8, i);
    tile.setImage(picture);
    tile.setZoomLevel(32);
    tile.setGridLinesVisible(true);
    tile.setMode(Tintorel::Ui::Grid, true); // the checker as well
    tile.resize(256, 256);
    tile.show();
    QCoreApplication::processEvents();
    table.measure("Canvas paint 8x8 tile, zoom 32, grid and checker", "ms", 4, 31, [&] { tile.repaint(); });

    // Each move lands on a new pixel, so each one plots and repaints.
    constexpr int Moves = 1000;
    const QPoint origin = canvas.imageArea().topLeft();
    int stroke = 0;
    table.measure("Canvas Draw stroke, 1,000 moves with repaint (per move)", "ms", 4, 5, [&] {
        const int y = 3 * (10 + 20 * (stroke++ % 10));
        sendMouse(canvas, QEvent::MouseMove, origin + QPoint(0, y), Qt::NoButton, Qt::NoButton);
        sendMouse(canvas, QEvent::MouseButtonPress, origin + QPoint(0, y), Qt::LeftButton, Qt::LeftButton);
        for (int i = 1; i <= Moves; ++i)
            sendMouse(canvas, QEvent::MouseMove, origin + QPoint(3 * (i % 640), y + 3 * (i / 640)), Qt::NoButton,
                      Qt::LeftButton);
        sendMouse(canvas, QEvent::MouseButtonRelease, origin + QPoint(0, y), Qt::LeftButton, Qt::NoButton);
    }, Moves);
}

void benchFloodFill(BenchTable& table)
{
    Layer2Image layer(QSize(640, 256));
    int index = 1;
    // Each run turns the whole picture, one region, to the other index.
    table.measure("Layer2Image::floodFill 640x256, one region", "ms", 3, 31, [&] {
        layer.floodFill(QPoint(320, 128), index);
        index = 3 - index;
    });
}

} // namespace

void benchCanvas(BenchTable& table)
{
    Palette palette;
    palette.loadStandard();
    benchPaint(table, palette);
    benchFloodFill(table);
}
