#include "app/commandline.h"
#include "app/filemenu.h"
#include "app/mainwindow.h"
#include "app/mapmenu.h"
#include "app/palettemenu.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QMessageBox>
#include <QTemporaryDir>
#include <QtTest>

// The whole window, offscreen, used as a person would use it through its
// menus, with the dialogs answered by the test.
class TestShell : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void menuTitlesAndShortcuts_data();
    void menuTitlesAndShortcuts();
    void projectMenusFollowTheProject();
    void recentListKeepsTen();
    void createSaveCloseReopen();
    void deleteAsksFirst_data();
    void deleteAsksFirst();
    void failedImportIsReported();
    void treeOpensAndRenames();
    void openFromCommandLine_data();
    void openFromCommandLine();

private:
    QStringList treeRows(MainWindow& window) const;
    QTemporaryDir mHome;
};

void TestShell::initTestCase()
{
    qputenv("HOME", QFile::encodeName(mHome.path()));
}

QStringList TestShell::treeRows(MainWindow& window) const
{
    QStringList rows;
    ProjectTree* tree = window.projectWindow()->tree();
    for (int g = 0; g < tree->topLevelItemCount(); ++g)
        for (int i = 0; i < tree->topLevelItem(g)->childCount(); ++i)
            rows << tree->topLevelItem(g)->text(0) + "/" + tree->topLevelItem(g)->child(i)->text(0);
    return rows;
}

void TestShell::menuTitlesAndShortcuts_data()
{
    QTest::addColumn<int>("menu");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QKeySequence>("shortcut");
    QTest::newRow("file new") << 0 << "File" << "New" << QKeySequence(QKeySequence::New);
    QTest::newRow("file save as") << 0 << "File" << "Save As" << QKeySequence(QKeySequence::SaveAs);
    QTest::newRow("edit paste") << 1 << "Edit" << "Paste" << QKeySequence(QKeySequence::Paste);
    QTest::newRow("edit clear selection") << 1 << "Edit" << "Clear Selection"
                                          << QKeySequence(QKeySequence::Deselect);
    QTest::newRow("view reset") << 2 << "View" << "Reset Layout" << QKeySequence();
    QTest::newRow("tiles new") << 3 << "Tiles" << "New Tile Set" << QKeySequence("Ctrl+Alt+T");
    QTest::newRow("tiles next") << 3 << "Tiles" << "Next Tile" << QKeySequence("Ctrl+]");
    QTest::newRow("tiles previous") << 3 << "Tiles" << "Previous Tile" << QKeySequence("Ctrl+[");
    QTest::newRow("sprites new") << 4 << "Sprites" << "New" << QKeySequence("Ctrl+Shift+B");
    QTest::newRow("palette new") << 5 << "Palette" << "New Palette" << QKeySequence("Ctrl+Alt+P");
    QTest::newRow("map new") << 6 << "Map" << "New Map" << QKeySequence("Ctrl+Alt+M");
    QTest::newRow("image new") << 7 << "Image" << "New Image" << QKeySequence();
    QTest::newRow("help about") << 8 << "Help" << "About" << QKeySequence();
}

void TestShell::menuTitlesAndShortcuts()
{
    QFETCH(int, menu);
    QFETCH(QString, title);
    QFETCH(QString, item);
    QFETCH(QKeySequence, shortcut);
    MainWindow window;
    const QList<QAction*> menus = window.menus()->actions();
    QCOMPARE(menus.size(), 9);
    QCOMPARE(menus.at(menu)->text(), title);
    QAction* found = nullptr;
    for (QAction* action : menus.at(menu)->menu()->actions())
        if (action->text() == item)
            found = action;
    QVERIFY2(found, qPrintable(item));
    QCOMPARE(found->shortcut(), shortcut);
}

void TestShell::projectMenusFollowTheProject()
{
    MainWindow window;
    QAction* newMap = window.menus()->mapMenu()->actions().first();
    QVERIFY(!newMap->isEnabled());
    window.menus()->fileMenu()->newAccepted("Game");
    QVERIFY(newMap->isEnabled());
    QCOMPARE(window.windowTitle(), QStringLiteral("Tintorel - Game[*]"));
    QVERIFY(window.projectWindow()->isEnabled());
    window.projectController()->close();
    QVERIFY(!newMap->isEnabled());
    QCOMPARE(window.windowTitle(), QStringLiteral("Tintorel"));
}

