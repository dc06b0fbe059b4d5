#pragma once
#include "app/projecttree.h"
#include "ui/dockwidget.h"

#include <QPointer>

class Project;

// The dock that lists the open project's assets. A double click opens an
// asset; the context menu renames, deletes and copies.
class ProjectWindow : public DockWidget
{
    Q_OBJECT
public:
    explicit ProjectWindow(QWidget* parent = nullptr);

    ProjectTree* tree() const { return mTree; }

public slots:
    void newProject(const QString& name);
    void setProject(QPointer<Project> project);
    void removeItem(ProjectTree::ProjectNode node, const QUuid& id);
    void itemDoubleClicked(ProjectTree::ProjectNode node, const QUuid& id);
    void itemEdited(QTreeWidgetItem* item, int column);

signals:
    void selectedPaletteChanged(QUuid id);
    void selectedTileSetChanged(QUuid id);
    void selectedBlocksChanged(QUuid id);
    void selectedSpritesChanged(QUuid id);
    void selectedMapChanged(QUuid id);
    void selectedImageChanged(QUuid id);
    void deleteItemTriggered(ProjectTree::ProjectNode node, QUuid id);
    void copyItemTriggered(ProjectTree::ProjectNode node, QUuid id);
    // An asset took a new name in the tree.
    void assetRenamed(ProjectTree::ProjectNode node, QUuid id, QString name);

private:
    void fill();
    void follow(Project* project);

    ProjectTree* mTree;
    QPointer<Project> mProject;
};
