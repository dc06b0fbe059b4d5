#pragma once
#include "project/projectstore.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>

class Project;

// The life of the open project: new, open, save, save as, close, and
// whether anything is unsaved. It knows no widget: the window hands it the
// dialogs and the undo stacks' state as callbacks.
class ProjectController : public QObject
{
    Q_OBJECT
public:
    enum class UnsavedAnswer { Save, Discard, Cancel };

    explicit ProjectController(QObject* parent = nullptr);
    ~ProjectController() override;

    ProjectStore& store() { return mStore; }
    QPointer<Project> project() const { return mProject; }

    bool confirmClose();
    bool hasUnsavedChanges();
    // The last answer of the check that noteChange schedules.
    bool isModified() const { return mModified; }

    // Set by the window.
    std::function<bool()> _backupOnSave = [] { return true; };
    std::function<bool()> _isClean = [] { return true; };
    std::function<void()> _markClean = [] {};
    // Dialog code: asked when closing with changes, and for a file to save to
    // (empty when cancelled).
    std::function<UnsavedAnswer(const QString& projectName)> promptUnsaved = [](const QString&) {
        return UnsavedAnswer::Cancel;
    };
    std::function<QString()> askSavePath = [] { return QString(); };
    // Freezes the window's painting while a project loads.
    std::function<void(bool enabled)> setUpdatesEnabled = [](bool) {};

public slots:
    void newProject(const QString& name);
    void openProject(const QString& filePath);
    void save();
    void saveAs();
    void close();
    // Something may have changed the project; whether it now differs from
    // the saved file is worked out once the event loop is idle, so that a
    // burst of changes costs one check.
    void noteChange();

signals:
    void aboutToSave();
    void saveFinished();
    void projectOpened(Project* project);
    void projectClosing();
    void projectClosed();
    void error(QString message);
    // A file to put at the front of the recent list.
    void recentFileAdded(QString filePath);
    // The project came to differ from its file, or came back to it.
    void modifiedChanged(bool modified);

private:
    void recordCleanPoint();
    bool saved();
    void setModified(bool modified);
    void followProject(Project* project);

    ProjectStore mStore;
    QPointer<Project> mProject;
    QByteArray mCleanFingerprint;
    QTimer mModifiedCheck;
    bool mModified = false;
};
