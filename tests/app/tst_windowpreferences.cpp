#include "app/filemenu.h"
#include "app/mainwindow.h"
#include "mapeditor/view.h"
#include "model/tileset.h"
#include "project/project.h"
#include "ui/generalpage.h"
#include "ui/mapeditorpage.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

class TestWindowPreferences : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void newMapTabsFollowThePreferences();
    void backupOnSave_data();
    void backupOnSave();

private:
    std::unique_ptr<QTemporaryDir> mHome;
};

namespace {

MapEditor::View* openMap(MainWindow& window, const QString& name)
{
    const QPointer<Project> project = window.projectController()->project();
    QSize size(40, 30);
    window.projectActions()->createMap(name, project->tileSets().first()->id(), size);
    return qobject_cast<MapEditor::View*>(window.tabView()->currentWidget());
}

} // namespace

// A fresh home each time: no preferences.json from an earlier test.
void TestWindowPreferences::init()
{
    mHome = std::make_unique<QTemporaryDir>();
    qputenv("HOME", QFile::encodeName(mHome->path()));
}

void TestWindowPreferences::newMapTabsFollowThePreferences()
{
    auto window = std::make_unique<MainWindow>();
    window->menus()->fileMenu()->newAccepted("Game");
    window->projectActions()->createTileSet("Forest", QUuid(), 16, false);
    MapEditor::View* before = openMap(*window, "Before");
    QVERIFY(before);
    QCOMPARE(before->grid()->view().cellSize, 8);
    QCOMPARE(before->grid()->view().zoom, 4);

    PreferencesDialog* preferences = window->preferencesDialog();
    emit window->menus()->fileMenu()->displayPreferences();
    QVERIFY(preferences->isVisible());
    preferences->pageList()->setCurrentRow(1);
    MapEditorPage* page = preferences->mapEditor();
    page->gridSizeBox()->setValue(16);
    page->zoomBox()->setValue(2);
    QTest::mouseClick(page->overlayBox(), Qt::LeftButton);
    QTest::mouseClick(preferences->buttons()->buttons().first(), Qt::LeftButton); // Save
    QVERIFY(!preferences->isVisible());

    MapEditor::View* after = openMap(*window, "After");
    QVERIFY(after && after != before);
    QCOMPARE(after->grid()->view().cellSize, 16);
    QCOMPARE(after->grid()->view().zoom, 2);
    QCOMPARE(after->grid()->view().scaledCell, 32);
    // The checker board's switch comes first and the overlay's wins.
    QVERIFY(after->grid()->checkerBoard());
    QVERIFY(!after->grid()->gridVisible());
    // A tab that was open keeps what it had.
    QCOMPARE(before->grid()->view().cellSize, 8);
    QCOMPARE(before->grid()->view().zoom, 4);

    // Saved with the button, and read at the next start.
    window.reset();
    MainWindow next;
    QCOMPARE(next.preferencesDialog()->mapEditor()->gridSize(), 16);
    QCOMPARE(next.preferencesDialog()->mapEditor()->defaultZoom(), 2);
}

void TestWindowPreferences::backupOnSave_data()
{
    QTest::addColumn<bool>("backup");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void TestWindowPreferences::backupOnSave()
{
    QFETCH(bool, backup);
    QTemporaryDir dir;
    const QString file = dir.filePath("game.tintorel");
    MainWindow window;
    window.preferencesDialog()->general()->backupBox()->setChecked(backup);
    window.projectController()->askSavePath = [file] { return file; };
    window.menus()->fileMenu()->newAccepted("Game");
    emit window.menus()->fileMenu()->saveProject();
    emit window.menus()->fileMenu()->saveProject();
    QVERIFY(QFile::exists(file));
    QCOMPARE(QFile::exists(file + ".bak"), backup);
}

QTEST_MAIN(TestWindowPreferences)
#include "tst_windowpreferences.moc"
