#pragma once
#include "app/documentviews.h"

#include <QObject>
#include <QPointer>
#include <QUuid>
#include <functional>

class DocumentController;
class ProjectController;
class QUndoStack;
namespace MapEditor {
class View;
}

// Hooks the editors to the documents: the stack each one's edits go to,
// the pages of the document tabs, and the links between docks that show
// the same asset. The document controller makes one and keeps it.
class EditorWiring : public QObject
{
    Q_OBJECT
public:
    EditorWiring(DocumentController* documents, const DocumentViews& views, ProjectController* projects);

private:
    // The document's stack, made the one that Edit → Undo works on: an
    // edit in a dock is undone where the user is looking.
    QUndoStack* activeStack(const QUuid& id);
    void connectTileEditor();
    void connectSpriteEditor();
    void connectMapEditor();
    void registerPages();
    QWidget* makeMapPage(const QUuid& id);
    void applyMapPreferences(MapEditor::View* view) const;
    // The map tab on show, or null.
    MapEditor::View* currentMapView() const;
    void forEachMapView(const std::function<void(MapEditor::View*)>& act) const;

    DocumentController* mDocuments;
    DocumentViews mViews;
    ProjectController* mProjects;
    QPointer<MapEditor::View> mToolBarOwner;
};
