#include "app/assetmenu.h"

#include "project/project.h"

#include <QMessageBox>

AssetMenu::AssetMenu(const QString& title, FileChooser* files, QWidget* parent)
    : QMenu(title, parent)
    , mFiles(files)
{
    showError = [this](const QString& caption, const QString& message) {
        QMessageBox::warning(parentWidget(), caption, message);
    };
    showImportReport = [this](const ImportReport& report) {
        if (!report.ok() || !report.warnings.isEmpty())
            showError(tr("Import Incomplete"), (QStringList { report.error } + report.warnings).join('\n').trimmed());
    };
}

void AssetMenu::setProject(QPointer<Project> project)
{
    mProject = project;
    for (QAction* action : std::as_const(mProjectActions))
        action->setEnabled(mProject);
}

QAction* AssetMenu::addProjectAction(const QString& text)
{
    QAction* action = addAction(text);
    action->setEnabled(mProject);
    mProjectActions.append(action);
    return action;
}

void AssetMenu::exportFailed()
{
    showError(tr("Save Error"), tr("There was a problem exporting data"));
}
