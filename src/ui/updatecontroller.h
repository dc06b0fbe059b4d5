#pragma once
#include "ui/updatechecker.h"
#include "ui/updatefeed.h"

#include <QJsonObject>
#include <QObject>
#include <functional>

// Asks the feed whether a newer release exists, when the preferences say
// a check is due or when the user asks, and reports what it found with
// who asked, so that a check at start can stay silent.
class UpdateController : public QObject
{
    Q_OBJECT
public:
    enum Origin { AtStart = 0, FromHelpMenu = 1, FromAboutBox = 2 };
    Q_ENUM(Origin)

    explicit UpdateController(const QUrl& feed, QObject* parent = nullptr);

    // False when the program was built without a feed: nothing is fetched.
    bool isConfigured() const;
    Update::UpdateChecker* checker() { return &mChecker; }

    // The "general" preferences, read at each check; written back with the
    // date of a check or a skipped version. Set by the window.
    std::function<QJsonObject()> preferences = [] { return QJsonObject(); };
    std::function<void(const QJsonObject& general)> savePreferences = [](const QJsonObject&) {};

public slots:
    // A newer check replaces one under way, and its origin wins.
    void check(UpdateController::Origin origin);
    void checkIfDue();
    void skipVersion(const QString& version);

signals:
    void updateAvailable(Update::Release release, UpdateController::Origin origin);
    void upToDate(UpdateController::Origin origin);
    void checkFailed(QString error, UpdateController::Origin origin);

private:
    void fetched(const QByteArray& feed);
    void store(const QString& key, const QString& value);

    Update::UpdateChecker mChecker;
    Origin mOrigin = AtStart;
};
