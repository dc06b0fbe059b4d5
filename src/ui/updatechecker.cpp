#include "ui/updatechecker.h"

#include "project/version.h"

#include <QNetworkReply>
#include <QNetworkRequest>

namespace Update {

namespace {

QString tooLarge()
{
    return UpdateChecker::tr("The update server sent more than %1 bytes.").arg(UpdateChecker::MaxFeedSize);
}

} // namespace

UpdateChecker::UpdateChecker(const QUrl& feed, QObject* parent)
    : QObject(parent)
    , mFeed(feed)
{
}

QString UpdateChecker::userAgent() const
{
    const QUrl site = mFeed.adjusted(QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery
                                     | QUrl::RemoveFragment);
    return QStringLiteral("Tintorel/%1 (+%2)").arg(version(), site.toString());
}

void UpdateChecker::start()
{
    dropReply();
    QNetworkRequest request(mFeed);
    request.setHeader(QNetworkRequest::UserAgentHeader, userAgent());
    request.setTransferTimeout(mTimeout);
    QNetworkReply* reply = mNetwork.get(request);
    mReply = reply;
    connect(reply, &QNetworkReply::finished, this, [this, reply] { finished(reply); });
    // The size given in the headers, or counted as the bytes come.
    connect(reply, &QNetworkReply::downloadProgress, this, [this](qint64 received, qint64 total) {
        if (received <= MaxFeedSize && total <= MaxFeedSize)
            return;
        dropReply();
        emit failed(tooLarge());
    });
}

// Disconnected before the abort, which would otherwise report itself.
void UpdateChecker::dropReply()
{
    if (!mReply)
        return;
    QNetworkReply* reply = mReply;
    mReply = nullptr;
    disconnect(reply, nullptr, this, nullptr);
    reply->abort();
    reply->deleteLater();
}

void UpdateChecker::finished(QNetworkReply* reply)
{
    mReply = nullptr;
    reply->deleteLater();
    if (reply->error() != QNetworkReply::NoError) {
        emit failed(reply->errorString());
        return;
    }
    const QByteArray feed = reply->read(MaxFeedSize + 1);
    if (feed.size() > MaxFeedSize)
        emit failed(tooLarge());
    else
        emit fetched(feed);
}

} // namespace Update
