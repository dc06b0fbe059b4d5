#include "ui/updatecontroller.h"

#include "project/version.h"

UpdateController::UpdateController(const QUrl& feed, QObject* parent)
    : QObject(parent)
    , mChecker(feed)
{
    connect(&mChecker, &Update::UpdateChecker::fetched, this, &UpdateController::fetched);
    connect(&mChecker, &Update::UpdateChecker::failed, this,
            [this](const QString& error) { emit checkFailed(error, mOrigin); });
}

bool UpdateController::isConfigured() const
{
    return mChecker.feed().isValid() && !mChecker.feed().isEmpty();
}

void UpdateController::check(Origin origin)
{
    if (!isConfigured())
        return;
    mOrigin = origin;
    mChecker.start();
}

void UpdateController::checkIfDue()
{
    const QJsonObject general = preferences();
    if (Update::isCheckDue(general.value(QStringLiteral("versionCheckEnabled")).toBool(true),
                           general.value(QStringLiteral("updateInterval")).toString(),
                           general.value(QStringLiteral("lastUpdateCheck")).toString(), QDate::currentDate()))
        check(AtStart);
}

void UpdateController::skipVersion(const QString& version)
{
    store(QStringLiteral("skippedVersion"), version);
}

void UpdateController::store(const QString& key, const QString& value)
{
    QJsonObject general = preferences();
    general.insert(key, value);
    savePreferences(general);
}

// Only a fetch that came back counts as a check: after a failure the date
// stays, so that the next start tries again.
void UpdateController::fetched(const QByteArray& feed)
{
    store(QStringLiteral("lastUpdateCheck"), QDate::currentDate().toString(Qt::ISODate));
    const Update::Release release = Update::parseFeed(feed, QStringLiteral("tintorel"));
    if (!release.valid) {
        emit upToDate(mOrigin);
        return;
    }
    const Update::Release update
        = Update::selectUpdate(version(), buildDate(), Update::currentChannel(), release,
                               preferences().value(QStringLiteral("skippedVersion")).toString());
    if (update.valid)
        emit updateAvailable(update, mOrigin);
    else
        emit upToDate(mOrigin);
}
