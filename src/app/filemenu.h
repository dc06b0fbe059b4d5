#pragma once
#include <QMenu>

class FileChooser;
class ProjectDialog;
class QToolBar;

// "File": new, open, recent, save, save as, close, preferences and quit,
// with the same actions on the "File Toolbar".
class FileMenu : public QMenu
{
    Q_OBJECT
public:
    static constexpr int RecentLimit = 10;

    FileMenu(FileChooser* files, QWidget* parent = nullptr);

    QToolBar* toolBar() const { return mToolBar; }
    QStringList recent() const { return mRecent; }
    void setRecent(const QStringList& recent);
    // To the front; an entry already there moves, and the oldest beyond ten go.
    void addRecent(const QString& filePath);
    QMenu* recentMenu() const { return mRecentMenu; }
    ProjectDialog* projectDialog() const { return mProjectDialog; }
    // The actions that need an open project.
    void setProjectOpen(bool open);

public slots:
    void displayNewProjectDialog();
    void newAccepted(const QString& name);
    void displayOpenProjectDialog();
    void openAccepted(const QString& file);
    void clearRecent();

signals:
    void quit();
    void saveProject();
    void saveProjectAs();
    void closeProject();
    void displayPreferences();
    void openProject(QString file);
    void newProject(QString name);

private:
    QAction* addItem(const QString& text, const QString& icon, QKeySequence::StandardKey key);
    void rebuildRecent();

    FileChooser* mFiles;
    ProjectDialog* mProjectDialog;
    QToolBar* mToolBar;
    QMenu* mRecentMenu = nullptr;
    QStringList mRecent;
    QList<QAction*> mProjectActions;
};
