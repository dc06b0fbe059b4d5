#include "app/projectactions.h"

#include "app/documentcontroller.h"
#include "app/documenttabview.h"
#include "app/projectcontroller.h"
#include "app/projectwindow.h"
#include "interchange/mapimport.h"
#include "interchange/tilemapimport.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileset.h"
#include "project/deletionrefusal.h"
#include "project/project.h"
#include "ui/messagedialog.h"

#include <QApplication>
#include <QClipboard>
#include <QDebug>
#include <QMimeData>
#include <QProgressDialog>

ProjectActions::ProjectActions(QWidget* window, const DocumentViews& views, ProjectController* projects,
                               DocumentController* documents, QObject* parent)
    : QObject(parent)
    , mWindow(window)
    , mViews(views)
    , mProjects(projects)
    , mDocuments(documents)
    , mImportMessage(window)
    , mRefusal(new MessageDialog(window))
{
    mImportMessage.setWindowTitle(tr("Map Editor"));
    mImportMessage.setIconPixmap(QIcon(QStringLiteral(":/Application")).pixmap(64, 64));
    mImportMessage.setText(tr("Import Incomplete"));
    if (ProjectWindow* tree = mViews.projectWindow) {
        connect(tree, &ProjectWindow::copyItemTriggered, this, &ProjectActions::copyItem);
        connect(tree, &ProjectWindow::deleteItemTriggered, this, &ProjectActions::deleteItem);
    }
    connect(documents, &DocumentController::createMapFromSelection, this, &ProjectActions::createMapFromSelection);
}

ProjectActions::~ProjectActions() = default;

QPointer<Project> ProjectActions::project() const
{
    return mProjects->project();
}

void ProjectActions::createTileSet(const QString& name, const QUuid& paletteId, int tileCount, bool hiRes)
{
    if (const QPointer<Project> p = project())
        if (const QPointer<TileSet> tiles = p->createTileSet(name, paletteId, tileCount, hiRes))
            mDocuments->setActiveTileSet(tiles->id());
}

void ProjectActions::createMap(const QString& name, const QUuid& tileSetId, QSize& size)
{
    if (const QPointer<Project> p = project())
        if (const QPointer<Map> map = p->createMap(name, tileSetId, size)) {
            mDocuments->setActiveMap(map->id());
            mDocuments->setActiveTileSet(tileSetId);
        }
}

void ProjectActions::createBlocks(const QString& name, const QUuid& tileSetId)
{
    if (const QPointer<Project> p = project())
        if (const QPointer<MapObjects> blocks = p->createBlockList(name, tileSetId)) {
            mDocuments->setActiveBlockEditor(blocks->id());
            mDocuments->setActiveTileSet(tileSetId);
        }
}

void ProjectActions::createSprites(SpriteDialog::CreateOptions options, const QString& name, const QUuid& paletteId)
{
    const QPointer<Project> p = project();
    if (!p)
        return;
    QUuid palette = paletteId;
    if (options & SpriteDialog::CreateNewPalette)
        palette = p->createPalette(CreateAction::NewBlank, name)->id();
    const auto depth = (options & SpriteDialog::EightBit) ? Tintorel::Sprite::EightBit : Tintorel::Sprite::FourBit;
    if (const QPointer<SpriteBank> bank = p->createSpriteBank(depth, name, palette))
        mDocuments->setActiveSpriteEditor(bank->id());
}

void ProjectActions::createMapFromSelection(const QUuid& mapId, const QSize& size)
{
    const QPointer<Project> p = project();
    const QPointer<Map> source = p ? p->map(mapId) : nullptr;
    if (!source)
        return;
    const QPointer<Map> map = p->createMap(source->name() + tr(" Part"), source->tileSetId(), size);
    const TileMap::Clip clip = TileMap::cellsFromMimeData(QApplication::clipboard()->mimeData());
    for (int y = 0; y < clip.cells.size(); ++y)
        for (int x = 0; x < clip.cells.at(y).size(); ++x)
            map->setTile(QPoint(x, y), clip.cells.at(y).at(x));
    mDocuments->setActiveMap(map->id());
}

void ProjectActions::copyItem(ProjectTree::ProjectNode node, const QUuid& id)
{
    const QPointer<Project> p = project();
    if (!p)
        return;
    switch (node) {
    case ProjectTree::Palette: p->clonePalette(id); break;
    case ProjectTree::TileSet: p->cloneTileSet(id); break;
    case ProjectTree::Map: p->cloneMap(id); break;
    default: qWarning() << "Cannot copy this kind of asset" << node; break;
    }
}

bool ProjectActions::deleteAsset(ProjectTree::ProjectNode node, const QUuid& id)
{
    const QPointer<Project> p = project();
    switch (node) {
    case ProjectTree::Palette: return p->deletePalette(id);
    case ProjectTree::TileSet: return p->deleteTileSet(id);
    case ProjectTree::Blocks: return p->deleteBlocks(id);
    case ProjectTree::Sprites: return p->deleteSpriteBank(id);
    case ProjectTree::Map: return p->deleteMap(id);
    case ProjectTree::Image: return p->deleteImage(id);
    }
    return false;
}

void ProjectActions::refuseDelete(ProjectTree::ProjectNode node)
{
    const DeletionRefusal refusal = node == ProjectTree::Palette   ? DeletionRefusal::palette()
                                    : node == ProjectTree::TileSet ? DeletionRefusal::tileSet()
                                                                   : DeletionRefusal::blocks();
    mRefusal->showMessage(refusal.title, refusal.title, refusal.message);
}

void ProjectActions::deleteItem(ProjectTree::ProjectNode node, const QUuid& id)
{
    const QPointer<Project> p = project();
    if (!p)
        return;
    // What the guards refuse is refused before the question, so that the
    // user is never asked about a delete that cannot happen.
    if (p->inUse(id)) {
        refuseDelete(node);
        return;
    }
    if (!confirmDelete(tr("Delete \"%1\"? This cannot be undone.").arg(p->nameOf(id))))
        return;
    if (!deleteAsset(node, id)) {
        refuseDelete(node);
        return;
    }
    if (node == ProjectTree::Map || node == ProjectTree::Sprites || node == ProjectTree::Blocks
        || node == ProjectTree::Image) {
        if (mViews.tabView)
            mViews.tabView->removeDocument(id);
        mDocuments->dropStack(id);
    }
    emit assetDeleted(node, id);
    if (mViews.projectWindow)
        mViews.projectWindow->removeItem(node, id);
}

void ProjectActions::importMap(const QString& filePath)
{
    const QPointer<Project> p = project();
    if (!p)
        return;
    QProgressDialog progress(tr("Processing image"), tr("Cancel"), 0, 1, mWindow);
    progress.setWindowModality(Qt::WindowModal);
    progress.setCancelButton(nullptr);
    progress.setMinimumDuration(200);
    const ImportReport report = ::importMap(*p, filePath, [&progress](int value, int maximum) {
        progress.setMaximum(maximum);
        progress.setValue(value);
    });
    progress.reset();
    showImportReport(report);
}

void ProjectActions::importTileMap(const QString& filePath, int width)
{
    if (const QPointer<Project> p = project())
        showImportReport(TileMapImport::import(*p, { filePath, {}, {} }, width));
}

void ProjectActions::showImportReport(const ImportReport& report)
{
    QStringList lines = report.warnings;
    if (!report.ok())
        lines.prepend(report.error);
    if (lines.isEmpty())
        return;
    mImportMessage.setInformativeText(lines.join(QStringLiteral("\n\n")));
    mImportMessage.open();
}
