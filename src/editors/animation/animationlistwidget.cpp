#include "editors/animation/animationlistwidget.h"

#include "model/animation.h"
#include "ui/themedicon.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace AnimationEditor {

namespace {

constexpr int AnimationRole = Qt::UserRole + 1;
constexpr int IconSide = 32;

QToolButton* button(const QString& icon, const QString& text, const QString& tip, QWidget* parent)
{
    auto* made = new QToolButton(parent);
    if (!icon.isEmpty())
        made->setIcon(themedIcon(icon));
    made->setText(text);
    made->setToolTip(tip);
    made->setAutoRaise(true);
    made->setToolButtonStyle(icon.isEmpty() ? Qt::ToolButtonTextOnly : Qt::ToolButtonIconOnly);
    return made;
}

} // namespace

AnimationListWidget::AnimationListWidget(Flags flags, QWidget* parent)
    : QWidget(parent)
    , mFlags(flags)
    , mList(new QListWidget(this))
    , mAdd(button(QStringLiteral(":NewIcon"), tr("Add"), tr("Add a new animation"), this))
    , mDelete(button(QStringLiteral(":Trashcan"), tr("Delete"), tr("Delete the selected animation"), this))
    , mClone(button(QString(), tr("Clone"), tr("Copy the selected animation"), this))
{
    mList->setIconSize(QSize(IconSide, IconSide));
    mList->setMinimumWidth(160);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(mAdd);
    buttons->addWidget(mDelete);
    buttons->addWidget(mClone);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(buttons);
    layout->addWidget(mList);

    connect(mAdd, &QToolButton::clicked, this, &AnimationListWidget::addRequested);
    connect(mDelete, &QToolButton::clicked, this, &AnimationListWidget::removeRequested);
    connect(mClone, &QToolButton::clicked, this, [this] {
        if (Animation* animation = selected())
            emit cloneRequested(animation);
    });
    connect(mList, &QListWidget::currentItemChanged, this, [this] {
        mDelete->setEnabled(selected());
        mClone->setEnabled(selected());
        emit selectedItemChanged(selected());
    });
    mDelete->setEnabled(false);
    mClone->setEnabled(false);
}

QString AnimationListWidget::textOf(const Animation* animation) const
{
    if (!(mFlags & Details))
        return animation->name();
    return tr("%1\n%4 frame(s) [%2x%3]")
        .arg(animation->name())
        .arg(animation->width())
        .arg(animation->height())
        .arg(animation->frameCount());
}

void AnimationListWidget::setAnimations(const QList<Animation*>& animations)
{
    const QSignalBlocker blocker(mList);
    for (auto it = mItems.cbegin(); it != mItems.cend(); ++it)
        disconnect(it.key(), nullptr, this, nullptr);
    mItems.clear();
    mList->clear();
    for (Animation* animation : animations)
        addAnimation(animation);
    mDelete->setEnabled(false);
    mClone->setEnabled(false);
}

void AnimationListWidget::addAnimation(Animation* animation)
{
    if (!animation || mItems.contains(animation))
        return;
    auto* item = new QListWidgetItem(mList);
    item->setData(AnimationRole, QVariant::fromValue<QObject*>(animation));
    mItems.insert(animation, item);
    refresh(animation);
    const auto update = [this, animation] { refresh(animation); };
    connect(animation, &Animation::nameChanged, this, update);
    connect(animation, &Animation::sizeChanged, this, update);
    connect(animation, &Animation::contentChanged, this, update);
    connect(animation, &Animation::frameChanged, this, update);
    connect(animation, &Animation::restored, this, update);
    connect(animation, &QObject::destroyed, this, [this, animation] {
        delete mItems.take(animation);
    });
}

void AnimationListWidget::removeAnimation(Animation* animation)
{
    if (!mItems.contains(animation))
        return;
    disconnect(animation, nullptr, this, nullptr);
    delete mItems.take(animation);
}

void AnimationListWidget::refresh(Animation* animation)
{
    QListWidgetItem* item = mItems.value(animation);
    if (!item)
        return;
    item->setText(textOf(animation));
    const QImage preview = animation->preview(0, QSize(IconSide, IconSide));
    item->setIcon(preview.isNull() ? QIcon() : QIcon(QPixmap::fromImage(preview)));
}

void AnimationListWidget::select(Animation* animation)
{
    mList->setCurrentItem(mItems.value(animation));
}

Animation* AnimationListWidget::selected() const
{
    const QListWidgetItem* item = mList->currentItem();
    return item ? qobject_cast<Animation*>(item->data(AnimationRole).value<QObject*>()) : nullptr;
}

QList<Animation*> AnimationListWidget::animations() const
{
    QList<Animation*> list;
    for (int row = 0; row < mList->count(); ++row)
        list << qobject_cast<Animation*>(mList->item(row)->data(AnimationRole).value<QObject*>());
    return list;
}

} // namespace AnimationEditor
