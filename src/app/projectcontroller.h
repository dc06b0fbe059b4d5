#pragma once
#include "project/projectstore.h"

#include <QObject>
#include <QPointer>
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

signals:
    void aboutToSave();
    void saveFinished();
    void projectOpened(Project* project);
    void projectClosing();
    void projectClosed();
    void error(QString message);
    // A file to put at the front of the recent list.
    void recentFileAdded(QString filePath);

private:
    void recordCleanPoint();
    bool saved();

    ProjectStore mStore;
    QPointer<Project> mProject;
    QByteArray mCleanFingerprint;
};
