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
    void fetchSendsOneGetWithTheUserAgent();
    void replySize_data();
    void replySize();
    void slowReplyTimesOut();
    void secondStartDropsTheFirstReply();
    void controllerSignals_data();
    void controllerSignals();
    void checkIfDue_data();
    void checkIfDue();
};

void TestUpdateCheck::fetchSendsOneGetWithTheUserAgent()
{
    FeedServer server;
    server.responses << ok("{}");
    Update::UpdateChecker checker(server.url());
    QSignalSpy fetched(&checker, &Update::UpdateChecker::fetched);
    checker.start();
    QVERIFY(fetched.wait());
    QCOMPARE(fetched.first().first().toByteArray(), QByteArray("{}"));
    QCOMPARE(server.requests.size(), 1);
    const QByteArray request = server.requests.first();
    QVERIFY(request.startsWith("GET /versions.json HTTP/1.1\r\n"));
    QVERIFY2(request.contains(QStringLiteral("\r\nUser-Agent: Tintorel/0.7.0.0 (+http://127.0.0.1:%1)\r\n")
                                  .arg(server.serverPort())
                                  .toLatin1()),
             request.constData());
}

void TestUpdateCheck::replySize_data()
{
    QTest::addColumn<QByteArray>("response");
    QTest::addColumn<bool>("accepted");
    const QByteArray limit(Update::UpdateChecker::MaxFeedSize, ' ');
    QTest::newRow("exactly the limit") << ok(limit) << true;
    QTest::newRow("declared over the limit") << ok(limit + ' ') << false;
    QTest::newRow("undeclared, far over the limit") << ok(limit + limit, false) << false;
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
}

void TestUpdateCheck::controllerSignals_data()
{
    QTest::addColumn<int>("origin");
    QTest::addColumn<QByteArray>("response");
    QTest::addColumn<QString>("skipped");
    QTest::addColumn<QString>("signal");
    QTest::addColumn<bool>("counted"); // the date of the check is stored
    QTest::newRow("newer release, at start") << 0 << ok(feed("0.8.0.0", "2026-11-01")) << "" << "updateAvailable"
                                             << true;
    QTest::newRow("newer release, from the menu")
        << 1 << ok(feed("0.8.0.0", "2026-11-01")) << "" << "updateAvailable" << true;
    QTest::newRow("same date, from the about box")
        << 2 << ok(feed("0.7.0.1", "2026-10-15")) << "" << "upToDate" << true;
    QTest::newRow("skipped, from the menu too")
        << 1 << ok(feed("0.8.0.0", "2026-11-01")) << "0.8.0.0" << "upToDate" << true;
    QTest::newRow("malformed feed") << 1 << ok("{\"tools\":") << "" << "upToDate" << true;
    QTest::newRow("HTTP 500") << 1 << ServerError << "" << "checkFailed" << false;
    QTest::newRow("HTTP 500, at start") << 0 << ServerError << "" << "checkFailed" << false;
}

void TestUpdateCheck::controllerSignals()
{
    QFETCH(int, origin);
    QFETCH(QByteArray, response);
    QFETCH(QString, skipped);
    QFETCH(QString, signal);
    QFETCH(bool, counted);
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

void TestUpdateCheck::checkIfDue_data()
{
    QTest::addColumn<QUrl>("feed");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QString>("lastCheck");
    QTest::addColumn<bool>("fetching");
    const QUrl local("http://127.0.0.1:9/versions.json");
    QTest::newRow("never checked") << local << true << "" << true;
    QTest::newRow("checked today") << local << true << QDate::currentDate().toString(Qt::ISODate) << false;
    QTest::newRow("switched off") << local << false << "" << false;
    QTest::newRow("no feed in this build") << QUrl() << true << "" << false;
}

void TestUpdateCheck::checkIfDue()
{
    QFETCH(QUrl, feed);
    QFETCH(bool, enabled);
    QFETCH(QString, lastCheck);
    QFETCH(bool, fetching);
    UpdateController controller(feed);
    controller.checker()->setTimeout(100);
    controller.preferences = [&] {
        return QJsonObject { { "versionCheckEnabled", enabled }, { "lastUpdateCheck", lastCheck } };
    };
    controller.checkIfDue();
    QCOMPARE(controller.checker()->isFetching(), fetching);
}

QTEST_GUILESS_MAIN(TestUpdateCheck)
#include "tst_updatecheck.moc"
