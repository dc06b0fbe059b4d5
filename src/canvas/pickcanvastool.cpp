#include "canvas/pickcanvastool.h"

#include "canvas/canvas.h"

#include <QCursor>
#include <QPixmap>

void PickCanvasTool::activate()
{
    mCanvas->setCursor(QCursor(QPixmap(QStringLiteral(":/PickerCursor")), 5, 28));
}

void PickCanvasTool::mouseRelease(QMouseEvent*)
{
    const QPoint at = mCanvas->lastPixel();
    if (!mCanvas->layer().rect().contains(at))
        return;
    if (mCanvas->buttons() & Qt::LeftButton)
        mCanvas->setForeground(mCanvas->layer().pixel(at));
    else if (mCanvas->buttons() & Qt::RightButton)
        mCanvas->setBackground(mCanvas->layer().pixel(at));
}
