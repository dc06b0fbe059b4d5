#pragma once
#include "app/documentviews.h"
#include "app/projecttree.h"
#include "editors/sprite/spritedialog.h"
#include "interchange/importreport.h"

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QSize>
#include <QUuid>

class DocumentController;
class MessageDialog;
class Project;
class ProjectController;

// The user's asset actions from the project tree and the menus: create,
// copy, delete and import, with the messages that go with them.
class ProjectActions : public QObject
{
    Q_OBJECT
public:
    ProjectActions(QWidget* window, const DocumentViews& views, ProjectController* projects,
                   DocumentController* documents, QObject* parent = nullptr);
    ~ProjectActions() override;

    // The box that reports an import that did not go through.
    QMessageBox* importMessage() { return &mImportMessage; }
    MessageDialog* refusalDialog() const { return mRefusal; }
    // Shows why an import was refused or what it left out, in the box above;
    // a clean import shows nothing.
    void showImportReport(const ImportReport& report);

    // Asked before an asset is deleted, which cannot be undone; true goes on.
    // Set by the window; a test answers without a box.
    std::function<bool(const QString& question)> confirmDelete = [](const QString&) { return false; };

public slots:
    void createTileSet(const QString& name, const QUuid& paletteId, int tileCount, bool hiRes);
    void createMap(const QString& name, const QUuid& tileSetId, QSize& size);
    void createBlocks(const QString& name, const QUuid& tileSetId);
    void createSprites(SpriteDialog::CreateOptions options, const QString& name, const QUuid& paletteId);
    void createMapFromSelection(const QUuid& mapId, const QSize& size);
    void copyItem(ProjectTree::ProjectNode node, const QUuid& id);
    void deleteItem(ProjectTree::ProjectNode node, const QUuid& id);
    void importMap(const QString& filePath);
    // A plain tile map with its tiles and palette found beside it.
    void importTileMap(const QString& filePath, int width);

signals:
    // After a delete went through, for the menus and editors that showed it.
    void assetDeleted(ProjectTree::ProjectNode node, QUuid id);

private:
    QPointer<Project> project() const;
    bool deleteAsset(ProjectTree::ProjectNode node, const QUuid& id);
    void refuseDelete(ProjectTree::ProjectNode node);

    QWidget* mWindow;
    DocumentViews mViews;
    ProjectController* mProjects;
    DocumentController* mDocuments;
    QMessageBox mImportMessage;
    MessageDialog* mRefusal;
};
