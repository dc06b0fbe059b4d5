#include "app/documentcontroller.h"
#include "app/editmenu.h"
#include "app/filemenu.h"
#include "app/mainwindow.h"
#include "canvas/canvas.h"
#include "editors/tile/tilepickergrid.h"
#include "editors/tile/tilesheet.h"
#include "model/map.h"
#include "model/palette.h"
#include "model/tile.h"
#include "model/tilemap.h"
#include "model/tileset.h"
#include "project/project.h"
#include "ui/checklist.h"

#include <QCheckBox>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QUndoGroup>
#include <QUndoStack>
#include <QtTest>

// The tile editor in the whole window: pick a tile in the list, paint it,
// undo and redo, and see the list and a map that uses the tile follow.
class TestTileEditor : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();
    void paintUndoRedoFollowEverywhere();
    void gesturesAreSteps_data();
    void gesturesAreSteps();
    void editsWithoutStepsStillCountAsUnsaved();
    void offsetBoxRemapsTheBank();
    void copyToAnotherTileThroughTheEditMenu();

private:
    QPoint pixel(int x, int y) const { return QPoint(x * 32 + 16, y * 32 + 16); }
    // The pointer hovers before it presses, as a hand's does.
    void stroke(const QPoint& from, const QPoint& to, Qt::MouseButton button = Qt::LeftButton);
    int mapPixel(int x, int y) const;
    QUndoStack* stack() const { return mWindow->documentController()->undoGroup()->activeStack(); }

    QTemporaryDir mHome;
    MainWindow* mWindow = nullptr;
    QPointer<Project> mProject;
    QPointer<TileSet> mTiles;
    QPointer<Map> mMap;
    Canvas* mCanvas = nullptr;
};

void TestTileEditor::initTestCase()
{
    qputenv("HOME", QFile::encodeName(mHome.path()));
}

void TestTileEditor::init()
{
    mWindow = new MainWindow;
    mWindow->menus()->fileMenu()->newAccepted("Game");
    mProject = mWindow->projectController()->project();
    const QPointer<Palette> palette = mProject->createPalette(CreateAction::Standard, "Colours");
    mTiles = mProject->createTileSet("Tiles", palette->id(), 16, false);
    mMap = mProject->createMap("Level", mTiles->id(), QSize(2, 1));
    TileMap::TileData cell;
    cell.index = 2;
    cell.visible = true;
    mMap->setTile(QPoint(0, 0), cell);
    mWindow->documentController()->setActiveTileSet(mTiles->id());
    mCanvas = mWindow->tileWindow()->canvas();
    const QString file = mHome.filePath("game.tintorel");
    mWindow->projectController()->askSavePath = [file] { return file; };
    mWindow->projectController()->save(); // a clean point
    QCoreApplication::processEvents();
}

void TestTileEditor::cleanup()
{
    mWindow->projectController()->promptUnsaved = [](const QString&) {
        return ProjectController::UnsavedAnswer::Discard;
    };
    delete mWindow;
}

void TestTileEditor::stroke(const QPoint& from, const QPoint& to, Qt::MouseButton button)
{
    QTest::mouseMove(mCanvas, from);
    QTest::mousePress(mCanvas, button, {}, from);
    QTest::mouseMove(mCanvas, to);
    QTest::mouseRelease(mCanvas, button, {}, to);
}

int TestTileEditor::mapPixel(int x, int y) const
{
    const QImage picture = mMap->tileMap()->scaledPreview(QRect(0, 0, 2, 1), 8.0, -1);
    return picture.pixelIndex(x, y);
}

void TestTileEditor::paintUndoRedoFollowEverywhere()
{
    TilePickerGrid* grid = mWindow->tilePicker()->grid();
    grid->resize(8 * 8 * 4, 400);
    QTest::mouseClick(grid, Qt::LeftButton, {}, grid->cellRect(2).center());
    QCOMPARE(mWindow->tileWindow()->tileNumber(), 3);
    QCOMPARE(mapPixel(1, 1), 0);

    stroke(pixel(1, 1), pixel(2, 1));
    QCOMPARE(mTiles->tile(2)->image().pixelIndex(1, 1), 1);
    QCOMPARE(mTiles->tile(2)->image().pixelIndex(2, 1), 1);
    QCOMPARE(mapPixel(1, 1), 1);
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(stack()->undoText(), QStringLiteral("Draw"));

    stack()->undo();
    QCOMPARE(mTiles->tile(2)->image().pixelIndex(1, 1), 0);
    QCOMPARE(mCanvas->image().pixelIndex(1, 1), 0);
    QCOMPARE(mapPixel(1, 1), 0);
    stack()->redo();
    QCOMPARE(mCanvas->image().pixelIndex(2, 1), 1);
    QCOMPARE(mapPixel(2, 1), 1);

    // Undo of a tile that is not shown writes to the set and leaves the canvas alone.
    QTest::mouseClick(grid, Qt::LeftButton, {}, grid->cellRect(5).center());
    QCOMPARE(mWindow->tileWindow()->tileNumber(), 6);
    const QImage shown = mCanvas->image();
    stack()->undo();
    QCOMPARE(mTiles->tile(2)->image().pixelIndex(1, 1), 0);
    QCOMPARE(mCanvas->image().constBits()[0], shown.constBits()[0]);
    QCOMPARE(mapPixel(1, 1), 0);
}

