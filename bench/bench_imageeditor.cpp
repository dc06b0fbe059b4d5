#include "benchtable.h"

#include "canvas/canvas.h"
#include "editors/image/view.h"
#include "model/image.h"
#include "model/palette.h"

#include <QCoreApplication>

namespace {

// The wide screen in sixteen colours, in diagonal bands so that no run of
// equal pixels makes the scaling cheaper than a real picture.
QImage widePicture()
{
    QImage image(640, 256, QImage::Format_Indexed8);
    image.setColorCount(256);
    for (int y = 0; y < image.height(); ++y) {
        uchar* row = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x)
            row[x] = uchar((x / 3 + y * 7) % 16);
    }
    return image;
}

} // namespace

// The whole view repainted, as a full-screen tab on a large monitor shows
// it: tools, colours, scroll bars and the double-height canvas.
void benchImageEditor(BenchTable& table)
{
    Palette palette;
    palette.loadStandard();
    Image image(Tintorel::ImageMode::Layer2_640x256);
    image.setPalette(&palette);
    image.setImage(widePicture());
    ImageEditor::View view;
    view.setImage(&image);
    view.resize(1920, 1080);
    view.show();
    QCoreApplication::processEvents();
    view.canvas()->setZoomLevel(3);
    QCoreApplication::processEvents();
    table.measure("Image editor paint, 640 × 256 at zoom 3 in 1920 × 1080", "ms", 4, 31, [&] { view.repaint(); });
}
