#pragma once
#include "interchange/importreport.h"

#include <QMenu>
#include <QPointer>

class FileChooser;
class Project;

// What every asset menu shares: the open project, the file dialogs, and
// the "Save Error" box of a failed export.
class AssetMenu : public QMenu
{
    Q_OBJECT
public:
    AssetMenu(const QString& title, FileChooser* files, QWidget* parent = nullptr);

    QPointer<Project> project() const { return mProject; }
    // Actions added through addProjectAction are enabled only with a project.
    virtual void setProject(QPointer<Project> project);

    // Set by the window; a test answers without a box.
    std::function<void(const QString& title, const QString& message)> showError;
    // Says why an import was refused or what it left out; silent for a clean one.
    std::function<void(const ImportReport& report)> showImportReport;

protected:
    QAction* addProjectAction(const QString& text);
    FileChooser* files() const { return mFiles; }
    void exportFailed();

private:
    FileChooser* mFiles;
    QPointer<Project> mProject;
    QList<QAction*> mProjectActions;
};
