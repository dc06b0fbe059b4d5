#include "canvas/pastecanvastool.h"

#include "canvas/canvas.h"
#include "canvas/canvasclipboard.h"
#include "canvas/canvaspainter.h"
#include "model/palette.h"

#include <QPen>

QImage PasteCanvasTool::clip() const
{
    const CanvasClipboard* clipboard = mCanvas->clipboard();
    if (!clipboard || clipboard->imageType() == int(Tintorel::Ui::ImageType::Undefined)
        || clipboard->image().isNull())
        return QImage();
    return clipboard->image();
}

void PasteCanvasTool::mouseRelease(QMouseEvent*)
{
    const QImage stamp = clip();
    if (stamp.isNull())
        return;
    // Indices go over as they are: no conversion between palettes.
    const QPoint at = mCanvas->lastPixel();
    const QRect target(at.x() - stamp.width() / 2, at.y() - stamp.height() / 2, stamp.width(), stamp.height());
    mCanvas->doEdit(QStringLiteral("Paste"), -1, [&](Layer2Image& layer) { layer.paste(target, stamp); });
}

void PasteCanvasTool::paint(CanvasPainter& painter)
{
    QImage stamp = clip();
    const QPointer<Palette> palette = mCanvas->colourPalette();
    if (stamp.isNull() || !palette)
        return;
    stamp.setColorTable(palette->rgbTable());

    const int zoom = mCanvas->zoom();
    const QRect area = mCanvas->imageArea();
    const QPoint at = mCanvas->lastPixel() - mCanvas->scrollOffset();
    const QRect shown((at.x() - stamp.width() / 2) * zoom + area.left(),
                      (at.y() - stamp.height() / 2) * painter.zoomY() + area.top(), stamp.width() * zoom,
                      stamp.height() * painter.zoomY());
    painter.setClipRect(area, Qt::ReplaceClip);
    painter.drawImage(shown, stamp);

    // Black under white dots, so the frame shows on any picture.
    QPen pen(Qt::black, 2, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    painter.setPen(pen);
    painter.drawRect(shown.adjusted(0, 0, -1, -1));
    painter.drawRect(shown.adjusted(1, 1, 0, 0));
    pen.setColor(Qt::white);
    pen.setStyle(Qt::DotLine);
    painter.setPen(pen);
    painter.drawRect(shown.adjusted(0, 0, -1, -1));
    painter.setClipRect(mCanvas->rect());
}
