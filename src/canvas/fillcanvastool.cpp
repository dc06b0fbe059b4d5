#include "canvas/fillcanvastool.h"

#include "canvas/canvas.h"

#include <QCursor>
#include <QPixmap>

void FillCanvasTool::activate()
{
    mCanvas->setCursor(QCursor(QPixmap(QStringLiteral(":/FillCursor")), 29, 26));
}

void FillCanvasTool::mouseRelease(QMouseEvent*)
{
    mCanvas->beginEdit();
    // Both buttons held: the paper fill lands over the ink fill, one step.
    if (mCanvas->buttons() & Qt::LeftButton)
        mCanvas->layer().floodFill(mCanvas->lastPixel(), mCanvas->ink());
    if (mCanvas->buttons() & Qt::RightButton)
        mCanvas->layer().floodFill(mCanvas->lastPixel(), mCanvas->paper());
    mCanvas->update();
    emit mCanvas->imageChanged();
    mCanvas->commitEdit(QStringLiteral("Fill"), -1);
}
