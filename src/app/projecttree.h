#pragma once
#include <QTreeWidget>
#include <QUuid>

// The tree of a project's assets: six groups, an asset per row, with a
// context menu to rename, delete and copy.
class ProjectTree : public QTreeWidget
{
    Q_OBJECT
public:
    enum ProjectNode { Palette = 0, TileSet = 1, Blocks = 2, Sprites = 3, Map = 4, Image = 5 };
    Q_ENUM(ProjectNode)

    explicit ProjectTree(QWidget* parent = nullptr);

    void clearAssets();
    QTreeWidgetItem* addAsset(ProjectNode node, const QUuid& id, const QString& name);
    QTreeWidgetItem* findAsset(ProjectNode node, const QUuid& id) const;
    void removeAsset(ProjectNode node, const QUuid& id);
    QTreeWidgetItem* group(ProjectNode node) const;

    static bool assetOf(const QTreeWidgetItem* item, ProjectNode* node, QUuid* id);

public slots:
    void showContextMenu(const QPoint& pos);
    void doubleClickFilter(QTreeWidgetItem* item, int column);
    void showItemContextMenu(ProjectTree::ProjectNode type, const QPoint& pos, const QUuid& id);

signals:
    void itemDoubleClicked(ProjectTree::ProjectNode node, QUuid id);
    void copyItem(ProjectTree::ProjectNode node, QUuid id);
    void deleteItem(ProjectTree::ProjectNode node, QUuid id);

private:
    QList<QTreeWidgetItem*> mGroups;
};
