#include "editors/animation/animationtoolbar.h"

#include "model/animation.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

namespace AnimationEditor {

namespace {

QSpinBox* box(int minimum, int maximum, const QString& tip, QWidget* parent)
{
    auto* made = new QSpinBox(parent);
    made->setRange(minimum, maximum);
    made->setToolTip(tip);
    made->setKeyboardTracking(false);
    return made;
}

} // namespace

AnimationToolBar::AnimationToolBar(QWidget* parent)
    : QWidget(parent)
    , mRow(new QHBoxLayout(this))
    , mName(new QLineEdit(this))
    , mWidth(box(1, 16, tr("Set the frame width in tiles"), this))
    , mHeight(box(1, 16, tr("Set the frame height in tiles"), this))
    , mDelay(box(0, 50, tr("Set the delay between animation frames"), this))
{
    mRow->setContentsMargins(0, 0, 0, 0);
    mName->setPlaceholderText(tr("Enter a name"));
    // Room for a name to be read when the tab is narrow.
    mName->setMinimumWidth(mName->fontMetrics().horizontalAdvance(QLatin1Char('M')) * 8);
    mDelay->setWhatsThis(tr("0 = No Delay, 1 = 25fps, 2 = 12.5fps"));
    mDelay->setToolTip(mDelay->toolTip() + QLatin1Char('\n') + mDelay->whatsThis());
    mRow->addWidget(mName, 1);
    mRow->addWidget(new QLabel(tr("W:"), this));
    mRow->addWidget(mWidth);
    mRow->addWidget(new QLabel(tr("H:"), this));
    mRow->addWidget(mHeight);
    mRow->addWidget(new QLabel(tr("Delay:"), this));
    mRow->addWidget(mDelay);
    connect(mName, &QLineEdit::editingFinished, this, [this] { emit nameChanged(mName->text()); });
    connect(mWidth, qOverload<int>(&QSpinBox::valueChanged), this, &AnimationToolBar::widthChanged);
    connect(mHeight, qOverload<int>(&QSpinBox::valueChanged), this, &AnimationToolBar::heightChanged);
    connect(mDelay, qOverload<int>(&QSpinBox::valueChanged), this, &AnimationToolBar::delayChanged);
    setEnabled(false);
}

void AnimationToolBar::setAnimation(Animation* animation)
{
    if (mAnimation) {
        disconnect(mAnimation, nullptr, this, nullptr);
        disconnect(this, nullptr, mAnimation, nullptr);
    }
    mAnimation = animation;
    setEnabled(mAnimation);
    load();
    if (!mAnimation)
        return;
    connect(this, &AnimationToolBar::nameChanged, mAnimation, &Animation::setName);
    connect(this, &AnimationToolBar::widthChanged, mAnimation, &Animation::setWidth);
    connect(this, &AnimationToolBar::heightChanged, mAnimation, &Animation::setHeight);
    connect(this, &AnimationToolBar::delayChanged, mAnimation, &Animation::setDelay);
    for (auto signal : { &Animation::sizeChanged })
        connect(mAnimation, signal, this, &AnimationToolBar::load);
    connect(mAnimation, &Animation::nameChanged, this, &AnimationToolBar::load);
    connect(mAnimation, &Animation::delayChanged, this, &AnimationToolBar::load);
    connect(mAnimation, &Animation::restored, this, &AnimationToolBar::load);
}

void AnimationToolBar::load()
{
    const QSignalBlocker name(mName);
    const QSignalBlocker width(mWidth);
    const QSignalBlocker height(mHeight);
    const QSignalBlocker delay(mDelay);
    mName->setText(mAnimation ? mAnimation->name() : QString());
    mWidth->setValue(mAnimation ? mAnimation->width() : 1);
    mHeight->setValue(mAnimation ? mAnimation->height() : 1);
    mDelay->setValue(mAnimation ? mAnimation->delay() : 0);
}

} // namespace AnimationEditor
