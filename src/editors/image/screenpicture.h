#pragma once
#include <QImage>
#include <QList>

namespace ImageEditor {

// A picture from a file made fit for one screen: indexed, of the screen's
// size, in no more colours than the screen shows, each on the machine's grid.
struct ScreenPicture
{
    // Format_Indexed8; every index is below colours.size().
    QImage indexed;
    // The colour table, in order of first appearance.
    QList<QRgb> colours;
};

// The picture is cropped, or padded with index 0, at its top-left corner.
// When it holds more than `maxColours` colours the most used ones stay, and
// every other colour takes its nearest among them. Alpha is ignored. A null
// source gives a null picture.
ScreenPicture screenPicture(const QImage& source, const QSize& size, int maxColours);

} // namespace ImageEditor
