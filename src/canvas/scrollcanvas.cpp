#include "canvas/scrollcanvas.h"

#include "canvas/canvas.h"

#include <QGridLayout>
#include <QScrollBar>

ScrollCanvas::ScrollCanvas(const QSize& size, QWidget* parent)
    : QWidget(parent)
    , mCanvas(new Canvas(size, this))
    , mVertical(new QScrollBar(Qt::Vertical, this))
    , mHorizontal(new QScrollBar(Qt::Horizontal, this))
{
    auto* layout = new QGridLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mCanvas, 0, 0);
    layout->addWidget(mVertical, 0, 1);
    layout->addWidget(mHorizontal, 1, 0);

    connect(mCanvas, &Canvas::scrollValuesChanged, this, &ScrollCanvas::updateScrollAmounts);
    connect(mCanvas, &Canvas::scrollPositionChanged, this, &ScrollCanvas::updateScrollBars);
    // The canvas's position slots are crossed in name: the vertical bar
    // drives setHorizontalPosition, which moves the rows.
    connect(mVertical, &QScrollBar::valueChanged, mCanvas, &Canvas::setHorizontalPosition);
    connect(mHorizontal, &QScrollBar::valueChanged, mCanvas, &Canvas::setVerticalPosition);
}

void ScrollCanvas::updateScrollAmounts(int horizontal, int vertical)
{
    mVertical->setRange(0, vertical);
    mHorizontal->setRange(0, horizontal);
    mVertical->setVisible(vertical >= 1);
    mHorizontal->setVisible(horizontal >= 1);
}

void ScrollCanvas::updateScrollBars(QPoint pos)
{
    mVertical->setValue(pos.y());
    mHorizontal->setValue(pos.x());
}
