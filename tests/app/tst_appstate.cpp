#include "app/appstate.h"

#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

// State files live under the home folder; each test gets a home of its own.
class TestAppState : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void firstStartMakesTheFolder();
    void roundTrip();
    void unreadableStateGivesDefaults_data();
    void unreadableStateGivesDefaults();
    void preferencesMoveAsTheyAre();

private:
    std::unique_ptr<QTemporaryDir> mHome;
};

void TestAppState::init()
{
    mHome = std::make_unique<QTemporaryDir>();
    qputenv("HOME", QFile::encodeName(mHome->path()));
    qputenv("XDG_CONFIG_HOME", "/somewhere/else"); // never consulted
}

void TestAppState::firstStartMakesTheFolder()
{
    AppState state;
    QVERIFY(QDir(mHome->filePath(".config/tintorel")).exists());
    QCOMPARE(state.configDir().canonicalPath(), QDir(mHome->filePath(".config/tintorel")).canonicalPath());
}

void TestAppState::roundTrip()
{
    {
        AppState state;
        state.setWindowState(QByteArray("\x00\x01state", 7));
        state.setWindowGeometry("geometry");
        state.setTileZoom(12);
        state.setRecent({ "/a.tintorel", "/b.tintorel" });
        state.setLastPath("/projects");
        QVERIFY(state.save());
    }
    AppState state;
    state.load();
    QCOMPARE(state.windowState(), QByteArray("\x00\x01state", 7));
    QCOMPARE(state.windowGeometry(), QByteArray("geometry"));
    QCOMPARE(state.tileZoom(), 12);
    QCOMPARE(state.recent(), (QStringList { "/a.tintorel", "/b.tintorel" }));
    QCOMPARE(state.lastPath(), QStringLiteral("/projects"));
}

void TestAppState::unreadableStateGivesDefaults_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("garbled") << QByteArray("{ not json");
    QTest::newRow("empty object") << QByteArray("{}");
    QTest::newRow("wrong types") << QByteArray(R"({"windowState": 3, "tileZoom": "x", "recent": 1})");
}

void TestAppState::unreadableStateGivesDefaults()
{
    QFETCH(QByteArray, content);
    AppState state;
    QFile file(state.configDir().filePath("state.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    QTest::ignoreMessage(QtWarningMsg, "JSON object not found \"windowState\"");
    QTest::ignoreMessage(QtWarningMsg, "JSON object not found \"windowGeometry\"");
    state.load();
    QCOMPARE(state.tileZoom(), 8);
    QCOMPARE(state.lastPath(), QStringLiteral("~"));
    QVERIFY(state.recent().isEmpty());
    QVERIFY(state.windowState().isEmpty());
}

void TestAppState::preferencesMoveAsTheyAre()
{
    AppState state;
    QTest::ignoreMessage(QtWarningMsg, "Failed to open settings json file");
    QVERIFY(state.loadPreferences().isNull());
    const QJsonDocument preferences(QJsonObject { { "backupOnSave", false }, { "gridSize", 16 } });
    QVERIFY(state.savePreferences(preferences));
    QCOMPARE(state.loadPreferences(), preferences);
}

QTEST_GUILESS_MAIN(TestAppState)
#include "tst_appstate.moc"
