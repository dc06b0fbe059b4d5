#pragma once
#include "canvas/canvas.h"

#include <QPointer>
#include <QScrollBar>
#include <QWidget>

// A canvas with a scroll bar on the right and one below, each shown only
// when the picture does not fit in its direction.
class ScrollCanvas : public QWidget
{
    Q_OBJECT
public:
    // `size` is the image's size in pixels.
    explicit ScrollCanvas(const QSize& size, QWidget* parent = nullptr);

    Canvas* canvas() const { return mCanvas; }
    QScrollBar* verticalScrollBar() const { return mVertical; }
    QScrollBar* horizontalScrollBar() const { return mHorizontal; }

public slots:
    void updateScrollAmounts(int horizontal, int vertical);
    void updateScrollBars(QPoint pos);

private:
    QPointer<Canvas> mCanvas;
    QPointer<QScrollBar> mVertical;
    QPointer<QScrollBar> mHorizontal;
};
