#include "mapeditor/mapgrid.h"
#include "testblocks.h"
#include "mapeditor/mapviewstate.h"
#include "model/animatedblocks.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileanimation.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QApplication>
#include <QClipboard>
#include <QDataStream>
#include <QMimeData>
#include <QSignalSpy>
#include <QUndoStack>
#include <QtTest>

using MapEditor::MapGrid;
using MapEditor::MapViewState;
using Tintorel::Ui::ToolButton;
using TileData = TileMap::TileData;

Q_DECLARE_METATYPE(TileData)

// The map grid with its tools, driven by the mouse as a user drives it; a
// 10 × 8 map at 32 pixels a cell, centred in a 400 × 300 grid, so that
// widget pixels, cells and map pixels never coincide.
class TestMapGrid : public QObject
{
    Q_OBJECT
private slots:
    void coordinates_data();
    void coordinates();
    void fitAndZoom();
    void scrollMovesOneStepXBeforeY();
    void nestedEditsMakeOneStep();
    void drawGesture_data();
    void drawGesture();
    void middleClickPicksAndKeepsTheMode();
    void blockIsPlacedOncePerPress();
    void clipboardPayloadIsRowsFirst();
    void pasteOverTheEdgeKeepsWhatFits();
    void pasteOnAnotherTileSetIsRefused();
    void spriteClickSelectsAndDragMoves();
    void deletedAssetsLeaveTheGridWorking();

    void init();
    void cleanup();

private:
    QPoint centreOf(const QPoint& cell) const;
    void send(QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons held);
    void drag(const QList<QPoint>& cells, Qt::MouseButton button);

    Project* mProject = nullptr;
    QPointer<TileSet> mTiles;
    QPointer<Map> mMap;
    QUndoStack* mStack = nullptr;
    MapGrid* mGrid = nullptr;
};

void TestMapGrid::init()
{
    mProject = new Project;
    const QPointer<Palette> palette = mProject->createPalette(CreateAction::Standard, "Colours");
    mTiles = mProject->createTileSet("Tiles", palette->id(), 512);
    mMap = mProject->createMap("Level", mTiles->id(), QSize(10, 8));
    mStack = new QUndoStack;
    mGrid = new MapGrid;
    mGrid->resize(400, 300);
    mGrid->setMap(mMap);
    mGrid->setUndoStack(mStack);
    mGrid->show();
    QVERIFY(QTest::qWaitForWindowExposed(mGrid));
    QCOMPARE(mGrid->view().drawRect, QRect(40, 22, 320, 256));
}

void TestMapGrid::cleanup()
{
    delete mGrid;
    delete mStack;
    delete mProject;
}

QPoint TestMapGrid::centreOf(const QPoint& cell) const
{
    const MapViewState& view = mGrid->view();
    return view.drawRect.topLeft() + (cell - view.scroll) * view.scaledCell
           + QPoint(view.scaledCell / 2, view.scaledCell / 2);
}

