#pragma once
#include <QByteArray>
#include <QDir>
#include <QJsonDocument>
#include <QObject>
#include <QStringList>

// What outlives a run: window layout, tile zoom, recent projects and the
// last folder (state.json), and the preferences document
// (preferences.json), both under ~/.config/tintorel.
class AppState : public QObject
{
    Q_OBJECT
public:
    explicit AppState(QObject* parent = nullptr);

    bool save();
    void load();
    bool savePreferences(const QJsonDocument& preferences);
    QJsonDocument loadPreferences();

    QDir configDir() const { return mConfigDir; }
    QByteArray windowState() const { return mWindowState; }
    void setWindowState(const QByteArray& state) { mWindowState = state; }
    QByteArray windowGeometry() const { return mWindowGeometry; }
    void setWindowGeometry(const QByteArray& geometry) { mWindowGeometry = geometry; }
    int tileZoom() const { return mTileZoom; }
    void setTileZoom(int zoom) { mTileZoom = zoom; }
    QStringList recent() const { return mRecent; }
    void setRecent(const QStringList& recent) { mRecent = recent; }
    QString lastPath() const { return mLastPath; }
    void setLastPath(const QString& path) { mLastPath = path; }

private:
    bool write(const QString& fileName, const QJsonDocument& document, const char* failure);

    QDir mConfigDir;
    QByteArray mWindowState;
    QByteArray mWindowGeometry;
    int mTileZoom = 8;
    QStringList mRecent;
    QString mLastPath;
};
