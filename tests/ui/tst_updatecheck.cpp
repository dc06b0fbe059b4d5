#include "ui/updatechecker.h"
#include "ui/updatecontroller.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>
#include <memory>

namespace {

// A web server on 127.0.0.1 that answers each request with the next canned
// response; an empty response holds the connection open, unanswered.
class FeedServer : public QTcpServer
{
public:
    FeedServer() { listen(QHostAddress::LocalHost, 0); }

    QUrl url() const { return QUrl(QStringLiteral("http://127.0.0.1:%1/versions.json").arg(serverPort())); }

    QList<QByteArray> responses;
    QList<QByteArray> requests;

protected:
    void incomingConnection(qintptr handle) override
    {
        auto* socket = new QTcpSocket(this);
        socket->setSocketDescriptor(handle);
        auto head = std::make_shared<QByteArray>();
        connect(socket, &QTcpSocket::readyRead, this, [this, socket, head] {
            *head += socket->readAll();
            if (!head->contains("\r\n\r\n"))
                return;
            requests << *head;
            const QByteArray response = responses.isEmpty() ? QByteArray() : responses.takeFirst();
            if (!response.isEmpty()) {
                socket->write(response);
                socket->disconnectFromHost();
            }
        });
    }
};

QByteArray ok(const QByteArray& body, bool declared = true)
{
    QByteArray head = "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nConnection: close\r\n";
    if (declared)
        head += "Content-Length: " + QByteArray::number(body.size()) + "\r\n";
    return head + "\r\n" + body;
}

QByteArray feed(const QByteArray& version, const QByteArray& released)
{
    return "{\"tools\":{\"tintorel\":{\"latest\":\"" + version + "\",\"channel\":\"stable\",\"released\":\""
        + released + "\",\"notes_url\":\"https://n\",\"downloads_url\":\"https://d\"}}}";
}

const QByteArray ServerError = "HTTP/1.1 500 Internal Server Error\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";

} // namespace

class TestUpdateCheck : public QObject
{
    Q_OBJECT
private slots:
    void replySize_data();
    void replySize();
    void slowReplyTimesOut();
    void secondStartDropsTheFirstReply();
    void controllerSignals_data();
    void controllerSignals();
    void checkIfDueReadsThePreferences();
};

void TestUpdateCheck::replySize_data()
{
    QTest::addColumn<QByteArray>("response");
    QTest::addColumn<bool>("accepted");
    const QByteArray limit(Update::UpdateChecker::MaxFeedSize, ' ');
    QTest::newRow("exactly the limit") << ok(limit) << true;
    QTest::newRow("undeclared, over the limit") << ok(limit + limit, false) << false;
}

void TestUpdateCheck::replySize()
{
    QFETCH(QByteArray, response);
    QFETCH(bool, accepted);
    FeedServer server;
    server.responses << response;
    Update::UpdateChecker checker(server.url());
    QSignalSpy fetched(&checker, &Update::UpdateChecker::fetched);
    QSignalSpy failed(&checker, &Update::UpdateChecker::failed);
    checker.start();
    QTRY_COMPARE(fetched.size() + failed.size(), 1);
    QCOMPARE(fetched.size(), accepted ? 1 : 0);
    QVERIFY(!checker.isFetching());
}

void TestUpdateCheck::slowReplyTimesOut()
{
    FeedServer server; // never answers
    Update::UpdateChecker checker(server.url());
    checker.setTimeout(200);
    QSignalSpy failed(&checker, &Update::UpdateChecker::failed);
    checker.start();
    QVERIFY(failed.wait(3000));
    QVERIFY(!failed.first().first().toString().isEmpty());
}