void TestMapGrid::send(QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons held)
{
    QMouseEvent event(type, at, mGrid->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(mGrid, &event);
}

// Press on the first cell, move through the others, release on the last.
void TestMapGrid::drag(const QList<QPoint>& cells, Qt::MouseButton button)
{
    send(QEvent::MouseMove, centreOf(cells.first()), Qt::NoButton, Qt::NoButton);
    send(QEvent::MouseButtonPress, centreOf(cells.first()), button, button);
    for (const QPoint& cell : cells.mid(1))
        send(QEvent::MouseMove, centreOf(cell), Qt::NoButton, button);
    send(QEvent::MouseButtonRelease, centreOf(cells.last()), button, Qt::NoButton);
}

void TestMapGrid::coordinates_data()
{
    QTest::addColumn<int>("scaledCell");
    QTest::addColumn<QPoint>("scroll");
    QTest::addColumn<int>("snap");
    QTest::addColumn<QPoint>("pixel");
    QTest::addColumn<QPoint>("cell");
    QTest::addColumn<QPoint>("mapPixel");
    QTest::addColumn<QPoint>("mapPixelBack");
    // The map is drawn from (40, 22) in every row.
    QTest::newRow("zoom 4, first pixel") << 32 << QPoint(0, 0) << 1 << QPoint(40, 22) << QPoint(0, 0) << QPoint(0, 0)
                                         << QPoint(40, 22);
    QTest::newRow("zoom 4, inside") << 32 << QPoint(0, 0) << 1 << QPoint(73, 92) << QPoint(1, 2) << QPoint(8, 17)
                                    << QPoint(72, 90);
    QTest::newRow("zoom 1, scrolled") << 8 << QPoint(3, 2) << 1 << QPoint(57, 31) << QPoint(5, 3) << QPoint(41, 25)
                                      << QPoint(57, 31);
    QTest::newRow("zoom 8, scrolled") << 64 << QPoint(1, 1) << 1 << QPoint(170, 86) << QPoint(3, 2)
                                      << QPoint(24, 16) << QPoint(168, 86);
    // The snap counts from the first visible cell, not from the map's.
    QTest::newRow("snap 4, first visible cell") << 32 << QPoint(1, 0) << 4 << QPoint(45, 27) << QPoint(1, 0)
                                                << QPoint(9, 1) << QPoint(44, 26);
    QTest::newRow("snap 4, further in") << 32 << QPoint(1, 0) << 4 << QPoint(201, 214) << QPoint(5, 4)
                                        << QPoint(48, 48) << QPoint(200, 214);
    QTest::newRow("fitted cell of 13") << 13 << QPoint(0, 0) << 1 << QPoint(66, 34) << QPoint(2, 0) << QPoint(16, 7)
                                       << QPoint(66, 33);
}

void TestMapGrid::coordinates()
{
    QFETCH(int, scaledCell);
    QFETCH(QPoint, scroll);
    QFETCH(int, snap);
    QFETCH(QPoint, pixel);
    MapViewState view;
    view.scaledCell = scaledCell;
    view.scroll = scroll;
    view.snap = snap;
    view.drawRect = QRect(40, 22, 320, 256);
    QTEST(view.pixelToCell(pixel), "cell");
    QTEST(view.pixelToMapPixel(pixel), "mapPixel");
    QFETCH(QPoint, mapPixel);
    QTEST(view.mapPixelToWidget(mapPixel), "mapPixelBack");
    // A cell's rectangle comes back to the pixel's cell.
    QFETCH(QPoint, cell);
    const QRect widget = view.cellRectToWidget(QRect(cell, cell));
    QCOMPARE(widget.size(), QSize(scaledCell, scaledCell));
    QCOMPARE(view.pixelToCellUnsnapped(widget.center()), cell);
    // Left of and above the map is a negative cell, not cell 0.
    QCOMPARE(view.pixelRectToCells(QRect(QPoint(35, 20), QPoint(45, 30))).topLeft(), scroll - QPoint(1, 1));
}

void TestMapGrid::fitAndZoom()
{
    mGrid->resize(100, 50);
    mGrid->fitTo(true);
    QCOMPARE(mGrid->view().zoom, 1);
    QCOMPARE(mGrid->view().scaledCell, 6); // min(100 / 10, 50 / 8)
    mGrid->zoomIn();
    QCOMPARE(mGrid->view().scaledCell, 16); // zoom 2, whatever the fit was
    mGrid->setZoom(9);
    QCOMPARE(mGrid->view().zoom, 2);
    mGrid->fitTo(true);
    mGrid->setZoom(0);
    QCOMPARE(mGrid->view().scaledCell, 8); // out of range undoes the fit
    mGrid->resize(5, 5);
    mGrid->fitTo(true);
    QCOMPARE(mGrid->view().scaledCell, 1);
}

void TestMapGrid::scrollMovesOneStepXBeforeY()
{
    mGrid->resize(160, 96); // 5 × 3 cells shown of 10 × 8
    QSignalSpy moved(mGrid, &MapGrid::scrollPositionChanged);
    QVERIFY(mGrid->view().scrollBy(QPoint(1, 1), mMap->size()));
    QCOMPARE(mGrid->view().scroll, QPoint(1, 0));
    for (int i = 0; i < 7; ++i) {
        mGrid->scrollRight();
        mGrid->scrollDown();
    }
    QCOMPARE(mGrid->view().scroll, QPoint(5, 5));
    QCOMPARE(moved.count(), 4 + 5);
    QCOMPARE(moved.last().first().toPoint(), QPoint(5, 5));
    mGrid->scrollLeft();
    QCOMPARE(mGrid->view().scroll, QPoint(4, 5));
}

void TestMapGrid::nestedEditsMakeOneStep()
{
    const TileData before = mMap->tile(QPoint(1, 1));
    mGrid->beginEdit();
    mGrid->beginEdit();
    mMap->setTile(QPoint(1, 1), { 300, true, false, false, 0, true });
    mGrid->endEdit("Inner");
    QCOMPARE(mStack->count(), 0);
    mMap->setTile(QPoint(2, 1), { 5, false, false, false, 0, true });
    mGrid->endEdit("Outer");
    QCOMPARE(mStack->count(), 1);
    QCOMPARE(mStack->text(0), QStringLiteral("Outer"));
    mStack->undo();
    QCOMPARE(mMap->tile(QPoint(1, 1)), before);

    // A bracket that changes nothing, or writes what was there, leaves no step.
    mGrid->beginEdit();
    mMap->setTile(QPoint(3, 3), mMap->tile(QPoint(3, 3)));
    mGrid->endEdit("Nothing");
    mGrid->endEdit("Unbalanced");
    QCOMPARE(mStack->count(), 1);
    // A one-row map cannot lose a row: no step, but the size is announced.
    mGrid->resizeMap(QSize(10, 1), Qt::AlignLeft | Qt::AlignTop);
    QSignalSpy resized(mGrid, &MapGrid::mapResized);
    mGrid->removeRows(Tintorel::Position::End, 1);
    QCOMPARE(mMap->size(), QSize(10, 1));
    QCOMPARE(resized.count(), 1);
    QCOMPARE(mStack->text(mStack->count() - 1), QStringLiteral("Resize Map"));
}

void TestMapGrid::drawGesture_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<bool>("layerVisible");
    QTest::addColumn<int>("steps");
    QTest::addColumn<bool>("visible");
    QTest::newRow("left button paints") << Qt::LeftButton << true << 1 << true;
    QTest::newRow("right button hides") << Qt::RightButton << true << 1 << false;
    QTest::newRow("hidden layer") << Qt::LeftButton << false << 0 << false;
}

