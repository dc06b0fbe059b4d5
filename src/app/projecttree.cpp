#include "app/projecttree.h"

#include <QHeaderView>
#include <QMenu>

namespace {
constexpr int NodeRole = Qt::UserRole;
constexpr int IdRole = Qt::UserRole + 1;
} // namespace

ProjectTree::ProjectTree(QWidget* parent)
    : QTreeWidget(parent)
{
    setColumnCount(1);
    header()->hide();
    setAnimated(true);
    setRootIsDecorated(false);
    setAlternatingRowColors(false);
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (const QString& title : { tr("Palettes"), tr("Tile Sets"), tr("Objects"), tr("Sprites"), tr("Maps"),
                                  tr("Images") }) {
        auto* item = new QTreeWidgetItem(this, { title });
        item->setFlags(Qt::ItemIsEnabled);
        mGroups.append(item);
    }
    expandAll();
    connect(this, &QTreeWidget::customContextMenuRequested, this, &ProjectTree::showContextMenu);
    connect(this, &QTreeWidget::itemDoubleClicked, this, &ProjectTree::doubleClickFilter);
}

QTreeWidgetItem* ProjectTree::group(ProjectNode node) const
{
    return mGroups.value(int(node));
}

void ProjectTree::clearAssets()
{
    for (QTreeWidgetItem* group : std::as_const(mGroups))
        qDeleteAll(group->takeChildren());
}

QTreeWidgetItem* ProjectTree::addAsset(ProjectNode node, const QUuid& id, const QString& name)
{
    QTreeWidgetItem* parent = group(node);
    if (!parent)
        return nullptr;
    auto* item = new QTreeWidgetItem(parent, { name });
    item->setData(0, NodeRole, int(node));
    item->setData(0, IdRole, id);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
    parent->sortChildren(0, Qt::AscendingOrder);
    parent->setExpanded(true);
    return item;
}

QTreeWidgetItem* ProjectTree::findAsset(ProjectNode node, const QUuid& id) const
{
    QTreeWidgetItem* parent = group(node);
    for (int i = 0; parent && i < parent->childCount(); ++i)
        if (parent->child(i)->data(0, IdRole).toUuid() == id)
            return parent->child(i);
    return nullptr;
}

void ProjectTree::removeAsset(ProjectNode node, const QUuid& id)
{
    delete findAsset(node, id);
}

bool ProjectTree::assetOf(const QTreeWidgetItem* item, ProjectNode* node, QUuid* id)
{
    if (!item || !item->data(0, NodeRole).isValid() || !item->data(0, IdRole).isValid())
        return false;
    *node = ProjectNode(item->data(0, NodeRole).toInt());
    *id = item->data(0, IdRole).toUuid();
    return true;
}

void ProjectTree::doubleClickFilter(QTreeWidgetItem* item, int)
{
    ProjectNode node;
    QUuid id;
    if (assetOf(item, &node, &id))
        emit itemDoubleClicked(node, id);
}

void ProjectTree::showContextMenu(const QPoint& pos)
{
    ProjectNode node;
    QUuid id;
    if (assetOf(itemAt(pos), &node, &id))
        showItemContextMenu(node, viewport()->mapToGlobal(pos), id);
}

void ProjectTree::showItemContextMenu(ProjectTree::ProjectNode type, const QPoint& pos, const QUuid& id)
{
    QMenu menu(this);
    QAction* rename = menu.addAction(tr("Rename"));
    QAction* remove = menu.addAction(tr("Delete"));
    QAction* copy = menu.addAction(tr("Copy"));
    // Only palettes, tile sets and maps can be copied.
    copy->setEnabled(type == Palette || type == TileSet || type == Map);
    QAction* chosen = menu.exec(pos);
    if (chosen == rename) {
        if (QTreeWidgetItem* item = findAsset(type, id))
            editItem(item, 0);
    } else if (chosen == remove) {
        emit deleteItem(type, id);
    } else if (chosen == copy) {
        emit copyItem(type, id);
    }
}
