#pragma once
#include "app/documentviews.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSize>
#include <QUndoGroup>
#include <QUuid>
#include <memory>

class EditRecorder;
class Project;
class ProjectController;
class QUndoStack;
namespace ImageEditor {
class View;
}

// Decides which asset each editor shows: turns a choice in the project
// tree or a change of tab into the right tab and the right undo stack, and
// keeps one undo stack per document, all in one group.
class DocumentController : public QObject
{
    Q_OBJECT
public:
    DocumentController(const DocumentViews& views, ProjectController* projects, QObject* parent = nullptr);
    ~DocumentController() override;

    QUndoGroup* undoGroup() { return &mGroup; }
    // The document's stack, made and added to the group on first request;
    // the scratch image's is the one under the null id.
    QUndoStack* stack(const QUuid& id);
    void dropStack(const QUuid& id);
    EditRecorder* recorder() const { return mRecorder.get(); }

    bool isClean() const;
    void markClean();
    // Before a save: the open tabs, first to last, into the project.
    void collectOpenDocuments();

    QPointer<Project> project() const { return mProject; }
    // The one scratch image editor; null without a tab view.
    ImageEditor::View* scratchEditor() const;

    QUuid activePalette() const { return mActivePalette; }
    QUuid activeTileSet() const { return mActiveTileSet; }

public slots:
    void setActivePalette(const QUuid& paletteId);
    void setActiveTileSet(const QUuid& tileSetId);
    void setActiveMap(const QUuid& mapId);
    void setActiveSpriteEditor(const QUuid& spriteBankId);
    void setActiveBlockEditor(const QUuid& blocksId);
    void setActiveImageEditor(const QUuid& imageId);
    void scratchEditorActivated();

signals:
    void createMapFromSelection(QUuid mapId, QSize size);
    void activePaletteChanged(QUuid paletteId);
    void activeTileSetChanged(QUuid tileSetId);
    void activeMapChanged(QUuid mapId);
    void activeSpritesChanged(QUuid spriteBankId);
    // Any stack took a step: a push, an undo or a redo.
    void historyChanged();

private:
    void connectImageEditors();
    QWidget* makeImageEditor(const QUuid& imageId);
    void projectOpened(Project* project);
    void projectClosed();
    void trackAll(Project& project);
    void activate(int type, const QUuid& id, const QString& name);

    DocumentViews mViews;
    QPointer<Project> mProject;
    QUndoGroup mGroup;
    QHash<QUuid, QUndoStack*> mStacks;
    std::unique_ptr<EditRecorder> mRecorder;
    QPointer<ImageEditor::View> mScratchEditor;
    QUuid mActivePalette;
    QUuid mActiveTileSet;
};
