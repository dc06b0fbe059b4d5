#include "ui/updatefeed.h"

#include <QtTest>

class TestUpdateFeed : public QObject
{
    Q_OBJECT
private slots:
    void channelOf_data();
    void channelOf();
    void parseFeed_data();
    void parseFeed();
    void selectUpdate_data();
    void selectUpdate();
    void isCheckDue_data();
    void isCheckDue();
};

void TestUpdateFeed::channelOf_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("channel");
    QTest::newRow("empty") << "" << "stable";
    QTest::newRow("no suffix") << "0.7.0.0" << "stable";
    QTest::newRow("alpha") << "1.0-alpha3" << "alpha";
    QTest::newRow("beta") << "1.0-beta2" << "beta";
    QTest::newRow("rc") << "1.0-rc1" << "rc";
    QTest::newRow("RC1 is stable: the test is case-sensitive") << "1.0-RC1" << "stable";
    QTest::newRow("unknown suffix") << "1.0-preview" << "stable";
    QTest::newRow("only the text after the first dash") << "1.0-x-beta" << "stable";
}

void TestUpdateFeed::channelOf()
{
    QFETCH(QString, version);
    QFETCH(QString, channel);
    QCOMPARE(Update::channelOf(version), channel);
}

void TestUpdateFeed::parseFeed_data()
{
    QTest::addColumn<QByteArray>("feed");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("notesUrl");
    QTest::newRow("full record")
        << QByteArray(R"({"tools":{"tintorel":{"latest":"0.8.0.0","channel":"stable","released":"2026-11-01",)"
                      R"("notes_url":"https://n","downloads_url":"https://d"}}})")
        << true << "0.8.0.0" << "https://n";
    QTest::newRow("missing members read as empty")
        << QByteArray(R"({"tools":{"tintorel":{"latest":"0.8.0.0"}}})") << true << "0.8.0.0" << "";
    QTest::newRow("another tool only") << QByteArray(R"({"tools":{"other":{"latest":"9"}}})") << false << ""
                                       << "";
    QTest::newRow("malformed JSON") << QByteArray(R"({"tools":{"tintorel":)") << false << "" << "";
    QTest::newRow("not JSON at all") << QByteArray("<html>502</html>") << false << "" << "";
}

void TestUpdateFeed::parseFeed()
{
    QFETCH(QByteArray, feed);
    QFETCH(bool, valid);
    QFETCH(QString, version);
    QFETCH(QString, notesUrl);
    const Update::Release release = Update::parseFeed(feed, "tintorel");
    QCOMPARE(release.valid, valid);
    QCOMPARE(release.version, version);
    QCOMPARE(release.notesUrl, notesUrl);
}

void TestUpdateFeed::selectUpdate_data()
{
    QTest::addColumn<QString>("ownChannel");
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("channel");
    QTest::addColumn<QString>("released");
    QTest::addColumn<QString>("skipped");
    QTest::addColumn<bool>("offered");
    // The build: 0.7.0.0 of 2026-10-15.
    QTest::newRow("later stable release") << "stable" << "0.8.0.0" << "stable" << "2026-11-01" << "" << true;
    QTest::newRow("same date, other version") << "stable" << "0.7.0.1" << "stable" << "2026-10-15" << "" << false;
    QTest::newRow("older date") << "stable" << "0.8.0.0" << "stable" << "2026-09-30" << "" << false;
    QTest::newRow("the running version") << "stable" << "0.7.0.0" << "stable" << "2026-11-01" << "" << false;
    QTest::newRow("no version") << "stable" << "" << "stable" << "2026-11-01" << "" << false;
    QTest::newRow("skipped") << "stable" << "0.8.0.0" << "stable" << "2026-11-01" << "0.8.0.0" << false;
    QTest::newRow("another was skipped") << "stable" << "0.8.0.0" << "stable" << "2026-11-01" << "0.7.9.0"
                                         << true;
    QTest::newRow("beta build, stable release") << "beta" << "0.8.0.0" << "stable" << "2026-11-01" << "" << true;
    QTest::newRow("beta build, beta release") << "beta" << "0.8.0.0-beta1" << "beta" << "2026-11-01" << ""
                                              << true;
    QTest::newRow("beta build, alpha release") << "beta" << "0.8.0.0-alpha1" << "alpha" << "2026-11-01" << ""
                                               << false;
    QTest::newRow("beta build, rc release") << "beta" << "0.8.0.0-rc1" << "rc" << "2026-11-01" << "" << false;
    QTest::newRow("stable build, beta release") << "stable" << "0.8.0.0-beta1" << "beta" << "2026-11-01" << ""
                                                << false;
}

void TestUpdateFeed::selectUpdate()
{
    QFETCH(QString, ownChannel);
    QFETCH(QString, version);
    QFETCH(QString, channel);
    QFETCH(QString, released);
    QFETCH(QString, skipped);
    QFETCH(bool, offered);
    const Update::Release release { version, channel, released, QString(), QString(), true };
    const Update::Release answer = Update::selectUpdate("0.7.0.0", "2026-10-15", ownChannel, release, skipped);
    QCOMPARE(answer.valid, offered);
    if (offered)
        QCOMPARE(answer.version, version);
}

void TestUpdateFeed::isCheckDue_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QString>("interval");
    QTest::addColumn<QString>("lastCheck");
    QTest::addColumn<bool>("due");
    // Today is 2026-10-15.
    QTest::newRow("switched off") << false << "daily" << "" << false;
    QTest::newRow("never checked") << true << "weekly" << "" << true;
    QTest::newRow("unreadable date") << true << "weekly" << "last week" << true;
    QTest::newRow("daily, checked today") << true << "daily" << "2026-10-15" << false;
    QTest::newRow("daily, checked yesterday") << true << "daily" << "2026-10-14" << true;
    QTest::newRow("weekly, six days") << true << "weekly" << "2026-10-09" << false;
    QTest::newRow("weekly, seven days") << true << "weekly" << "2026-10-08" << true;
    QTest::newRow("empty interval is weekly") << true << "" << "2026-10-09" << false;
    QTest::newRow("mistyped interval is weekly") << true << "wekly" << "2026-10-08" << true;
    QTest::newRow("monthly, 27 days") << true << "monthly" << "2026-09-18" << false;
    QTest::newRow("monthly, 28 days") << true << "monthly" << "2026-09-17" << true;
    QTest::newRow("clock set back") << true << "daily" << "2026-12-01" << false;
}

void TestUpdateFeed::isCheckDue()
{
    QFETCH(bool, enabled);
    QFETCH(QString, interval);
    QFETCH(QString, lastCheck);
    QFETCH(bool, due);
    QCOMPARE(Update::isCheckDue(enabled, interval, lastCheck, QDate(2026, 10, 15)), due);
}

QTEST_GUILESS_MAIN(TestUpdateFeed)
#include "tst_updatefeed.moc"
