#pragma once
#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QUrl>

class QNetworkReply;

namespace Update {

// Fetches the update feed with one GET. One fetch at a time: a new start
// drops the one before unheard. A reply that grows past MaxFeedSize is
// refused before it is read whole.
class UpdateChecker : public QObject
{
    Q_OBJECT
public:
    static constexpr qint64 MaxFeedSize = 1024 * 1024;

    explicit UpdateChecker(const QUrl& feed, QObject* parent = nullptr);

    QUrl feed() const { return mFeed; }
    // Milliseconds without a byte before the fetch gives up.
    int timeout() const { return mTimeout; }
    void setTimeout(int milliseconds) { mTimeout = milliseconds; }
    bool isFetching() const { return !mReply.isNull(); }
    // "Tintorel/<version> (+<the feed's site>)".
    QString userAgent() const;

public slots:
    void start();

signals:
    void fetched(QByteArray feed);
    void failed(QString error);

private:
    void finished(QNetworkReply* reply);
    void dropReply();

    QNetworkAccessManager mNetwork;
    QPointer<QNetworkReply> mReply;
    QUrl mFeed;
    int mTimeout = 5000;
};

} // namespace Update
