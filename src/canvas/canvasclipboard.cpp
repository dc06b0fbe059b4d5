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

void CanvasClipboard::copyToClipboard()
{
    const QImage image = mCanvas->selectedImage();
    const QPointer<Palette> palette = mCanvas->colourPalette();

    // Two ints, the palette id, then the PNG to the end of the data; PNG
    // keeps palette indices, so the pixels arrive as they left.
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    stream << qint32(mCanvas->reserved()) << qint32(mCanvas->imageType()) << (palette ? palette->id() : QUuid());
    image.save(stream.device(), "png", -1);

    auto* data = new QMimeData;
    data->setData(MimeType, payload);
    data->setImageData(image); // for other programs
    QGuiApplication::clipboard()->setMimeData(data, QClipboard::Clipboard);

    // The context menu's "Cut" item calls this slot directly; the canvas
    // erases the selection when told so.
    const auto* action = qobject_cast<const QAction*>(sender());
    emit copied(action && action->text() == QLatin1String("Cut"));
}

bool CanvasClipboard::pasteFromClipboard()
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData(QClipboard::Clipboard);
    if (!data || !data->hasFormat(MimeType))
        return false;
    const QByteArray payload = data->data(MimeType);
    if (payload.isEmpty())
        return false;

    QDataStream stream(payload);
    qint32 reserved = 0;
    qint32 imageType = 0;
    QUuid paletteId;
    stream >> reserved >> imageType >> paletteId;
    QImage image;
    if (stream.status() != QDataStream::Ok || !image.load(stream.device(), "png"))
        return false;
    image = indexed(image);

    mReserved = reserved;
    mImageType = imageType;
    mImage = image;
    emit pasted(paletteId);
    return true;
}
