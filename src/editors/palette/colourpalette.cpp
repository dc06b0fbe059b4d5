#include "editors/palette/colourpalette.h"

#include "model/palette.h"

#include <QMouseEvent>
#include <QPainter>

ColourPalette::ColourPalette(Mode mode, QWidget* parent)
    : QWidget(parent)
    , mMode(mode)
{
    setFixedSize(sizeHint());
}

void ColourPalette::setMode(Mode mode)
{
    mMode = mode;
    mBank = 0;
    setFixedSize(sizeHint());
    update();
}

QSize ColourPalette::sizeHint() const
{
    const int rows = cellCount() / columns();
    return { columns() * cellSize() + 1, rows * cellSize() + 1 };
}

QRect ColourPalette::cellRect(int index) const
{
    const int cell = (index - firstIndex()) & (cellCount() - 1);
    return QRect((cell % columns()) * cellSize(), (cell / columns()) * cellSize(), cellSize(), cellSize());
}

int ColourPalette::indexAt(const QPoint& pos) const
{
    if (pos.x() < 0 || pos.y() < 0)
        return -1;
    const int column = pos.x() / cellSize();
    const int row = pos.y() / cellSize();
    if (column >= columns() || row * columns() + column >= cellCount())
        return -1;
    return firstIndex() + row * columns() + column;
}

void ColourPalette::setPalette(QPointer<Palette> palette)
{
    if (mPalette)
        disconnect(mPalette, nullptr, this, nullptr);
    mPalette = palette;
    if (mPalette)
        connect(mPalette, &Palette::colourChanged, this, &ColourPalette::paletteEntryChanged);
    update();
}

void ColourPalette::setPrimaryColour(int index)
{
    if (index < 0 || index >= Palette::Size)
        return;
    mPrimary = index;
    update();
}

void ColourPalette::setSecondaryColour(int index)
{
    if (index < 0 || index >= Palette::Size)
        return;
    mSecondary = index;
    update();
}

void ColourPalette::setOffset(int offset)
{
    if (mMode != Bank16)
        return;
    // As the canvas remaps: offset 0 wraps to the last bank.
    mBank = ((offset - 1) & 0x0F);
    // The canvas moves its ink and paper into the new bank by itself; the
    // marks follow without a signal.
    mPrimary = (mBank << 4) | (mPrimary & 0x0F);
    mSecondary = (mBank << 4) | (mSecondary & 0x0F);
    update();
}

void ColourPalette::paletteEntryChanged(int, const QColor&, bool)
{
    update();
}

void ColourPalette::updateColour(const QColor& colour, bool priority)
{
    if (mPalette)
        mPalette->setColour(mPrimary, colour, priority);
}

void ColourPalette::mousePressEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    if (index < 0)
        return;
    if (event->button() == Qt::LeftButton) {
        setPrimaryColour(index);
        emit primaryIndexChanged(index);
    } else if (event->button() == Qt::RightButton) {
        setSecondaryColour(index);
        emit secondaryIndexChanged(index);
    }
}

void ColourPalette::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    if (index >= 0 && event->button() == Qt::LeftButton)
        emit doubleClicked(index);
}

void ColourPalette::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    if (!mPalette)
        return;
    for (int cell = 0; cell < cellCount(); ++cell) {
        const int index = firstIndex() + cell;
        const QRect box = cellRect(index);
        painter.fillRect(box.adjusted(1, 1, 0, 0), QColor(mPalette->colour(index).rgb()));
    }
    // Paper: a dashed frame; ink: a solid double frame on top, so both show
    // when they are the same entry.
    const QRect paper = cellRect(mSecondary);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(paper.adjusted(0, 0, -1, -1).adjusted(1, 1, 0, 0));
    painter.setPen(QPen(Qt::black, 1, Qt::DashLine));
    painter.drawRect(paper.adjusted(1, 1, 0, 0).adjusted(0, 0, -1, -1));
    const QRect ink = cellRect(mPrimary).adjusted(0, 0, -1, -1);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawRect(ink);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(ink.adjusted(1, 1, -1, -1));
}
