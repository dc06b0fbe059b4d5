#include "app/helpmenu.h"
#include "app/mainwindow.h"
#include "ui/about.h"
#include "ui/generalpage.h"

#include <QDesktopServices>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

// Stands in for the browser.
class Browser : public QObject
{
    Q_OBJECT
public:
    QList<QUrl> opened;
public slots:
    void open(const QUrl& url) { opened << url; }
};

class TestUpdateWiring : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void answersByOrigin_data();
    void answersByOrigin();
    void withoutAFeedNothingFails();
    void updateDialogButtons();

private:
    QTemporaryDir mHome;
    Browser mBrowser;
};

namespace {

const Update::Release Newer { "0.8.0.0", "stable", "2026-11-01", "https://example.org/notes",
                              "http://example.org/download", true };

// The box on show; the window keeps hidden ones of its own.
QMessageBox* shownBox(MainWindow& window)
{
    for (QMessageBox* box : window.findChildren<QMessageBox*>())
        if (box->isVisible())
            return box;
    return nullptr;
}

QString boxText(MainWindow& window)
{
    const QMessageBox* box = shownBox(window);
    return box ? box->text() : QString();
}

} // namespace

void TestUpdateWiring::initTestCase()
{
    qputenv("HOME", QFile::encodeName(mHome.path()));
    QDesktopServices::setUrlHandler("https", &mBrowser, "open");
    QDesktopServices::setUrlHandler("http", &mBrowser, "open");
}

void TestUpdateWiring::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler("https");
    QDesktopServices::unsetUrlHandler("http");
}

void TestUpdateWiring::answersByOrigin_data()
{
    QTest::addColumn<int>("origin");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("box");
    QTest::addColumn<bool>("dialog");
    const QString available = "Update available: 0.8.0.0";
    const QString upToDate = "You’re up to date";
    const QString failed = "Could not reach the update server";
    QTest::newRow("at start: update") << 0 << "update" << available << "" << true;
    QTest::newRow("at start: up to date, silent") << 0 << "upToDate" << upToDate << "" << false;
    QTest::newRow("at start: failure, silent") << 0 << "failed" << failed << "" << false;
    QTest::newRow("menu: update") << 1 << "update" << available << "" << true;
    QTest::newRow("menu: up to date") << 1 << "upToDate" << upToDate << "Tintorel 0.7.0.0 is up to date." << false;
    QTest::newRow("menu: failure") << 1 << "failed" << failed << "Could not reach the update server.\nTimed out"
                                   << false;
    QTest::newRow("about box: update, label only") << 2 << "update" << available << "" << false;
    QTest::newRow("about box: up to date, label only") << 2 << "upToDate" << upToDate << "" << false;
    QTest::newRow("about box: failure, label only") << 2 << "failed" << failed << "" << false;
}

void TestUpdateWiring::answersByOrigin()
{
    QFETCH(int, origin);
    QFETCH(QString, answer);
    QFETCH(QString, label);
    QFETCH(QString, box);
    QFETCH(bool, dialog);
    MainWindow window;
    UpdateController* updates = window.updateController();
    const auto from = UpdateController::Origin(origin);
    if (answer == "update")
        emit updates->updateAvailable(Newer, from);
    else if (answer == "upToDate")
        emit updates->upToDate(from);
    else
        emit updates->checkFailed("Timed out", from);
    QCOMPARE(window.menus()->helpMenu()->about()->findChild<QLabel*>("updateStatus")->text(), label);
    QCOMPARE(boxText(window), box);
    QCOMPARE(window.updateDialog()->isVisible(), dialog);
}

// The test build has no feed: the menu says so, and the about box too.
void TestUpdateWiring::withoutAFeedNothingFails()
{
    MainWindow window;
    QVERIFY(!window.updateController()->isConfigured());
    window.menus()->helpMenu()->actions().first()->trigger();
    QCOMPARE(boxText(window), QStringLiteral("No update server is configured in this build of Tintorel."));
    QCOMPARE(shownBox(window)->icon(), QMessageBox::Information);

    About* about = window.menus()->helpMenu()->about();
    window.menus()->helpMenu()->displayAbout();
    QVERIFY(about->isVisible());
    QCOMPARE(about->updateStatus(), About::NotConfigured);
    QVERIFY(!about->findChild<QPushButton*>("checkForUpdates")->isEnabled());
}

void TestUpdateWiring::updateDialogButtons()
{
    MainWindow window;
    UpdateDialog* dialog = window.updateDialog();
    emit window.updateController()->updateAvailable(Newer, UpdateController::AtStart);
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->findChild<QLabel*>("heading")->text(), QStringLiteral("Tintorel 0.8.0.0 is available"));
    QCOMPARE(dialog->findChild<QLabel*>("detail")->text(),
             QStringLiteral("You have 0.7.0.0 (built 2026-10-15).\nThe new version was released 2026-11-01."));

    mBrowser.opened.clear();
    QTest::mouseClick(dialog->findChild<QPushButton*>("releaseNotes"), Qt::LeftButton);
    QTest::mouseClick(dialog->findChild<QPushButton*>("download"), Qt::LeftButton); // http: not opened
    QCOMPARE(mBrowser.opened, (QList<QUrl> { QUrl("https://example.org/notes") }));
    QVERIFY(dialog->isVisible());

    QTest::mouseClick(dialog->findChild<QPushButton*>("later"), Qt::LeftButton);
    QVERIFY(!dialog->isVisible());
    QVERIFY(window.preferencesDialog()->general()->skippedVersion().isEmpty());

    emit window.updateController()->updateAvailable(Newer, UpdateController::FromHelpMenu);
    QTest::mouseClick(dialog->findChild<QPushButton*>("skip"), Qt::LeftButton);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(window.preferencesDialog()->general()->skippedVersion(), QStringLiteral("0.8.0.0"));
    // Kept at once, not only when the window closes.
    QFile saved(QDir(mHome.path()).filePath(".config/tintorel/preferences.json"));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(QJsonDocument::fromJson(saved.readAll())["general"]["skippedVersion"].toString(),
             QStringLiteral("0.8.0.0"));
}

QTEST_MAIN(TestUpdateWiring)
#include "tst_updatewiring.moc"
