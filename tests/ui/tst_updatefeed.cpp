#include "ui/updatefeed.h"

#include <QtTest>

// The build under test is 0.7.0.0 of 2026-10-15 on the stable channel.
class TestUpdateFeed : public QObject
{
    Q_OBJECT
private slots:
    void channelOf_data();
    void channelOf();
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
    QTest::newRow("beta") << "1.0-beta2" << "beta";
    QTest::newRow("RC1: the test is case-sensitive") << "1.0-RC1" << "stable";
    QTest::newRow("only the text after the first dash") << "1.0-x-beta" << "stable";
}

void TestUpdateFeed::channelOf()
{
    QFETCH(QString, version);
    QFETCH(QString, channel);
    QCOMPARE(Update::channelOf(version), channel);
}

void TestUpdateFeed::selectUpdate_data()
{
    QTest::addColumn<QString>("ownChannel");
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("channel");
    QTest::addColumn<QString>("released");
    QTest::addColumn<bool>("offered");
    QTest::newRow("later release") << "stable" << "0.8.0.0" << "stable" << "2026-11-01" << true;
    QTest::newRow("same date, other version") << "stable" << "0.7.0.1" << "stable" << "2026-10-15" << false;
    QTest::newRow("the running version") << "stable" << "0.7.0.0" << "stable" << "2026-11-01" << false;
    QTest::newRow("beta build, stable release") << "beta" << "0.8.0.0" << "stable" << "2026-11-01" << true;
    QTest::newRow("beta build, beta release") << "beta" << "0.8.0.0-beta1" << "beta" << "2026-11-01" << true;
    QTest::newRow("beta build, alpha release") << "beta" << "0.8.0.0-alpha1" << "alpha" << "2026-11-01" << false;
}

void TestUpdateFeed::selectUpdate()
{
    QFETCH(QString, ownChannel);
    QFETCH(QString, version);
    QFETCH(QString, channel);
    QFETCH(QString, released);
    QFETCH(bool, offered);
    const Update::Release release { version, channel, released, QString(), QString(), true };
    QCOMPARE(Update::selectUpdate("0.7.0.0", "2026-10-15", ownChannel, release, QString()).valid, offered);
}

void TestUpdateFeed::isCheckDue_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QString>("interval");
    QTest::addColumn<QString>("lastCheck");
    QTest::addColumn<bool>("due");
    QTest::newRow("switched off") << false << "daily" << "" << false;
    QTest::newRow("never checked") << true << "weekly" << "" << true;
    QTest::newRow("weekly, six days") << true << "weekly" << "2026-10-09" << false;
    QTest::newRow("mistyped interval: seven days") << true << "wekly" << "2026-10-08" << true;
    QTest::newRow("empty interval: not at six days") << true << "" << "2026-10-09" << false;
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
