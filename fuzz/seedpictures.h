#pragma once
#include <QByteArray>

// The picture of the picture seeds: 24 x 16 pixels in four colours, three
// tiles across and two down with a mirrored pair among them, and a sprite's
// width with a margin.
namespace SeedPictures {

// The picture in a format that the import dialogs offer ("png", "gif", ...).
QByteArray encoded(const QByteArray& format);

} // namespace SeedPictures
