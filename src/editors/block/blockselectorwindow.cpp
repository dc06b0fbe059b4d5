#include "editors/block/blockselectorwindow.h"

#include "model/mapobjects.h"
#include "model/tileanimation.h"
#include "project/project.h"

#include <QComboBox>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

constexpr int IdRole = Qt::UserRole + 1;
constexpr int IconSide = 48;

} // namespace

BlockSelectorWindow::BlockSelectorWindow(QWidget* parent)
    : DockWidget(QStringLiteral("TileListWindow"), tr("Map Objects"), tr("No tile active tile set"), parent)
    , mSets(new QComboBox)
    , mList(new QListWidget)
{
    mList->setIconSize(QSize(IconSide, IconSide));
    mList->setViewMode(QListView::IconMode);
    mList->setResizeMode(QListView::Adjust);
    mList->setMovement(QListView::Static);
    mList->setWordWrap(true);
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mSets);
    layout->addWidget(mList);
    setContent(content);
    connect(mSets, qOverload<int>(&QComboBox::currentIndexChanged), this, &BlockSelectorWindow::changeList);
    connect(mList, &QListWidget::currentItemChanged, this, [this] { emit selectedItemChanged(selectedBlock()); });
}

void BlockSelectorWindow::setProject(QPointer<Project> project)
{
    if (mProject)
        disconnect(mProject, nullptr, this, nullptr);
    mProject = project;
    if (mProject)
        connect(mProject, &Project::blocksCreated, this, [this] { fillSets(); });
    fillSets();
}

void BlockSelectorWindow::fillSets()
{
    const QPointer<MapObjects> shown = mBlocks;
    {
        const QSignalBlocker blocker(mSets);
        mSets->clear();
        if (mProject)
            for (const QPointer<MapObjects>& set : mProject->blockLists())
                if (set)
                    mSets->addItem(set->name(), set->id());
        mSets->model()->sort(0);
    }
    const int index = shown ? mSets->findData(shown->id()) : -1;
    if (index >= 0)
        mSets->setCurrentIndex(index);
    changeList(mSets->currentIndex());
}

void BlockSelectorWindow::changeList(int index)
{
    const QUuid id = mSets->itemData(index).toUuid();
    setBlocks(mProject && index >= 0 ? mProject->blocks(id) : nullptr);
}

void BlockSelectorWindow::setBlocks(QPointer<MapObjects> blocks)
{
    if (mBlocks)
        disconnect(mBlocks, nullptr, this, nullptr);
    mBlocks = blocks;
    setWindowTitle(mBlocks ? tr("Map Objects: %1").arg(mBlocks->name()) : tr("Map Objects"));
    setActive(mBlocks);
    if (mBlocks) {
        const QSignalBlocker blocker(mSets);
        mSets->setCurrentIndex(mSets->findData(mBlocks->id()));
        connect(mBlocks, &MapObjects::animationsChanged, this, &BlockSelectorWindow::fillList);
        connect(mBlocks, &MapObjects::nameChanged, this, [this] { fillSets(); });
        connect(mBlocks, &QObject::destroyed, this, [this] { fillSets(); });
    }
    fillList();
}

void BlockSelectorWindow::fillList()
{
    const QSignalBlocker blocker(mList);
    const QPointer<TileAnimation> selected = selectedBlock();
    mList->clear();
    if (!mBlocks)
        return;
    QList<QSharedPointer<TileAnimation>> blocks = mBlocks->animations().values();
    std::sort(blocks.begin(), blocks.end(), [](const auto& a, const auto& b) { return a->name() < b->name(); });
    for (const QSharedPointer<TileAnimation>& block : blocks) {
        auto* item = new QListWidgetItem(block->name(), mList);
        item->setData(IdRole, block->id());
        const QImage preview = block->preview(0, QSize(IconSide, IconSide));
        if (!preview.isNull())
            item->setIcon(QIcon(QPixmap::fromImage(preview)));
        if (selected && block->id() == selected->id())
            mList->setCurrentItem(item);
        // A change of the block shows here too.
        connect(block.data(), &Animation::nameChanged, this, &BlockSelectorWindow::fillList, Qt::UniqueConnection);
        connect(block.data(), &Animation::frameChanged, this, &BlockSelectorWindow::fillList, Qt::UniqueConnection);
        connect(block.data(), &Animation::restored, this, &BlockSelectorWindow::fillList, Qt::UniqueConnection);
    }
}

QPointer<TileAnimation> BlockSelectorWindow::selectedBlock() const
{
    const QListWidgetItem* item = mList->currentItem();
    if (!mBlocks || !item)
        return nullptr;
    return mBlocks->tileAnimation(item->data(IdRole).toUuid()).data();
}
