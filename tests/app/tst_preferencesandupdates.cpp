#include "app/filemenu.h"
#include "app/helpmenu.h"
#include "app/mainwindow.h"
#include "mapeditor/view.h"
#include "model/tileset.h"
#include "project/project.h"
#include "ui/about.h"
#include "ui/generalpage.h"
#include "ui/mapeditorpage.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
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

// The window's preferences and update check, driven as a user would.
class TestPreferencesAndUpdates : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void newMapTabsFollowThePreferences();
    void noBackupWhenSwitchedOff();
    void updateAnswersByOrigin_data();
    void updateAnswersByOrigin();
    void withoutAFeedNothingFails();
    void updateDialogButtons();

private:
    std::unique_ptr<QTemporaryDir> mHome;
    Browser mBrowser;
};

namespace {

const Update::Release Newer { "0.8.0.0", "stable", "2026-11-01", "https://example.org/notes",
                              "http://example.org/download", true };

MapEditor::View* openMap(MainWindow& window, const QString& name)
{
    QSize size(40, 30);
    window.projectActions()->createMap(name, window.projectController()->project()->tileSets().first()->id(), size);
    return qobject_cast<MapEditor::View*>(window.tabView()->currentWidget());
}

// The box on show; the window keeps hidden ones of its own.
QString boxText(MainWindow& window, QMessageBox::Icon icon = QMessageBox::NoIcon)
{
    for (QMessageBox* box : window.findChildren<QMessageBox*>())
        if (box->isVisible() && (icon == QMessageBox::NoIcon || box->icon() == icon))
            return box->text();
    return {};
}

} // namespace

// A fresh home each time: no preferences.json from an earlier test.
void TestPreferencesAndUpdates::init()
{
    mHome = std::make_unique<QTemporaryDir>();
    qputenv("HOME", QFile::encodeName(mHome->path()));
    QDesktopServices::setUrlHandler("https", &mBrowser, "open");
    QDesktopServices::setUrlHandler("http", &mBrowser, "open");
}

void TestPreferencesAndUpdates::newMapTabsFollowThePreferences()
{
    auto window = std::make_unique<MainWindow>();
    window->menus()->fileMenu()->newAccepted("Game");
    window->projectActions()->createTileSet("Forest", QUuid(), 16, false);
    MapEditor::View* before = openMap(*window, "Before");
    QCOMPARE(before->grid()->view().cellSize, 8);
    QCOMPARE(before->grid()->view().zoom, 4);

    PreferencesDialog* preferences = window->preferencesDialog();
    preferences->pageList()->setCurrentRow(1);
    emit window->menus()->fileMenu()->displayPreferences();
    QVERIFY(QTest::qWaitForWindowExposed(preferences));
    MapEditorPage* page = preferences->mapEditor();
    page->gridSizeBox()->setValue(16);
    page->zoomBox()->setValue(2);
    // On the box itself: the row is wider than what a click may hit.
    QTest::mouseClick(page->overlayBox(), Qt::LeftButton, {}, QPoint(6, page->overlayBox()->height() / 2));
    QTest::mouseClick(preferences->buttons()->buttons().first(), Qt::LeftButton); // Save

    MapEditor::View* after = openMap(*window, "After");
    QCOMPARE(after->grid()->view().cellSize, 16);
    QCOMPARE(after->grid()->view().zoom, 2);
    QCOMPARE(after->grid()->view().scaledCell, 32);
    // The checker board's switch comes first and the overlay's wins.
    QVERIFY(after->grid()->checkerBoard());
    QVERIFY(!after->grid()->gridVisible());
    // A tab that was open keeps what it had.
    QCOMPARE(before->grid()->view().cellSize, 8);

    // Saved with the button, and read at the next start.
    window.reset();
    MainWindow next;
    QCOMPARE(next.preferencesDialog()->mapEditor()->gridSize(), 16);
}

// Backups are on by default; the preference turns them off.
void TestPreferencesAndUpdates::noBackupWhenSwitchedOff()
{
    const QString file = QDir(mHome->path()).filePath("game.tintorel");
    MainWindow window;
    window.preferencesDialog()->general()->backupBox()->setChecked(false);
    window.projectController()->askSavePath = [file] { return file; };
    window.menus()->fileMenu()->newAccepted("Game");
    emit window.menus()->fileMenu()->saveProject();
    emit window.menus()->fileMenu()->saveProject();
    QVERIFY(QFile::exists(file));
    QVERIFY(!QFile::exists(file + ".bak"));
}

void TestPreferencesAndUpdates::updateAnswersByOrigin_data()
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

void TestPreferencesAndUpdates::updateAnswersByOrigin()
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
    QCOMPARE(boxText(window, answer == "failed" ? QMessageBox::Warning : QMessageBox::Information), box);
    QCOMPARE(window.updateDialog()->isVisible(), dialog);
}

// The test build has no feed: the menu says so, and the about box too.
void TestPreferencesAndUpdates::withoutAFeedNothingFails()
{
    MainWindow window;
    window.menus()->helpMenu()->actions().first()->trigger();
    QCOMPARE(boxText(window, QMessageBox::Information),
             QStringLiteral("No update server is configured in this build of Tintorel."));
    About* about = window.menus()->helpMenu()->about();
    window.menus()->helpMenu()->displayAbout();
    QCOMPARE(about->updateStatus(), About::NotConfigured);
    QVERIFY(!about->findChild<QPushButton*>("checkForUpdates")->isEnabled());
}

void TestPreferencesAndUpdates::updateDialogButtons()
{
    MainWindow window;
    UpdateDialog* dialog = window.updateDialog();
    emit window.updateController()->updateAvailable(Newer, UpdateController::AtStart);
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
    // Kept at once, not only when the window closes.
    QFile saved(QDir(mHome->path()).filePath(".config/tintorel/preferences.json"));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(QJsonDocument::fromJson(saved.readAll())["general"]["skippedVersion"].toString(),
             QStringLiteral("0.8.0.0"));
}

QTEST_MAIN(TestPreferencesAndUpdates)
#include "tst_preferencesandupdates.moc"