void TestUpdateCheck::secondStartDropsTheFirstReply()
{
    FeedServer server;
    server.responses << QByteArray() << ok("second");
    Update::UpdateChecker checker(server.url());
    QSignalSpy fetched(&checker, &Update::UpdateChecker::fetched);
    QSignalSpy failed(&checker, &Update::UpdateChecker::failed);
    checker.start();
    QTRY_COMPARE(server.requests.size(), 1);
    checker.start();
    QVERIFY(fetched.wait());
    QTest::qWait(100);
    QCOMPARE(fetched.size(), 1);
    QCOMPARE(fetched.first().first().toByteArray(), QByteArray("second"));
    QCOMPARE(failed.size(), 0); // the abort of the first is never heard
    // Nothing but the GET and who asks.
    QVERIFY(server.requests.last().startsWith("GET /versions.json HTTP/1.1\r\n"));
    QVERIFY(server.requests.last().contains(
        QStringLiteral("\r\nUser-Agent: Tintorel/0.7.0.0 (+http://127.0.0.1:%1)\r\n").arg(server.serverPort()).toLatin1()));
}

void TestUpdateCheck::controllerSignals_data()
{
    QTest::addColumn<int>("origin");
    QTest::addColumn<QByteArray>("response");
    QTest::addColumn<QString>("skipped");
    QTest::addColumn<QString>("signal");
    QTest::newRow("newer release, at start") << 0 << ok(feed("0.8.0.0", "2026-11-01")) << "" << "updateAvailable";
    QTest::newRow("same date, from the about box")
        << 2 << ok(feed("0.7.0.1", "2026-10-15")) << "" << "upToDate";
    QTest::newRow("skipped, from the menu too")
        << 1 << ok(feed("0.8.0.0", "2026-11-01")) << "0.8.0.0" << "upToDate";
    QTest::newRow("malformed feed") << 1 << ok("{\"tools\":") << "" << "upToDate";
    QTest::newRow("HTTP 500") << 1 << ServerError << "" << "checkFailed";
}

void TestUpdateCheck::controllerSignals()
{
    QFETCH(int, origin);
    QFETCH(QByteArray, response);
    QFETCH(QString, skipped);
    QFETCH(QString, signal);
    const bool counted = signal != "checkFailed"; // only a fetch that came back counts as a check
    FeedServer server;
    server.responses << response;
    UpdateController controller(server.url());
    QJsonObject general { { "skippedVersion", skipped }, { "lastUpdateCheck", "2026-01-01" } };
    controller.preferences = [&general] { return general; };
    controller.savePreferences = [&general](const QJsonObject& saved) { general = saved; };
    QSignalSpy available(&controller, &UpdateController::updateAvailable);
    QSignalSpy upToDate(&controller, &UpdateController::upToDate);
    QSignalSpy failed(&controller, &UpdateController::checkFailed);

    controller.check(UpdateController::Origin(origin));
    QTRY_COMPARE(available.size() + upToDate.size() + failed.size(), 1);
    QSignalSpy& spy = signal == "updateAvailable" ? available : signal == "upToDate" ? upToDate : failed;
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().last().value<UpdateController::Origin>(), UpdateController::Origin(origin));
    if (signal == "updateAvailable")
        QCOMPARE(spy.first().first().value<Update::Release>().version, QStringLiteral("0.8.0.0"));
    QCOMPARE(general.value("lastUpdateCheck").toString(),
             counted ? QDate::currentDate().toString(Qt::ISODate) : QStringLiteral("2026-01-01"));
    QCOMPARE(general.value("skippedVersion").toString(), skipped);
}

void TestUpdateCheck::checkIfDueReadsThePreferences()
{
    QJsonObject general { { "lastUpdateCheck", QDate::currentDate().toString(Qt::ISODate) } };
    UpdateController controller(QUrl("http://127.0.0.1:9/versions.json"));
    controller.preferences = [&general] { return general; };
    controller.checkIfDue();
    QVERIFY(!controller.checker()->isFetching());
    general.insert("lastUpdateCheck", "");
    controller.checkIfDue();
    QVERIFY(controller.checker()->isFetching());
}

QTEST_GUILESS_MAIN(TestUpdateCheck)
#include "tst_updatecheck.moc"
