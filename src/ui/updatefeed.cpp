#include "ui/updatefeed.h"

#include "project/version.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace Update {

QString channelOf(const QString& version)
{
    const int dash = version.indexOf(QLatin1Char('-'));
    if (dash < 0)
        return QStringLiteral("stable");
    const QString suffix = version.mid(dash + 1);
    for (const char* channel : { "alpha", "beta", "rc" })
        if (suffix.startsWith(QLatin1String(channel)))
            return QLatin1String(channel);
    return QStringLiteral("stable");
}

QString currentChannel()
{
    return channelOf(version());
}

QString versionString()
{
    return displayName();
}

Release parseFeed(const QByteArray& feed, const QString& toolKey)
{
    const QJsonObject tools = QJsonDocument::fromJson(feed).object().value(QStringLiteral("tools")).toObject();
    if (!tools.contains(toolKey))
        return {};
    const QJsonObject record = tools.value(toolKey).toObject();
    return { record.value(QStringLiteral("latest")).toString(),
             record.value(QStringLiteral("channel")).toString(),
             record.value(QStringLiteral("released")).toString(),
             record.value(QStringLiteral("notes_url")).toString(),
             record.value(QStringLiteral("downloads_url")).toString(),
             true };
}

bool channelAccepts(const QString& ownChannel, const QString& releaseChannel)
{
    return ownChannel == releaseChannel || releaseChannel == QLatin1String("stable");
}

Release selectUpdate(const QString& currentVersion, const QString& buildDate, const QString& ownChannel,
                     const Release& release, const QString& skippedVersion)
{
    if (release.version.isEmpty() || release.version == currentVersion
        || (!skippedVersion.isEmpty() && skippedVersion == release.version)
        || !channelAccepts(ownChannel, release.channel) || !(release.released > buildDate))
        return {};
    return release;
}

bool isCheckDue(bool enabled, const QString& interval, const QString& lastCheck, const QDate& today)
{
    if (!enabled)
        return false;
    const QDate last = QDate::fromString(lastCheck, Qt::ISODate);
    if (!last.isValid())
        return true;
    const qint64 days = last.daysTo(today);
    if (interval == QLatin1String("daily"))
        return days >= 1;
    if (interval == QLatin1String("monthly"))
        return days >= 28;
    return days >= 7;
}

QUrl feedUrl()
{
    const QUrl feed(QStringLiteral(TINTOREL_UPDATE_FEED), QUrl::StrictMode);
    return feed.isValid() && feed.scheme() == QLatin1String("https") ? feed : QUrl();
}

} // namespace Update
