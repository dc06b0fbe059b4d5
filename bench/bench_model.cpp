#include "benchtable.h"

#include "model/nximage.h"

#include <QImage>

namespace {

// 2048 x 2048 with 4,000 distinct grid colours, spread so that no run of
// equal pixels hides the per-pixel cost.
QImage manyColourPicture()
{
    QImage picture(2048, 2048, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const int n = (x * 7919 + y * 104729) % 4000;
            row[x] = qRgb((n % 16) * 16, ((n / 16) % 16) * 16, (n / 256) * 16);
        }
    }
    return picture;
}

} // namespace

void benchModel(BenchTable& table)
{
    const QImage picture = manyColourPicture();
    table.measure("NxImage::load 2048x2048, 4000 colours", "s", 0.5, 5, [&] {
        NxImage image;
        image.load(picture);
        if (image.colours().size() != 4000)
            qFatal("expected 4000 colours, got %d", int(image.colours().size()));
    });
}
