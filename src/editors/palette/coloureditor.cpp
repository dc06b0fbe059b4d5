#include "editors/palette/coloureditor.h"

#include "editors/palette/rgbeditor.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

QLabel* swatch(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setFixedSize(48, 32);
    label->setAutoFillBackground(true);
    label->setFrameShape(QFrame::Box);
    return label;
}

void paint(QLabel* swatch, const QColor& colour)
{
    QPalette palette = swatch->palette();
    palette.setColor(QPalette::Window, colour);
    swatch->setPalette(palette);
    swatch->setToolTip(colour.name());
}

bool sameLevels(const QColor& a, const QColor& b)
{
    return RgbEditor::levelOf(a.red()) == RgbEditor::levelOf(b.red())
           && RgbEditor::levelOf(a.green()) == RgbEditor::levelOf(b.green())
           && RgbEditor::levelOf(a.blue()) == RgbEditor::levelOf(b.blue());
}

} // namespace

ColourEditor::ColourEditor(QWidget* parent)
    : QWidget(parent)
    , mSavedSwatch(swatch(this))
    , mEditedSwatch(swatch(this))
    , mRgb(new RgbEditor(this))
    , mPriority(new QCheckBox(tr("Priority"), this))
    , mOk(new QPushButton(tr("OK"), this))
    , mCancel(new QPushButton(tr("Cancel"), this))
{
    mSavedSwatch->setToolTip(tr("Saved colour"));
    mPriority->setToolTip(tr("Layer 2 priority\nIf set, this colour will always appear on top"));
    auto* swatches = new QHBoxLayout;
    swatches->addWidget(mSavedSwatch);
    swatches->addWidget(mEditedSwatch);
    swatches->addStretch();
    swatches->addWidget(mPriority);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(mOk);
    buttons->addWidget(mCancel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(swatches);
    layout->addWidget(mRgb);
    layout->addLayout(buttons);

    connect(mRgb, &RgbEditor::colourChanged, this, &ColourEditor::rgbValueChanged);
    connect(mPriority, &QCheckBox::toggled, this, &ColourEditor::priorityChanged);
    connect(mOk, &QPushButton::clicked, this, &ColourEditor::okClick);
    connect(mCancel, &QPushButton::clicked, this, &ColourEditor::cancelClick);
    setColour(Qt::black, false);
}

bool ColourEditor::priority() const
{
    return mPriority->isChecked();
}

void ColourEditor::setColour(const QColor& colour, bool priority)
{
    mSaved = colour;
    mSavedPriority = priority;
    paint(mSavedSwatch, colour);
    {
        const QSignalBlocker blocker(mPriority);
        mPriority->setChecked(priority);
    }
    mRgb->setColour(colour);
    showEdited(colour);
}

void ColourEditor::showEdited(const QColor& colour)
{
    mEdited = colour;
    paint(mEditedSwatch, colour);
    updateOk();
}

void ColourEditor::updateOk()
{
    mOk->setEnabled(mEdited.rgb() != mSaved.rgb() || mPriority->isChecked() != mSavedPriority);
}

void ColourEditor::rgbValueChanged(const QColor& colour)
{
    showEdited(colour);
}

void ColourEditor::priorityChanged(bool)
{
    updateOk();
}

void ColourEditor::okClick()
{
    mSaved = mEdited;
    mSavedPriority = mPriority->isChecked();
    paint(mSavedSwatch, mSaved);
    updateOk();
    emit colourChanged(mEdited, mSavedPriority);
}

void ColourEditor::cancelClick()
{
    {
        const QSignalBlocker blocker(mPriority);
        mPriority->setChecked(mSavedPriority);
    }
    mRgb->setColour(mSaved);
    showEdited(mSaved);
    emit cancelled();
}

void ColourEditor::step(bool darker)
{
    const QColor start = mEdited;
    for (int factor = 100; factor <= 198; ++factor) {
        const QColor c = darker ? start.darker(factor) : start.lighter(factor);
        if (!sameLevels(c, start)) {
            const QColor rgb = c.toRgb();
            mRgb->setColour(rgb);
            showEdited(rgb);
            return;
        }
    }
}

void ColourEditor::darken()
{
    step(true);
}

void ColourEditor::lighten()
{
    step(false);
}