void TestShell::recentListKeepsTen()
{
    MainWindow window;
    FileMenu* file = window.menus()->fileMenu();
    file->clearRecent();
    QCOMPARE(file->recentMenu()->actions().first()->text(), QStringLiteral("None"));
    QVERIFY(!file->recentMenu()->actions().first()->isEnabled());
    for (int i = 0; i < 12; ++i)
        file->addRecent(QString("/p/%1.tintorel").arg(i));
    file->addRecent("/p/5.tintorel");
    QCOMPARE(file->recent().size(), 10);
    QCOMPARE(file->recent().first(), QStringLiteral("/p/5.tintorel"));
    QCOMPARE(file->recent().last(), QStringLiteral("/p/2.tintorel")); // 0 and 1 fell off
    QAction* first = file->recentMenu()->actions().first();
    QCOMPARE(first->text(), QStringLiteral("5.tintorel"));
    QCOMPARE(first->property("filePath").toString(), QStringLiteral("/p/5.tintorel"));
}

void TestShell::createSaveCloseReopen()
{
    QTemporaryDir dir;
    const QString file = dir.filePath("game.tintorel");
    MainWindow window;
    window.projectController()->askSavePath = [file] { return file; };
    window.menus()->fileMenu()->newAccepted("Game");
    window.projectActions()->createTileSet("Forest", QUuid(), 16, false);
    const QPointer<Project> project = window.projectController()->project();
    QSize size(8, 6);
    window.projectActions()->createMap("Level", project->tileSets().first()->id(), size);
    QVERIFY(window.projectController()->hasUnsavedChanges());
    QTRY_VERIFY(window.isWindowModified());
    const QStringList rows = treeRows(window);
    QCOMPARE(rows, (QStringList { "Palettes/Forest", "Tile Sets/Forest", "Maps/Level" }));

    emit window.menus()->fileMenu()->saveProject();
    QVERIFY(QFile::exists(file));
    QVERIFY(!window.projectController()->hasUnsavedChanges());
    QVERIFY(!window.isWindowModified());
    emit window.menus()->fileMenu()->closeProject();
    QVERIFY(!window.projectController()->project());
    QVERIFY(treeRows(window).isEmpty());

    window.menus()->fileMenu()->recentMenu()->actions().first()->trigger();
    QVERIFY(window.projectController()->project());
    QCOMPARE(treeRows(window), rows);
    QVERIFY(!window.projectController()->hasUnsavedChanges());
}

void TestShell::deleteAsksFirst_data()
{
    QTest::addColumn<int>("node");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<QString>("question"); // empty: none is asked
    QTest::addColumn<QString>("refusal");
    QTest::addColumn<bool>("deleted");
    QTest::newRow("refused by the user") << int(ProjectTree::Map) << false
                                         << "Delete \"Level\"? This cannot be undone." << "" << false;
    QTest::newRow("confirmed") << int(ProjectTree::Map) << true << "Delete \"Level\"? This cannot be undone." << ""
                               << true;
    QTest::newRow("in use: refused before the question")
        << int(ProjectTree::Palette) << true << "" << "Palette In Use" << false;
}

void TestShell::deleteAsksFirst()
{
    QFETCH(int, node);
    QFETCH(bool, answer);
    QFETCH(QString, question);
    QFETCH(QString, refusal);
    QFETCH(bool, deleted);
    MainWindow window;
    window.menus()->fileMenu()->newAccepted("Game");
    const QPointer<Project> project = window.projectController()->project();
    window.projectActions()->createTileSet("Forest", QUuid(), 4, false);
    QSize size(2, 2);
    window.projectActions()->createMap("Level", project->tileSets().first()->id(), size);
    const QUuid id = node == ProjectTree::Map ? project->maps().first()->id() : project->palettes().first()->id();
    QStringList asked;
    window.projectActions()->confirmDelete = [&](const QString& text) {
        asked << text;
        return answer;
    };

    window.projectActions()->deleteItem(ProjectTree::ProjectNode(node), id);
    QCOMPARE(asked, question.isEmpty() ? QStringList() : QStringList { question });
    QCOMPARE(window.projectActions()->refusalDialog()->isVisible(), !refusal.isEmpty());
    if (!refusal.isEmpty())
        QCOMPARE(window.projectActions()->refusalDialog()->windowTitle(), refusal);
    QCOMPARE(project->nameOf(id).isEmpty(), deleted);
    QCOMPARE(!window.projectWindow()->tree()->findAsset(ProjectTree::ProjectNode(node), id), deleted);
}