// Tile 300 needs the ninth bit; all three turns go with it.
void TestMapGrid::drawGesture()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(bool, layerVisible);
    QFETCH(int, steps);
    mMap->setTileLayerVisible(layerVisible);
    mGrid->updateCursor();
    if (!layerVisible)
        QCOMPARE(mGrid->cursor().shape(), Qt::ForbiddenCursor);
    mGrid->setCurrentTileIndex(300);
    mGrid->setRotated(true);
    mGrid->setFlipped(true);
    mGrid->setMirrored(true);
    const TileData untouched = mMap->tile(QPoint(0, 1));
    drag({ QPoint(1, 1), QPoint(2, 1), QPoint(3, 1) }, button);
    QCOMPARE(mStack->count(), steps);
    QCOMPARE(mMap->tile(QPoint(0, 1)), untouched);
    QCOMPARE(mMap->tile(QPoint(4, 1)), untouched);
    if (!steps) {
        QCOMPARE(mMap->tile(QPoint(2, 1)), untouched);
        return;
    }
    QCOMPARE(mStack->text(0), QStringLiteral("Paint"));
    QFETCH(bool, visible);
    const TileData painted { 300, true, true, true, mTiles->tileOffset(300), visible };
    for (int x = 1; x <= 3; ++x)
        QCOMPARE(mMap->tile(QPoint(x, 1)), painted);
    QCOMPARE(mMap->tile(QPoint(2, 1)).packed(), painted.packed());

    // The same stroke again changes nothing and leaves no step.
    drag({ QPoint(1, 1), QPoint(3, 1) }, button);
    QCOMPARE(mStack->count(), 1);
    mStack->undo();
    QCOMPARE(mMap->tile(QPoint(2, 1)), untouched);
}

