#include "app/documentcontroller.h"
#include "app/documenttabview.h"
#include "app/filemenu.h"
#include "app/mainwindow.h"
#include "app/menubar.h"
#include "app/projectcontroller.h"
#include "app/projecttree.h"
#include "app/projectwindow.h"
#include "mapeditor/view.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QTemporaryDir>
#include <QUndoGroup>
#include <QUndoStack>
#include <QtTest>

// A map tab in the whole window: painted with the mouse, undone from the
// window's history, saved and opened again.
class TestMapView : public QObject
{
    Q_OBJECT
private slots:
    void paintUndoSaveReopen();
    void shownViewIsDestroyedCleanly();
};

void TestMapView::paintUndoSaveReopen()
{
    QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    const QString file = home.filePath("game.tintorel");
    MainWindow window;
    window.menus()->fileMenu()->newAccepted("Game");
    window.projectController()->askSavePath = [file] { return file; };
    window.resize(1280, 900);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    const QPointer<Project> project = window.projectController()->project();
    const QPointer<Palette> palette = project->createPalette(CreateAction::Standard, "Colours");
    const QPointer<TileSet> tiles = project->createTileSet("Tiles", palette->id(), 512);
    const QPointer<Map> map = project->createMap("Level", tiles->id(), QSize(12, 10));
    window.projectWindow()->itemDoubleClicked(ProjectTree::Map, map->id());
    auto* view = qobject_cast<MapEditor::View*>(window.tabView()->currentWidget());
    QVERIFY(view);
    QCOMPARE(view->map(), map);
    MapEditor::MapGrid* grid = view->grid();
    QTRY_VERIFY(!grid->view().drawRect.isEmpty());

    // A stroke of tile 300, turned, across three cells: one step on the map's stack.
    grid->setCurrentTileIndex(300);
    view->toolPaletteClicked(Tintorel::Ui::ToolButton::RotateCW, true);
    const auto centre = [grid](int x, int y) {
        const MapEditor::MapViewState& camera = grid->view();
        return camera.drawRect.topLeft() + QPoint(x, y) * camera.scaledCell
               + QPoint(camera.scaledCell / 2, camera.scaledCell / 2);
    };
    QTest::mouseMove(grid, centre(2, 3));
    QTest::mousePress(grid, Qt::LeftButton, {}, centre(2, 3));
    QTest::mouseMove(grid, centre(3, 3));
    QTest::mouseMove(grid, centre(4, 3));
    QTest::mouseRelease(grid, Qt::LeftButton, {}, centre(4, 3));
    const TileMap::TileData painted = map->tile(QPoint(3, 3));
    QCOMPARE(painted.index, 300);
    QVERIFY(painted.rotate);
    QCOMPARE(map->tile(QPoint(4, 3)), painted);
    QUndoGroup* group = window.documentController()->undoGroup();
    QCOMPARE(group->activeStack(), window.documentController()->stack(map->id()));
    QCOMPARE(group->activeStack()->count(), 1);
    group->undo();
    QVERIFY(map->tile(QPoint(3, 3)) != painted);
    group->redo();
    QCOMPARE(map->tile(QPoint(3, 3)), painted);
    const TileMap::Grid cells = map->tileMap()->cells();
    const QUuid mapId = map->id();

    // Saving pauses the clock and starts it again.
    view->toolPaletteClicked(Tintorel::Ui::ToolButton::AnimPlay, true);
    QVERIFY(view->animator()->isRunning());
    window.projectController()->save();
    QVERIFY(view->animator()->isRunning());

    window.projectController()->close();
    QCOMPARE(window.tabView()->count(), 0);
    window.projectController()->openProject(file);
    const QPointer<Project> reopened = window.projectController()->project();
    QVERIFY(reopened);
    const QPointer<Map> again = reopened->map(mapId);
    QVERIFY(again);
    QCOMPARE(again->tileMap()->cells(), cells);
    // The tab open at the save comes back with it.
    auto* restored = qobject_cast<MapEditor::View*>(window.tabView()->currentWidget());
    QVERIFY(restored);
    QCOMPARE(restored->map(), again);
}

// Its parts go one by one while the layout still resizes the grid.
void TestMapView::shownViewIsDestroyedCleanly()
{
    Project project;
    const QPointer<Palette> palette = project.createPalette(CreateAction::Standard, "Colours");
    const QPointer<TileSet> tiles = project.createTileSet("Tiles", palette->id(), 16);
    const QPointer<Map> map = project.createMap("Level", tiles->id(), QSize(300, 200));
    auto* view = new MapEditor::View(map);
    view->setProject(&project);
    view->resize(800, 600);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view));
    delete view;
}

QTEST_MAIN(TestMapView)
#include "tst_mapview.moc"