void TestShell::failedImportIsReported()
{
    MainWindow window;
    window.menus()->fileMenu()->newAccepted("Game");
    window.projectActions()->importMap(QDir::temp().filePath("no-such-picture.png"));
    QMessageBox* box = window.projectActions()->importMessage();
    QCOMPARE(box->windowTitle(), QStringLiteral("Map Editor"));
    QCOMPARE(box->text(), QStringLiteral("Import Incomplete"));
    QCOMPARE(box->informativeText(), QStringLiteral("Could not read the image file"));
    QVERIFY(window.projectController()->project()->maps().isEmpty());
}

void TestShell::treeOpensAndRenames()
{
    MainWindow window;
    window.menus()->fileMenu()->newAccepted("Game");
    const QPointer<Project> project = window.projectController()->project();
    const QUuid zebra = project->createMap("Zebra", QUuid(), QSize(2, 2))->id();
    project->createMap("Moon", QUuid(), QSize(2, 2));
    ProjectTree* tree = window.projectWindow()->tree();
    QSignalSpy opened(window.projectWindow(), &ProjectWindow::selectedMapChanged);
    tree->doubleClickFilter(tree->group(ProjectTree::Map), 0);
    QCOMPARE(opened.count(), 0); // a group row opens nothing
    tree->doubleClickFilter(tree->findAsset(ProjectTree::Map, zebra), 0);
    QCOMPARE(opened.count(), 1);
    QCOMPARE(opened.at(0).at(0).toUuid(), zebra);

    tree->findAsset(ProjectTree::Map, zebra)->setText(0, " Alpha ");
    QCOMPARE(project->map(zebra)->name(), QStringLiteral("Alpha"));
    QCOMPARE(tree->group(ProjectTree::Map)->child(0)->text(0), QStringLiteral("Alpha"));
    tree->findAsset(ProjectTree::Map, zebra)->setText(0, "  "); // an empty name is refused
    QCOMPARE(project->map(zebra)->name(), QStringLiteral("Alpha"));
    QCOMPARE(tree->findAsset(ProjectTree::Map, zebra)->text(0), QStringLiteral("Alpha"));
}

void TestShell::openFromCommandLine_data()
{
    QTest::addColumn<QStringList>("arguments"); // after the program's name; "%1" is a saved project
    QTest::addColumn<bool>("opened");
    QTest::addColumn<bool>("error");
    QTest::newRow("a project") << QStringList { "%1" } << true << false;
    QTest::newRow("a path relative to where it starts") << QStringList { "game.tintorel" } << true << false;
    QTest::newRow("after an option QApplication did not take") << QStringList { "--verbose", "%1" } << true
                                                                 << false;
    QTest::newRow("a file that is not there") << QStringList { "gone.tintorel" } << false << true;
}

void TestShell::openFromCommandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, opened);
    QFETCH(bool, error);
    QTemporaryDir dir;
    const QString file = dir.filePath("game.tintorel");
    {
        MainWindow maker;
        maker.projectController()->askSavePath = [file] { return file; };
        maker.menus()->fileMenu()->newAccepted("Game");
        emit maker.menus()->fileMenu()->saveProject();
    }
    const QString startedIn = QDir::currentPath();
    QDir::setCurrent(dir.path());
    MainWindow window;
    arguments.replaceInStrings("%1", file);
    ::openFromCommandLine(window, QStringList { "tintorel" } + arguments);
    QDir::setCurrent(startedIn);

    QCOMPARE(!window.projectController()->project().isNull(), opened);
    QCOMPARE(window.messageDialog()->isVisible(), error);
    if (opened) {
        QCOMPARE(window.projectController()->project()->name(), QStringLiteral("Game"));
        QCOMPARE(window.menus()->fileMenu()->recent().first(), file);
    }
}

QTEST_MAIN(TestShell)
#include "tst_shell.moc"
