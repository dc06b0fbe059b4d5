#include "canvas/canvasclipboard.h"

#include "canvas/canvas.h"
#include "model/palette.h"

#include <QAction>
#include <QBuffer>
#include <QClipboard>
#include <QDataStream>
#include <QGuiApplication>
#include <QMimeData>
#include <cstring>

const QString CanvasClipboard::MimeType = QStringLiteral("tintorel/canvas-anim");

namespace {

// PNG stores a picture of two colours one bit deep, and one whose table is
// the grey ramp as grey levels; either way the values are the indices, and
// this gives them back as an indexed picture.
QImage indexed(const QImage& image)
{
    if (image.format() == QImage::Format_Mono || image.format() == QImage::Format_MonoLSB)
        return image.convertToFormat(QImage::Format_Indexed8);
    if (image.format() != QImage::Format_Grayscale8)
        return image;
    QImage result(image.size(), QImage::Format_Indexed8);
    QList<QRgb> ramp(256);
    for (int i = 0; i < ramp.size(); ++i)
        ramp[i] = qRgb(i, i, i);
    result.setColorTable(ramp);
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(result.scanLine(y), image.constScanLine(y), size_t(image.width()));
    return result;
}

} // namespace

CanvasClipboard::CanvasClipboard(Canvas* canvas)
    : QObject(canvas)
    , mCanvas(canvas)
{
}

QMimeData* CanvasClipboard::encode(const Clip& clip)
{
    // Two ints, the palette id, then the PNG to the end of the data; PNG
    // keeps palette indices, so the pixels arrive as they left.
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    stream << qint32(clip.reserved) << qint32(clip.imageType) << clip.paletteId;
    clip.image.save(stream.device(), "png", -1);

    auto* data = new QMimeData;
    data->setData(MimeType, payload);
    data->setImageData(clip.image); // for other programs
    return data;
}

bool CanvasClipboard::decode(const QMimeData* data, Clip* clip)
{
    if (!data || !data->hasFormat(MimeType))
        return false;
    const QByteArray payload = data->data(MimeType);
    if (payload.isEmpty())
        return false;
    QDataStream stream(payload);
    Clip read;
    qint32 reserved = 0;
    qint32 imageType = 0;
    stream >> reserved >> imageType >> read.paletteId;
    if (stream.status() != QDataStream::Ok || !read.image.load(stream.device(), "png"))
        return false;
    read.reserved = reserved;
    read.imageType = imageType;
    read.image = indexed(read.image);
    *clip = read;
    return true;
}

void CanvasClipboard::copyToClipboard()
{
    const QPointer<Palette> palette = mCanvas->colourPalette();
    const Clip clip { mCanvas->reserved(), int(mCanvas->imageType()), palette ? palette->id() : QUuid(),
                      mCanvas->selectedImage() };
    QGuiApplication::clipboard()->setMimeData(encode(clip), QClipboard::Clipboard);

    // The context menu's "Cut" item calls this slot directly; the canvas
    // erases the selection when told so.
    const auto* action = qobject_cast<const QAction*>(sender());
    emit copied(action && action->text() == QLatin1String("Cut"));
}

bool CanvasClipboard::pasteFromClipboard()
{
    Clip clip;
    if (!decode(QGuiApplication::clipboard()->mimeData(QClipboard::Clipboard), &clip))
        return false;
    mReserved = clip.reserved;
    mImageType = clip.imageType;
    mImage = clip.image;
    emit pasted(clip.paletteId);
    return true;
}
