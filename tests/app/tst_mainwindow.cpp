#include "app/mainwindow.h"
#include "app/viewmenu.h"

#include <QStatusBar>
#include <QTemporaryDir>
#include <QtTest>

class TestMainWindow : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void frame();
    void docks_data();
    void docks();
    void windowMenuListsDockTogglesInOrder();
    void resetLayoutRestoresTheDefaultAfterChanges();
    void statusBarFollowsViewMenu();
};

namespace {

QList<QDockWidget*> docksOf(MainWindow& window)
{
    return window.layoutController()->docks().all();
}

void verifyDefaultLayout(MainWindow& window)
{
    const LayoutController::Docks& d = window.layoutController()->docks();
    QCOMPARE(window.dockWidgetArea(d.project), Qt::LeftDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(d.blockSelector), Qt::LeftDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(d.mapSprites), Qt::LeftDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(d.tile), Qt::RightDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(d.palette), Qt::RightDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(d.sprite), Qt::RightDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(d.tilePicker), Qt::BottomDockWidgetArea);

    QCOMPARE(window.tabifiedDockWidgets(d.blockSelector), QList<QDockWidget*> { d.mapSprites });
    QVERIFY(window.tabifiedDockWidgets(d.project).isEmpty());
    QList<QDockWidget*> right = window.tabifiedDockWidgets(d.tile);
    QCOMPARE(right.size(), 2);
    QVERIFY(right.contains(d.palette) && right.contains(d.sprite));
    QVERIFY(window.tabifiedDockWidgets(d.tilePicker).isEmpty());

    for (QDockWidget* dock : d.all()) {
        QVERIFY2(!dock->isFloating(), qPrintable(dock->objectName()));
        QVERIFY2(!dock->isHidden(), qPrintable(dock->objectName()));
    }
    QCOMPARE(window.tabShape(), QTabWidget::Rounded);
    for (Qt::DockWidgetArea area :
         { Qt::LeftDockWidgetArea, Qt::RightDockWidgetArea, Qt::TopDockWidgetArea, Qt::BottomDockWidgetArea })
        QCOMPARE(window.tabPosition(area), QTabWidget::South);
}

} // namespace

void TestMainWindow::frame()
{
    MainWindow window;
    QVERIFY(window.isVisible()); // shown by its own constructor
    QCOMPARE(window.windowTitle(), QStringLiteral("Tintorel"));
    QCOMPARE(window.size(), QSize(1024, 768));
    QVERIFY(!window.windowIcon().isNull());
    QCOMPARE(window.centralWidget(), window.tabView());
    QCOMPARE(window.statusBar()->currentMessage(), QStringLiteral("Tintorel"));
    QVERIFY(!window.menus()->viewMenu()->action(ViewMenu::ScratchImageEditor)->isEnabled());
    QVERIFY(!window.menus()->viewMenu()->action(ViewMenu::ScratchImageEditor)->isChecked());
    for (QDockWidget* dock : docksOf(window))
        QVERIFY2(!dock->isEnabled(), qPrintable(dock->objectName()));
}

void TestMainWindow::docks_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("placeholder");
    QTest::newRow("project") << 0 << "ProjectWindow" << "Project" << "No project loaded";
    QTest::newRow("palette") << 1 << "paletteWindow" << "Palette Editor" << "No palette selected";
    QTest::newRow("tile") << 2 << "TileEditor" << "Tile Editor" << "No tile set selected";
    QTest::newRow("sprite") << 3 << "SpriteEditor" << "Sprite Editor" << "No sprites selected";
    QTest::newRow("tile picker") << 4 << "TilePickerTool" << "Tiles" << "No active tile set";
    QTest::newRow("block selector") << 5 << "TileListWindow" << "Map Objects" << "No tile active tile set";
    QTest::newRow("map sprites") << 6 << "MapSpritesWindow" << "Map Sprites" << "No sprite banks";
}

void TestMainWindow::docks()
{
    QFETCH(int, index);
    QFETCH(QString, objectName);
    QFETCH(QString, title);
    QFETCH(QString, placeholder);
    MainWindow window;
    auto* dock = qobject_cast<DockWidget*>(docksOf(window).at(index));
    QVERIFY(dock);
    QCOMPARE(dock->objectName(), objectName);
    QCOMPARE(dock->windowTitle(), title);
    QCOMPARE(dock->placeholderText(), placeholder);
    QVERIFY(dock->isShowingPlaceholder());
}

void TestMainWindow::windowMenuListsDockTogglesInOrder()
{
    MainWindow window;
    const QList<QAction*> actions = window.menus()->viewMenu()->windowMenu()->actions();
    const QList<QDockWidget*> docks = docksOf(window);
    QCOMPARE(actions.size(), docks.size());
    for (int i = 0; i < docks.size(); ++i)
        QCOMPARE(actions.at(i), docks.at(i)->toggleViewAction());
}

void TestMainWindow::resetLayoutRestoresTheDefaultAfterChanges()
{
    MainWindow window;
    verifyDefaultLayout(window);
    QCoreApplication::processEvents();
    const QByteArray firstStart = window.saveState();
    const LayoutController::Docks& d = window.layoutController()->docks();
    d.project->setFloating(true);
    d.tile->close();
    window.splitDockWidget(d.palette, d.sprite, Qt::Vertical);
    window.addDockWidget(Qt::TopDockWidgetArea, d.tilePicker);
    window.removeDockWidget(d.mapSprites);
    window.setTabPosition(Qt::LeftDockWidgetArea, QTabWidget::North);
    QCOMPARE(window.dockWidgetArea(d.tilePicker), Qt::TopDockWidgetArea);

    window.menus()->viewMenu()->resetLayoutAction()->trigger();
    verifyDefaultLayout(window);
    QCoreApplication::processEvents();
    QCOMPARE(window.saveState(), firstStart); // sizes and raised tabs too
}

void TestMainWindow::statusBarFollowsViewMenu()
{
    MainWindow window;
    QAction* item = window.menus()->viewMenu()->action(ViewMenu::StatusBar);
    QVERIFY(item->isChecked());
    item->trigger();
    QVERIFY(window.statusBar()->isHidden());
    item->trigger();
    QVERIFY(!window.statusBar()->isHidden());
}

void TestMainWindow::initTestCase()
{
    // The window reads and writes its state under the home folder.
    static QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
