#include "app/projectwindow.h"

#include "model/image.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"
#include "project/project.h"

namespace {

template<typename T>
void addAll(ProjectTree* tree, ProjectTree::ProjectNode node, const QList<QPointer<T>>& assets)
{
    for (const auto& asset : assets)
        if (asset)
            tree->addAsset(node, asset->id(), asset->name());
}

template<typename T>
bool rename(const QPointer<T>& asset, const QString& name)
{
    if (!asset)
        return false;
    asset->setName(name);
    return true;
}

} // namespace

ProjectWindow::ProjectWindow(QWidget* parent)
    : DockWidget(QStringLiteral("ProjectWindow"), tr("Project"), tr("No project loaded"), parent)
    , mTree(new ProjectTree)
{
    setContent(mTree);
    connect(mTree, &ProjectTree::itemDoubleClicked, this, &ProjectWindow::itemDoubleClicked);
    connect(mTree, &ProjectTree::deleteItem, this, &ProjectWindow::deleteItemTriggered);
    connect(mTree, &ProjectTree::copyItem, this, &ProjectWindow::copyItemTriggered);
    connect(mTree, &QTreeWidget::itemChanged, this, &ProjectWindow::itemEdited);
}

void ProjectWindow::newProject(const QString&)
{
    fill();
}

void ProjectWindow::setProject(QPointer<Project> project)
{
    if (mProject)
        disconnect(mProject, nullptr, this, nullptr);
    mProject = project;
    fill();
    setActive(mProject);
    if (mProject)
        follow(mProject);
}

void ProjectWindow::fill()
{
    const QSignalBlocker blocker(mTree);
    mTree->clearAssets();
    if (!mProject)
        return;
    addAll(mTree, ProjectTree::Palette, mProject->palettes());
    addAll(mTree, ProjectTree::TileSet, mProject->tileSets());
    addAll(mTree, ProjectTree::Blocks, mProject->blockLists());
    addAll(mTree, ProjectTree::Sprites, mProject->spriteBanks());
    addAll(mTree, ProjectTree::Map, mProject->maps());
    addAll(mTree, ProjectTree::Image, mProject->images());
}

// New assets get their row as they are made.
void ProjectWindow::follow(Project* project)
{
    auto add = [this](ProjectTree::ProjectNode node, const QUuid& id, const QString& name) {
        const QSignalBlocker blocker(mTree);
        mTree->addAsset(node, id, name);
    };
    connect(project, &Project::paletteCreated, this,
            [add](QPointer<Palette> p) { add(ProjectTree::Palette, p->id(), p->name()); });
    connect(project, &Project::tilesetCreated, this,
            [add](QPointer<TileSet> t) { add(ProjectTree::TileSet, t->id(), t->name()); });
    connect(project, &Project::blocksCreated, this,
            [add](QPointer<MapObjects> b) { add(ProjectTree::Blocks, b->id(), b->name()); });
    connect(project, &Project::spritesCreated, this,
            [add](QPointer<SpriteBank> s) { add(ProjectTree::Sprites, s->id(), s->name()); });
    connect(project, &Project::mapCreated, this, [add](QPointer<Map> m) { add(ProjectTree::Map, m->id(), m->name()); });
    connect(project, &Project::imageCreated, this,
            [add](QPointer<Image> i) { add(ProjectTree::Image, i->id(), i->name()); });
}

void ProjectWindow::removeItem(ProjectTree::ProjectNode node, const QUuid& id)
{
    mTree->removeAsset(node, id);
}

void ProjectWindow::itemDoubleClicked(ProjectTree::ProjectNode node, const QUuid& id)
{
    switch (node) {
    case ProjectTree::Palette: emit selectedPaletteChanged(id); break;
    case ProjectTree::TileSet: emit selectedTileSetChanged(id); break;
    case ProjectTree::Blocks: emit selectedBlocksChanged(id); break;
    case ProjectTree::Sprites: emit selectedSpritesChanged(id); break;
    case ProjectTree::Map: emit selectedMapChanged(id); break;
    case ProjectTree::Image: emit selectedImageChanged(id); break;
    }
}

void ProjectWindow::itemEdited(QTreeWidgetItem* item, int)
{
    ProjectTree::ProjectNode node;
    QUuid id;
    if (!mProject || !ProjectTree::assetOf(item, &node, &id))
        return;
    // Trimmed and refused when empty, as the creation dialogs do; a refused
    // row gets its name back.
    const QString name = item->text(0).trimmed();
    if (name.isEmpty() || name != item->text(0)) {
        const QSignalBlocker blocker(mTree);
        item->setText(0, name.isEmpty() ? mProject->nameOf(id) : name);
        if (name.isEmpty())
            return;
    }
    bool renamed = false;
    switch (node) {
    case ProjectTree::Palette: renamed = rename(mProject->palette(id), name); break;
    case ProjectTree::TileSet: renamed = rename(mProject->tileSet(id), name); break;
    case ProjectTree::Blocks: renamed = rename(mProject->blocks(id), name); break;
    case ProjectTree::Sprites: renamed = rename(mProject->spriteBank(id), name); break;
    case ProjectTree::Map: renamed = rename(mProject->map(id), name); break;
    case ProjectTree::Image: renamed = rename(mProject->image(id), name); break;
    }
    if (!renamed)
        return;
    const QSignalBlocker blocker(mTree);
    if (item->parent())
        item->parent()->sortChildren(0, Qt::AscendingOrder);
    emit assetRenamed(node, id, name);
}
