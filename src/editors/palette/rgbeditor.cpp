#include "editors/palette/rgbeditor.h"

#include "editors/palette/channelslider.h"
#include "model/palette.h"

#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>

RgbEditor::RgbEditor(QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    const QString names[3] = { tr("Red"), tr("Green"), tr("Blue") };
    for (int row = 0; row < 3; ++row) {
        auto* label = new QLabel(names[row], this);
        // At least 20 pixels, and as wide as the name needs.
        label->setMinimumWidth(20);
        auto* slider = new ChannelSlider(this);
        auto* box = new QSpinBox(this);
        box->setRange(0, 7);
        box->setFixedWidth(30);
        box->setButtonSymbols(QAbstractSpinBox::NoButtons);
        connect(slider, &QSlider::valueChanged, box, &QSpinBox::setValue);
        connect(box, qOverload<int>(&QSpinBox::valueChanged), slider, &QSlider::setValue);
        connect(slider, &QSlider::valueChanged, this, &RgbEditor::sliderValuesChanged);
        layout->addWidget(label, row, 0);
        layout->addWidget(slider, row, 1);
        layout->addWidget(box, row, 2);
        mSliders[row] = slider;
        mBoxes[row] = box;
    }
}

QColor RgbEditor::colour() const
{
    return QColor(Palette::channelForLevel(mSliders[0]->value()), Palette::channelForLevel(mSliders[1]->value()),
                  Palette::channelForLevel(mSliders[2]->value()));
}

void RgbEditor::setColour(const QColor& colour)
{
    const int levels[3] = { levelOf(colour.red()), levelOf(colour.green()), levelOf(colour.blue()) };
    for (int row = 0; row < 3; ++row) {
        const QSignalBlocker sliderBlocker(mSliders[row]);
        const QSignalBlocker boxBlocker(mBoxes[row]);
        mSliders[row]->setValue(levels[row]);
        mBoxes[row]->setValue(levels[row]);
    }
}

void RgbEditor::sliderValuesChanged(int)
{
    emit colourChanged(colour());
}