void TestMapGrid::middleClickPicksAndKeepsTheMode()
{
    const TileData cell { 257, false, true, false, 0, true };
    mMap->setTile(QPoint(4, 5), cell);
    mGrid->setMode(ToolButton::Select);
    QSignalSpy picked(mGrid, &MapGrid::tilePicked);
    send(QEvent::MouseButtonPress, centreOf(QPoint(4, 5)), Qt::MiddleButton, Qt::MiddleButton);
    send(QEvent::MouseButtonRelease, centreOf(QPoint(4, 5)), Qt::MiddleButton, Qt::NoButton);
    QCOMPARE(picked.count(), 1);
    QCOMPARE(picked.first().first().value<TileData>(), cell);
    QCOMPARE(mGrid->mode(), ToolButton::Select);

    // The Pick tool picks with a left click and goes back where it came from.
    send(QEvent::MouseButtonPress, centreOf(QPoint(0, 0)), Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, centreOf(QPoint(0, 0)), Qt::LeftButton, Qt::NoButton);
    mGrid->setMode(ToolButton::Pick);
    send(QEvent::MouseButtonPress, centreOf(QPoint(4, 5)), Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, centreOf(QPoint(4, 5)), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(picked.count(), 2);
    QCOMPARE(mGrid->mode(), ToolButton::Select);
    QCOMPARE(mStack->count(), 0);
}

void TestMapGrid::blockIsPlacedOncePerPress()
{
    const QSharedPointer<TileAnimation> block = makeTestBlock(*mProject, mTiles, QSize(2, 2));
    mGrid->setCurrentTileAnimation(block.data());
    QCOMPARE(mGrid->mode(), ToolButton::PlaceAnim);
    mGrid->setObjectVisibility(true); // a new map's object layer is hidden
    drag({ QPoint(2, 2), QPoint(3, 2), QPoint(4, 3), QPoint(6, 5) }, Qt::LeftButton);
    QCOMPARE(mMap->blocks()->count(), 1);
    QCOMPARE(mMap->rectAt(QPoint(3, 3)), QRect(2, 2, 2, 2));
    QCOMPARE(mMap->objectMap()->cell(QPoint(3, 3)).index, 10);
    QCOMPARE(mStack->count(), 1);
    QCOMPARE(mStack->text(0), QStringLiteral("Place Animation"));
    // Hovering over it offers to move it.
    send(QEvent::MouseMove, centreOf(QPoint(2, 3)), Qt::NoButton, Qt::NoButton);
    QCOMPARE(mGrid->cursor().shape(), Qt::SizeAllCursor);
    QCOMPARE(mGrid->hoverBlockRect(), QRect(2, 2, 2, 2));
}

void TestMapGrid::clipboardPayloadIsRowsFirst()
{
    const QList<TileData> cells { { 1, false, false, false, 0, true },   { 300, true, false, false, 2, true },
                                  { 511, false, true, false, 15, true }, { 7, false, false, true, 3, false },
                                  { 256, true, true, true, 9, true },    { 0, false, false, false, 0, true } };
    for (int i = 0; i < cells.size(); ++i)
        mMap->setTile(QPoint(4 + i % 3, 6 + i / 3), cells.at(i));
    mGrid->setMode(ToolButton::Select);
    mGrid->setSelection(QRect(4, 6, 3, 2));
    mGrid->copy();
    QCOMPARE(mGrid->pasteRect(), QRect(4, 6, 3, 2));

    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data->hasFormat("tintorel-map-toNextData"));
    QDataStream in(data->data("tintorel-map-toNextData"));
    qint32 rows = 0, cols = 0;
    in >> rows >> cols;
    QCOMPARE(rows, 2);
    QCOMPARE(cols, 3);
    for (const TileData& expected : cells) {
        qint32 index = 0, offset = 0;
        qint8 visible = 0, rotate = 0, flip = 0, mirror = 0;
        in >> index >> visible >> offset >> rotate >> flip >> mirror;
        QCOMPARE(index, expected.index);
        QCOMPARE(bool(visible), expected.visible);
        QCOMPARE(offset, expected.offset);
        QCOMPARE(bool(rotate), expected.rotate);
        QCOMPARE(bool(flip), expected.flip);
        QCOMPARE(bool(mirror), expected.mirror);
    }
    QUuid tileSet;
    in >> tileSet;
    QCOMPARE(tileSet, mTiles->id());
    QVERIFY(in.atEnd());
    QCOMPARE(in.status(), QDataStream::Ok);
    QCOMPARE(mStack->count(), 0);
}