void TestTileEditor::gesturesAreSteps_data()
{
    QTest::addColumn<QList<int>>("buttons"); // ToolButton values pressed in turn; -1 a stroke at (3, 3)
    QTest::addColumn<int>("steps");
    QTest::newRow("a stroke that changes nothing is no step") << QList<int> { -1, -1 } << 1;
    QTest::newRow("four quarter turns, four steps")
        << QList<int> { -1, Tintorel::Ui::RotateCW, Tintorel::Ui::RotateCW, Tintorel::Ui::RotateCW,
                        Tintorel::Ui::RotateCW }
        << 5;
    QTest::newRow("pixel moves merge") << QList<int> { -1, Tintorel::Ui::MoveLeft, Tintorel::Ui::MoveLeft,
                                                       Tintorel::Ui::MoveUp }
                                       << 2;
    QTest::newRow("a turn ends a run of moves")
        << QList<int> { -1, Tintorel::Ui::MoveLeft, Tintorel::Ui::Flip, Tintorel::Ui::MoveLeft } << 4;
}

void TestTileEditor::gesturesAreSteps()
{
    QFETCH(QList<int>, buttons);
    QFETCH(int, steps);
    for (int button : buttons) {
        if (button < 0) {
            stroke(pixel(3, 3), pixel(3, 3));
        } else {
            mCanvas->setMode(Tintorel::Ui::ToolButton(button), false);
        }
    }
    QCOMPARE(stack()->count(), steps);
}

void TestTileEditor::editsWithoutStepsStillCountAsUnsaved()
{
    // A stroke that changes no index is no step and no change.
    stroke(pixel(0, 0), pixel(1, 0), Qt::RightButton);
    QCoreApplication::processEvents();
    QCOMPARE(stack()->count(), 0);
    QVERIFY(!mWindow->projectController()->hasUnsavedChanges());
    QVERIFY(!mWindow->isWindowModified());

    mWindow->tileWindow()->sheet()->flagBoxes().first()->setChecked(true);
    QCOMPARE(mTiles->tile(0)->attributes(), int(Tile::TA_DEADLY));
    QCOMPARE(stack()->count(), 0);
    QTRY_VERIFY(mWindow->isWindowModified());
    QVERIFY(mWindow->projectController()->hasUnsavedChanges());
}

void TestTileEditor::offsetBoxRemapsTheBank()
{
    stroke(pixel(4, 4), pixel(4, 4));
    mWindow->tileWindow()->offsetBox()->setValue(3);
    QCOMPARE(mTiles->tileOffset(0), 2);
    QCOMPARE(mCanvas->image().pixelIndex(4, 4), 0x21);
    QCOMPARE(mCanvas->image().pixelIndex(0, 0), 0x20);
    QCOMPARE(mTiles->tile(0)->image().pixelIndex(4, 4), 1); // the tile keeps four bits
    QCOMPARE(stack()->count(), 1); // the bank is no step
}

void TestTileEditor::copyToAnotherTileThroughTheEditMenu()
{
    stroke(pixel(0, 0), pixel(1, 0));
    mWindow->show();
    mCanvas->setFocus();
    QTRY_VERIFY(mCanvas->hasFocus());
    EditMenu* edit = mWindow->menus()->editMenu();
    emit edit->copy();

    mWindow->tileWindow()->setTileIndex(5);
    emit edit->paste();
    QCOMPARE(mCanvas->mode(), Tintorel::Ui::Paste);
    // The 8 x 8 clip is stamped centred at the cursor: at (4, 4) it covers the tile.
    QTest::mouseMove(mCanvas, pixel(4, 4));
    QTest::mouseClick(mCanvas, Qt::LeftButton, {}, pixel(4, 4));
    QCOMPARE(mTiles->tile(4)->image().pixelIndex(0, 0), 1);
    QCOMPARE(mTiles->tile(4)->image().pixelIndex(1, 0), 1);
    QCOMPARE(mTiles->tile(4)->image().pixelIndex(2, 0), 0);
    QCOMPARE(stack()->undoText(), QStringLiteral("Paste"));
}

QTEST_MAIN(TestTileEditor)
#include "tst_tileeditor.moc"
