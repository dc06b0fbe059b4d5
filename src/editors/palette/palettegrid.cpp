#include "editors/palette/palettegrid.h"

#include "model/palette.h"

#include <QMouseEvent>
#include <QPainter>

PaletteGrid::PaletteGrid(QWidget* parent)
    : QWidget(parent)
{
    setFixedSize(sizeHint());
}

void PaletteGrid::setPalette(QPointer<Palette> palette)
{
    if (mPalette)
        disconnect(mPalette, nullptr, this, nullptr);
    mPalette = palette;
    if (mPalette)
        connect(mPalette, &Palette::colourChanged, this, &PaletteGrid::updateColour);
    update();
}

int PaletteGrid::indexAt(const QPoint& pos)
{
    // Clamped, so that a drag past an edge stays on the grid.
    const int x = qBound(0, pos.x(), 255);
    const int y = qBound(0, pos.y(), 255);
    return (y / Pitch) * 16 + x / Pitch;
}

void PaletteGrid::setSelection(int first, int last)
{
    select(qBound(0, first, 255), qBound(0, last, 255));
}

void PaletteGrid::select(int anchor, int end)
{
    const int oldFirst = first();
    const int oldLast = last();
    mAnchor = anchor;
    mEnd = end;
    update();
    if (first() != oldFirst || last() != oldLast)
        emit selectionChanged(first(), last());
}

void PaletteGrid::updateColour(int, const QColor&)
{
    update();
}

void PaletteGrid::mousePressEvent(QMouseEvent* event)
{
    if (!mPalette)
        return;
    const int index = indexAt(event->position().toPoint());
    // A press always reports, so that the editor reloads the entry.
    mAnchor = mEnd = -1;
    select(index, index);
}

void PaletteGrid::mouseMoveEvent(QMouseEvent* event)
{
    if (mPalette && (event->buttons() & Qt::LeftButton))
        select(mAnchor, indexAt(event->position().toPoint()));
}

void PaletteGrid::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    if (!mPalette)
        return;
    const QList<QColor> colours = mPalette->colours();
    QPen frame(QColor(0x58, 0x58, 0x58), 1, Qt::DotLine);
    for (int i = 0; i < 256; ++i) {
        const QRect cell((i % 16) * Pitch, (i / 16) * Pitch, Pitch - 1, Pitch - 1);
        painter.fillRect(cell, QBrush(QColor(colours.at(i).rgb()), Qt::SolidPattern));
        painter.setPen(frame);
        painter.drawRect(cell.adjusted(0, 0, 1, 1));
    }
    // The selection: a black and a white frame, seen on any colour.
    for (int i = first(); i <= last(); ++i) {
        const QRect cell((i % 16) * Pitch, (i / 16) * Pitch, Pitch, Pitch);
        painter.setPen(QPen(Qt::black, 1));
        painter.drawRect(cell.adjusted(0, 0, -1, -1));
        painter.setPen(QPen(Qt::white, 1));
        painter.drawRect(cell.adjusted(1, 1, -2, -2));
    }
}
