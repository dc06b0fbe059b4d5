#include "mapeditor/spriteproperties.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QSpinBox>

namespace MapEditor {

namespace {

QSpinBox* box(const char* name, int maximum, QWidget* parent)
{
    auto* made = new QSpinBox(parent);
    made->setObjectName(QString::fromLatin1(name));
    made->setRange(0, maximum);
    made->setKeyboardTracking(false);
    return made;
}

QCheckBox* check(const QString& text, const char* name, QWidget* parent)
{
    auto* made = new QCheckBox(text, parent);
    made->setObjectName(QString::fromLatin1(name));
    return made;
}

} // namespace

SpriteProperties::SpriteProperties(QWidget* parent)
    : QWidget(parent)
    , mName(new QLineEdit(this))
    , mMirror(check(tr("Mirror"), "mirror", this))
    , mFlip(check(tr("Flip"), "flip", this))
    , mRotate(check(tr("Rotate"), "rotate", this))
    , mStartFrame(box("startFrame", 255, this))
    , mInitialDelay(box("initialDelay", 9999, this))
    , mRepeatDelay(box("repeatDelay", 9999, this))
    , mPaletteOffset(box("paletteOffset", 15, this))
{
    mName->setObjectName(QStringLiteral("name"));
    auto* form = new QFormLayout(this);
    form->addRow(tr("Name"), mName);
    form->addRow(QString(), mMirror);
    form->addRow(QString(), mFlip);
    form->addRow(QString(), mRotate);
    form->addRow(tr("Start frame"), mStartFrame);
    form->addRow(tr("Initial delay"), mInitialDelay);
    form->addRow(tr("Repeat delay"), mRepeatDelay);
    form->addRow(tr("Palette offset"), mPaletteOffset);
    connect(mName, &QLineEdit::editingFinished, this, &SpriteProperties::read);
    for (QCheckBox* flag : { mMirror, mFlip, mRotate })
        connect(flag, &QCheckBox::toggled, this, &SpriteProperties::read);
    for (QSpinBox* number : { mStartFrame, mInitialDelay, mRepeatDelay, mPaletteOffset })
        connect(number, qOverload<int>(&QSpinBox::valueChanged), this, &SpriteProperties::read);
    setEnabled(false);
}

void SpriteProperties::setSprite(const Map::PlacedSprite* sprite)
{
    setEnabled(sprite);
    if (!sprite)
        return;
    mLoading = true;
    mSprite = *sprite;
    mName->setText(sprite->name);
    mMirror->setChecked(sprite->mirror);
    mFlip->setChecked(sprite->flip);
    mRotate->setChecked(sprite->rotate);
    mStartFrame->setValue(sprite->startFrame);
    mInitialDelay->setValue(sprite->initialDelay);
    mRepeatDelay->setValue(sprite->repeatDelay);
    mPaletteOffset->setValue(sprite->paletteOffset);
    mLoading = false;
}

void SpriteProperties::read()
{
    if (mLoading)
        return;
    Map::PlacedSprite edited = mSprite;
    edited.name = mName->text();
    edited.mirror = mMirror->isChecked();
    edited.flip = mFlip->isChecked();
    edited.rotate = mRotate->isChecked();
    edited.startFrame = mStartFrame->value();
    edited.initialDelay = mInitialDelay->value();
    edited.repeatDelay = mRepeatDelay->value();
    edited.paletteOffset = mPaletteOffset->value();
    if (edited == mSprite)
        return;
    mSprite = edited;
    emit spriteEdited(edited);
}

} // namespace MapEditor
