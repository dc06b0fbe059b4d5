#pragma once
#include <QObject>
#include <QPointer>
#include <QUuid>

class Project;

// Owns the open project and its file: moves it to and from one archive,
// keeps a one-generation backup on request, and runs the three exports
// that reach the machine's formats.
class ProjectStore : public QObject
{
    Q_OBJECT
public:
    explicit ProjectStore(QObject* parent = nullptr);
    ~ProjectStore() override;

    QString filePath() const { return mFilePath; }
    // For a controller that puts the old path back after a failed Save As.
    void setFilePath(const QString& path) { mFilePath = path; }
    QPointer<Project> project() const { return mProject; }

    QPointer<Project> create(const QString& name, bool withStandardPalette);
    bool load(const QString& path);
    bool save(bool backup);
    bool saveAs(const QString& path);
    void closeProject();
    // SHA-1 of every entry but the open tabs; empty with no project.
    QByteArray fingerprint() const;

public slots:
    void exportMap(const QString& dir, const QUuid& id);
    void exportTiles(const QString& dir, const QUuid& id);
    void exportPalette(const QString& dir, const QUuid& id);

signals:
    void projectLoad(QString name);
    void loadError(QString message);
    void saveError(QString message);
    void showMessage(QString message, int timeout);

private:
    void backupFile() const;
    void reportExport(bool found, bool exported, const QString& notFound, const QString& done,
                      const QString& failed);

    QString mFilePath;
    QPointer<Project> mProject;
};
