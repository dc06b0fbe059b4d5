#include "mapeditor/spriteanimselector.h"

#include "editors/animation/animationlistwidget.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "project/project.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

SpriteAnimSelector::SpriteAnimSelector(QWidget* parent)
    : QWidget(parent)
    , mBanks(new QComboBox(this))
    , mAnimations(new AnimationEditor::AnimationListWidget(AnimationEditor::AnimationListWidget::NoFlags, this))
    , mMessage(new QLabel(tr("No animations in this bank"), this))
    , mSprites(new QListWidget(this))
{
    // Here the list only chooses; the bank's tab makes and deletes.
    for (QToolButton* button : { mAnimations->addButton(), mAnimations->deleteButton(), mAnimations->cloneButton() })
        button->hide();
    mSprites->setObjectName(QStringLiteral("sprites"));
    mSprites->setViewMode(QListView::IconMode);
    mSprites->setResizeMode(QListView::Adjust);
    mSprites->setMovement(QListView::Static);
    mSprites->setIconSize(QSize(32, 32));
    mMessage->setEnabled(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mBanks);
    layout->addWidget(new QLabel(tr("Animations"), this));
    layout->addWidget(mMessage);
    layout->addWidget(mAnimations, 1);
    layout->addWidget(new QLabel(tr("Sprites"), this));
    layout->addWidget(mSprites, 1);

    connect(mBanks, qOverload<int>(&QComboBox::currentIndexChanged), this, &SpriteAnimSelector::showBank);
    connect(mAnimations, &AnimationEditor::AnimationListWidget::selectedItemChanged, this, [this](Animation* animation) {
        if (auto* sprite = qobject_cast<SpriteAnim*>(animation))
            emit selectionChanged(sprite);
    });
    connect(mSprites, &QListWidget::currentRowChanged, this, [this](int row) {
        if (mBank && row >= 0)
            emit spriteChosen(mBank->id(), row);
    });
}

void SpriteAnimSelector::setProject(QPointer<Project> project)
{
    if (mProject)
        disconnect(mProject, nullptr, this, nullptr);
    mProject = project;
    if (mProject)
        connect(mProject, &Project::spritesCreated, this, &SpriteAnimSelector::fillBanks);
    fillBanks();
}

void SpriteAnimSelector::fillBanks()
{
    const QUuid shown = mBank ? mBank->id() : QUuid();
    {
        const QSignalBlocker blocker(mBanks);
        mBanks->clear();
        if (mProject)
            for (const QPointer<SpriteBank>& bank : mProject->spriteBanks())
                if (bank)
                    mBanks->addItem(bank->name(), bank->id());
        mBanks->model()->sort(0);
    }
    // A valid current index, or the first.
    mBanks->setCurrentIndex(qMax(0, mBanks->findData(shown)));
    showBank(mBanks->currentIndex());
}

void SpriteAnimSelector::showBank(int index)
{
    if (mBank)
        disconnect(mBank, nullptr, this, nullptr);
    mBank = mProject && index >= 0 ? mProject->spriteBank(mBanks->itemData(index).toUuid()) : nullptr;
    if (mBank) {
        for (auto signal : { &SpriteBank::countChanged, &SpriteBank::animationsChanged, &SpriteBank::restored })
            connect(mBank, signal, this, &SpriteAnimSelector::fillBank);
        connect(mBank, &SpriteBank::imageChanged, this, &SpriteAnimSelector::fillBank);
        connect(mBank, &QObject::destroyed, this, &SpriteAnimSelector::fillBanks);
    }
    fillBank();
}

void SpriteAnimSelector::fillBank()
{
    QList<Animation*> animations;
    if (mBank)
        for (const QSharedPointer<SpriteAnim>& animation : mBank->animations())
            animations << animation.data();
    std::sort(animations.begin(), animations.end(),
              [](const Animation* a, const Animation* b) { return a->name() < b->name(); });
    mAnimations->setAnimations(animations);
    mMessage->setVisible(mBank && animations.isEmpty());
    const QSignalBlocker blocker(mSprites);
    const int current = mSprites->currentRow();
    mSprites->clear();
    for (int i = 0; mBank && i < mBank->spriteCount(); ++i) {
        const QImage picture = mBank->render(i, mBank->offset(i), false, false, false);
        new QListWidgetItem(QIcon(QPixmap::fromImage(picture.scaled(32, 32))), QString::number(i + 1), mSprites);
    }
    if (current >= 0 && current < mSprites->count())
        mSprites->setCurrentRow(current);
}