void TestMapGrid::pasteOverTheEdgeKeepsWhatFits()
{
    const TileData a { 300, true, false, true, 4, true };
    const TileData b { 1, false, true, false, 0, true };
    for (int x = 0; x < 3; ++x) {
        mMap->setTile(QPoint(x, 0), a);
        mMap->setTile(QPoint(x, 1), b);
    }
    mGrid->setSelection(QRect(0, 0, 3, 2));
    mGrid->copy();
    mGrid->setMode(ToolButton::Paste);
    QCOMPARE(mGrid->mode(), ToolButton::Paste);
    // Centred on the corner cell: columns 8 to 10 and rows 6 to 7.
    const TileData blank = mMap->tile(QPoint(7, 7));
    send(QEvent::MouseMove, centreOf(QPoint(9, 7)), Qt::NoButton, Qt::NoButton);
    QCOMPARE(mGrid->pasteRect(), QRect(QPoint(8, 6), QPoint(10, 7)));
    send(QEvent::MouseButtonPress, centreOf(QPoint(9, 7)), Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, centreOf(QPoint(9, 7)), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(mMap->size(), QSize(10, 8));
    QCOMPARE(mMap->tile(QPoint(8, 6)), a);
    QCOMPARE(mMap->tile(QPoint(9, 6)), a);
    QCOMPARE(mMap->tile(QPoint(8, 7)), b);
    QCOMPARE(mMap->tile(QPoint(9, 7)), b);
    QCOMPARE(mMap->tile(QPoint(7, 7)), blank);
    QCOMPARE(mStack->count(), 1);
    QCOMPARE(mStack->text(0), QStringLiteral("Paste"));
    QCOMPARE(mGrid->mode(), ToolButton::Paste);
}

void TestMapGrid::pasteOnAnotherTileSetIsRefused()
{
    mGrid->setSelection(QRect(0, 0, 2, 2));
    mGrid->copy();
    const QPointer<TileSet> other = mProject->createTileSet("Other", mTiles->paletteId(), 16);
    const QPointer<Map> second = mProject->createMap("Second", other->id(), QSize(4, 4));
    mGrid->setMap(second);
    mGrid->setMode(ToolButton::Draw);
    mGrid->setMode(ToolButton::Paste);
    QCOMPARE(mGrid->mode(), ToolButton::Draw);
}

void TestMapGrid::spriteClickSelectsAndDragMoves()
{
    const QPointer<SpriteBank> bank = mProject->createSpriteBank(Tintorel::Sprite::EightBit, "Hero", mTiles->paletteId());
    bank->addSprite();
    mGrid->setSpriteBanks({ bank });
    // Nothing to place: a press on an empty spot clears the selection.
    mGrid->setMode(ToolButton::PlaceSprite);
    send(QEvent::MouseButtonPress, centreOf(QPoint(1, 1)), Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, centreOf(QPoint(1, 1)), Qt::LeftButton, Qt::NoButton);
    QVERIFY(mMap->sprites().isEmpty());
    QCOMPARE(mGrid->selectedSprite(), -1);

    mGrid->setCurrentSprite(bank->id(), 0);
    QCOMPARE(mGrid->mode(), ToolButton::PlaceSprite);
    const QPoint at = mGrid->view().drawRect.topLeft() + QPoint(2 * 32 + 4, 3 * 32 + 4); // map pixel (17, 25)
    send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
    QCOMPARE(mMap->sprites().size(), 1);
    QCOMPARE(QPoint(mMap->sprites().first().x, mMap->sprites().first().y), QPoint(17, 25));
    QCOMPARE(mGrid->selectedSprite(), 0);
    QCOMPARE(mStack->count(), 1);
    QCOMPARE(mStack->text(0), QStringLiteral("Place Sprite"));

    // Less than the drag distance is a click: the properties, no step.
    QSignalSpy clicked(mGrid, &MapGrid::spriteClicked);
    send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, at + QPoint(1, 0), Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, at + QPoint(1, 0), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(mStack->count(), 1);

    // A drag of 40 widget pixels at zoom 4 moves it 10 map pixels, one step.
    send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, at + QPoint(20, 0), Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseMove, at + QPoint(40, 0), Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, at + QPoint(40, 0), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(QPoint(mMap->sprites().first().x, mMap->sprites().first().y), QPoint(27, 25));
    QCOMPARE(mStack->count(), 2);
    QCOMPARE(mStack->text(1), QStringLiteral("Move Sprite"));
}

// What a map shows can be deleted under it; the grid then draws nothing
// for it and goes on.
void TestMapGrid::deletedAssetsLeaveTheGridWorking()
{
    const QSharedPointer<TileAnimation> block = makeTestBlock(*mProject, mTiles, QSize(2, 2));
    mGrid->setObjectVisibility(true);
    mGrid->setCurrentTileAnimation(block.data());
    drag({ QPoint(1, 1) }, Qt::LeftButton);
    QCOMPARE(mMap->blocks()->count(), 1);
    const QPointer<SpriteBank> bank = mProject->createSpriteBank(Tintorel::Sprite::EightBit, "Hero", mTiles->paletteId());
    bank->addSprite();
    mGrid->setSpriteBanks({ bank });
    mGrid->setCurrentSprite(bank->id(), 0);
    drag({ QPoint(5, 5) }, Qt::LeftButton);
    QCOMPARE(mMap->sprites().size(), 1);
    mGrid->setMode(ToolButton::Draw);
    mGrid->setCurrentTileIndex(511);
    drag({ QPoint(8, 7) }, Qt::LeftButton);

    mProject->blockLists().first()->removeTileAnimation(block->id());
    QVERIFY(mProject->deleteSpriteBank(bank->id()));
    mTiles->deleteTile(511);
    QVERIFY(!mGrid->grab().isNull());
    send(QEvent::MouseMove, centreOf(QPoint(5, 5)), Qt::NoButton, Qt::NoButton);
    QCOMPARE(mGrid->spriteAt(QPoint(44, 44)), -1);
    mGrid->setMode(ToolButton::PlaceSprite);
    drag({ QPoint(5, 5), QPoint(6, 5) }, Qt::LeftButton);
    mGrid->setMode(ToolButton::PlaceAnim);
    drag({ QPoint(3, 3) }, Qt::LeftButton);
    QVERIFY(!mGrid->grab().isNull());
    QCOMPARE(mMap->sprites().size(), 1);
}

QTEST_MAIN(TestMapGrid)
#include "tst_mapgrid.moc"
