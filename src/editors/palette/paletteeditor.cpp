#include "editors/palette/paletteeditor.h"

#include "editors/palette/coloureditor.h"
#include "model/palette.h"

#include <QLabel>
#include <QVBoxLayout>

PaletteEditor::PaletteEditor(QWidget* parent)
    : QWidget(parent)
    , mEditor(new ColourEditor(this))
    , mIndex(new QLabel(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mIndex);
    layout->addWidget(mEditor);
    connect(mEditor, &ColourEditor::colourChanged, this, &PaletteEditor::colourChanged);
    setEnabled(false);
}

void PaletteEditor::setPalette(QPointer<Palette> palette)
{
    if (mPalette)
        disconnect(mPalette, nullptr, this, nullptr);
    mPalette = palette;
    setEnabled(mPalette);
    if (!mPalette)
        return;
    connect(mPalette, &Palette::colourChanged, this, [this](int index) {
        if (index == mFirst)
            load();
    });
    load();
}

void PaletteEditor::setSelectedIndex(int index)
{
    selectionChanged(index, index);
}

void PaletteEditor::selectionChanged(int first, int last)
{
    mFirst = qBound(0, qMin(first, last), Palette::Size - 1);
    mLast = qBound(0, qMax(first, last), Palette::Size - 1);
    load();
}

void PaletteEditor::load()
{
    mIndex->setText(mFirst == mLast ? tr("Colour %1").arg(mFirst) : tr("Colours %1 to %2").arg(mFirst).arg(mLast));
    if (mPalette)
        mEditor->setColour(mPalette->colour(mFirst), mPalette->priority(mFirst));
}

void PaletteEditor::colourChanged(const QColor& color, bool priority)
{
    if (!mPalette)
        return;
    for (int index = mFirst; index <= mLast; ++index)
        mPalette->setColour(index, color, priority);
    emit paletteChanged(mFirst, mLast, color);
}
