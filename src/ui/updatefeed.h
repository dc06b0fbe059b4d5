#pragma once
#include <QDate>
#include <QString>
#include <QUrl>

// What the update feed says, and the rules that decide whether it offers
// this build anything.
namespace Update {

struct Release
{
    QString version;
    QString channel;
    QString released;
    QString notesUrl;
    QString downloadsUrl;
    bool valid = false;
};

// "alpha", "beta" or "rc" after the first "-", tested case-sensitively;
// "stable" otherwise.
QString channelOf(const QString& version);
QString currentChannel();
// "Tintorel v0.7.0.0 [2026-10-15]".
QString versionString();
// The tool's record under "tools"; invalid when there is none. Malformed
// JSON is no record, not an error.
Release parseFeed(const QByteArray& feed, const QString& toolKey);
// A stable release is offered on every channel, a pre-release only on its own.
bool channelAccepts(const QString& ownChannel, const QString& releaseChannel);
// The release if it is new to this build and wanted, else an invalid one.
// Newer means released after the build date: versions are only compared
// for equality.
Release selectUpdate(const QString& currentVersion, const QString& buildDate, const QString& ownChannel,
                     const Release& release, const QString& skippedVersion);
// "daily", "monthly", and anything else as weekly.
bool isCheckDue(bool enabled, const QString& interval, const QString& lastCheck, const QDate& today);

// The feed's address as the program was built; empty when none was given,
// and then nothing is ever fetched.
QUrl feedUrl();

} // namespace Update
