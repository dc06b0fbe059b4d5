#pragma once
#include <QImage>
#include <QString>
#include <QStringList>

class QIODevice;

// Pictures a user hands in, from any source: only raster formats that
// decode without a window system (a drawing format may need fonts and a
// display), and only up to a size that the imports can take, checked from
// the file's header before any pixel is decoded.
class PictureFile
{
public:
    // 2048 map cells of 8 pixels.
    static constexpr int MaxSide = 16384;
    // 256 MB as 32-bit pixels.
    static constexpr qint64 MaxPixels = qint64(64) << 20;

    // A null picture when the file is not an accepted picture or is too
    // large; for a size refused, `problem` says so, naming the file (callers
    // have their own words for a file that is no picture).
    static QImage read(const QString& fileName, QString* problem = nullptr);
    static QImage fromData(const QByteArray& bytes, const QString& name, QString* problem = nullptr);

    // "*.png *.bmp ..." for a file dialog.
    static QString patterns();

private:
    static QImage decode(QIODevice* device, const QString& name, QString* problem);
};
