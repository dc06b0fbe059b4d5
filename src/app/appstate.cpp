#include "app/appstate.h"

#include <QDebug>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

namespace {

const QString StateFile = QStringLiteral("state.json");
const QString PreferencesFile = QStringLiteral("preferences.json");

QByteArray bytesField(const QJsonObject& object, const QString& key)
{
    const QJsonValue value = object.value(key);
    if (!value.isString()) {
        qWarning() << "JSON object not found" << key;
        return {};
    }
    return QByteArray::fromBase64(value.toString().toLatin1());
}

} // namespace

AppState::AppState(QObject* parent)
    : QObject(parent)
    , mConfigDir(QDir(QDir::homePath()).canonicalPath())
{
    // Always under the home folder, whatever the desktop's settings say.
    QDir(QDir::homePath()).mkpath(QStringLiteral(".config/tintorel"));
    mConfigDir.cd(QStringLiteral(".config/tintorel"));
}

bool AppState::write(const QString& fileName, const QJsonDocument& document, const char* failure)
{
    QFile file(mConfigDir.filePath(fileName));
    if (!file.open(QIODevice::WriteOnly)) {
        qWarning() << failure;
        return false;
    }
    return file.write(document.toJson(QJsonDocument::Indented)) >= 1;
}

bool AppState::save()
{
    QJsonObject state;
    state["windowState"] = QString::fromLatin1(mWindowState.toBase64());
    state["windowGeometry"] = QString::fromLatin1(mWindowGeometry.toBase64());
    state["tileZoom"] = mTileZoom;
    state["lastPath"] = mLastPath;
    state["recent"] = QJsonArray::fromStringList(mRecent);
    return write(StateFile, QJsonDocument(state), "Open state.json failed");
}

void AppState::load()
{
    QFile file(mConfigDir.filePath(StateFile));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QJsonObject state = QJsonDocument::fromJson(file.readAll()).object();
    mWindowState = bytesField(state, "windowState");
    mWindowGeometry = bytesField(state, "windowGeometry");
    mTileZoom = state.value("tileZoom").toInt(8);
    mLastPath = state.value("lastPath").toString(QStringLiteral("~"));
    mRecent.clear();
    for (const QJsonValue& path : state.value("recent").toArray())
        if (path.isString())
            mRecent.append(path.toString());
}

bool AppState::savePreferences(const QJsonDocument& preferences)
{
    return write(PreferencesFile, preferences, "Open preferences.json failed");
}

QJsonDocument AppState::loadPreferences()
{
    QFile file(mConfigDir.filePath(PreferencesFile));
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning() << "Failed to open settings json file";
        return {};
    }
    return QJsonDocument::fromJson(file.readAll());
}
