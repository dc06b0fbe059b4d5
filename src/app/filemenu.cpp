#include "app/filemenu.h"

#include "app/filechooser.h"
#include "ui/projectdialog.h"
#include "ui/themedicon.h"

#include <QFileInfo>
#include <QToolBar>

FileMenu::FileMenu(FileChooser* files, QWidget* parent)
    : QMenu(tr("File"), parent)
    , mFiles(files)
    , mProjectDialog(new ProjectDialog(parent))
    , mToolBar(new QToolBar(tr("File Toolbar"), this))
{
    mToolBar->setObjectName(QStringLiteral("FileToolbar"));
    QAction* create = addItem(tr("New"), ":tb-new-file", QKeySequence::New);
    connect(create, &QAction::triggered, this, &FileMenu::displayNewProjectDialog);
    QAction* open = addItem(tr("Open"), ":tb-open-file", QKeySequence::Open);
    connect(open, &QAction::triggered, this, &FileMenu::displayOpenProjectDialog);
    mRecentMenu = addMenu(tr("Recent"));
    QAction* save = addItem(tr("Save"), ":tb-save-file", QKeySequence::Save);
    connect(save, &QAction::triggered, this, &FileMenu::saveProject);
    QAction* saveAs = addItem(tr("Save As"), ":tb-save-file-as", QKeySequence::SaveAs);
    connect(saveAs, &QAction::triggered, this, &FileMenu::saveProjectAs);
    QAction* close = addItem(tr("Close"), ":tb-close-document", QKeySequence::Close);
    connect(close, &QAction::triggered, this, &FileMenu::closeProject);
    addSeparator();
    QAction* preferences = addAction(tr("Preferences"));
    preferences->setMenuRole(QAction::PreferencesRole);
    connect(preferences, &QAction::triggered, this, &FileMenu::displayPreferences);
    addSeparator();
    QAction* quit = addItem(tr("Quit"), ":tb-exit-application", QKeySequence::Quit);
    quit->setMenuRole(QAction::QuitRole);
    connect(quit, &QAction::triggered, this, &FileMenu::quit);
    mProjectActions = { save, saveAs, close };
    setProjectOpen(false);
    connect(mProjectDialog, &ProjectDialog::accepted, this, &FileMenu::newAccepted);
    rebuildRecent();
}

QAction* FileMenu::addItem(const QString& text, const QString& icon, QKeySequence::StandardKey key)
{
    QAction* action = addAction(themedIcon(icon), text);
    action->setShortcut(key);
    mToolBar->addAction(action);
    return action;
}

void FileMenu::setProjectOpen(bool open)
{
    for (QAction* action : std::as_const(mProjectActions))
        action->setEnabled(open);
}

void FileMenu::displayNewProjectDialog()
{
    mProjectDialog->reset();
    mProjectDialog->open();
}

void FileMenu::newAccepted(const QString& name)
{
    emit newProject(name);
}

void FileMenu::displayOpenProjectDialog()
{
    const QString file = mFiles->choose({ tr("Open project"), { tr("Project file (*.tintorel)") }, {}, false });
    if (!file.isEmpty())
        openAccepted(file);
}

void FileMenu::openAccepted(const QString& file)
{
    emit openProject(file);
}

void FileMenu::setRecent(const QStringList& recent)
{
    mRecent = recent.mid(0, RecentLimit);
    rebuildRecent();
}

void FileMenu::addRecent(const QString& filePath)
{
    mRecent.removeAll(filePath);
    mRecent.prepend(filePath);
    while (mRecent.size() > RecentLimit)
        mRecent.removeLast();
    rebuildRecent();
}

void FileMenu::clearRecent()
{
    mRecent.clear();
    rebuildRecent();
}

void FileMenu::rebuildRecent()
{
    mRecentMenu->clear();
    for (const QString& path : std::as_const(mRecent)) {
        QAction* action = mRecentMenu->addAction(QFileInfo(path).fileName());
        action->setProperty("filePath", path);
        action->setToolTip(path);
        connect(action, &QAction::triggered, this, [this, action] {
            emit openProject(action->property("filePath").toString());
        });
    }
    if (mRecent.isEmpty())
        mRecentMenu->addAction(tr("None"))->setEnabled(false);
    mRecentMenu->addSeparator();
    connect(mRecentMenu->addAction(tr("Clear")), &QAction::triggered, this, &FileMenu::clearRecent);
}
