#include "ui/numberrange.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>

NumberRange::NumberRange(QWidget* parent)
    : QWidget(parent)
    , mBox(new QSpinBox(this))
    , mEnd(new QLabel(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mBox);
    layout->addWidget(mEnd);
    layout->addStretch();
    mBox->setKeyboardTracking(false);
    connect(mBox, qOverload<int>(&QSpinBox::valueChanged), this, &NumberRange::currentValueChanged);
    setRange(1, 1);
}

int NumberRange::value() const
{
    return mBox->value();
}

int NumberRange::minimum() const
{
    return mBox->minimum();
}

int NumberRange::maximum() const
{
    return mBox->maximum();
}

void NumberRange::setRange(int minimum, int maximum)
{
    mBox->setRange(minimum, maximum);
    mEnd->setText(tr("of %1").arg(maximum));
}

void NumberRange::setValue(int value)
{
    mBox->setValue(value);
}
