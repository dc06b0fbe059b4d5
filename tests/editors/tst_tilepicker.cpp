#include "editors/tile/tilepickergrid.h"
#include "model/tile.h"
#include "model/tileset.h"

#include <QMimeData>
#include <QtTest>

// The tile list: its geometry, and drag and drop that moves or copies tiles.
class TestTilePicker : public QObject
{
    Q_OBJECT
private slots:
    void geometry_data();
    void geometry();
    void drop_data();
    void drop();
};

void TestTilePicker::geometry_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("zoom");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("index");
    QTest::newRow("four a row") << 256 << 8 << 10 << 4 << 3 << QPoint(70, 70) << 5;
    QTest::newRow("a full last row leaves an empty one") << 256 << 8 << 8 << 4 << 3 << QPoint(10, 140) << -1;
    QTest::newRow("narrower than a cell") << 50 << 8 << 10 << 1 << 1 << QPoint(10, 10) << 0;
    QTest::newRow("past the last column") << 100 << 2 << 100 << 6 << 17 << QPoint(98, 0) << -1;
    QTest::newRow("negative point") << 100 << 2 << 100 << 6 << 17 << QPoint(-1, 5) << -1;
}

void TestTilePicker::geometry()
{
    QFETCH(int, width);
    QFETCH(int, zoom);
    QFETCH(int, count);
    QFETCH(int, columns);
    QFETCH(int, rows);
    QFETCH(QPoint, point);
    QFETCH(int, index);
    TileSet tiles(count);
    TilePickerGrid grid;
    grid.setTileSet(&tiles);
    grid.setZoom(zoom);
    grid.resize(width, 2000);
    QCOMPARE(grid.columns(), columns);
    QCOMPARE(grid.rows(), rows);
    QCOMPARE(grid.preferredHeight(), rows * 8 * zoom);
    QCOMPARE(grid.indexAt(point), index);
}

void TestTilePicker::drop_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QList<int>>("marks"); // the marker pixel of tiles 0 to 3 afterwards
    QTest::newRow("no modifier moves") << 3 << 1 << int(Qt::NoModifier) << QList<int> { 0, 3, 1, 2 };
    QTest::newRow("exactly Shift copies") << 3 << 1 << int(Qt::ShiftModifier) << QList<int> { 0, 3, 2, 3 };
    QTest::newRow("Alt drops nothing") << 3 << 1 << int(Qt::AltModifier) << QList<int> { 0, 1, 2, 3 };
    QTest::newRow("Shift with Control drops nothing")
        << 3 << 1 << int(Qt::ShiftModifier | Qt::ControlModifier) << QList<int> { 0, 1, 2, 3 };
    QTest::newRow("onto itself nothing") << 2 << 2 << int(Qt::NoModifier) << QList<int> { 0, 1, 2, 3 };
}

void TestTilePicker::drop()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(int, modifiers);
    QFETCH(QList<int>, marks);
    TileSet tiles(4);
    for (int i = 0; i < 4; ++i) {
        QImage image = Tile::blankImage();
        image.setPixel(0, 0, uint(i));
        tiles.setTileImage(i, image);
    }
    TilePickerGrid grid;
    grid.setTileSet(&tiles);
    grid.setZoom(1);
    grid.resize(8 * 4, 16);
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
    QTest::mousePress(&grid, Qt::LeftButton, {}, grid.cellRect(from).center());

    QMimeData mime;
    mime.setData(TilePickerGrid::DragFormat, QByteArray(8, 0));
    const QPointF at = grid.cellRect(to).center();
    QDragMoveEvent move(at.toPoint(), Qt::MoveAction, &mime, Qt::LeftButton, Qt::KeyboardModifiers(modifiers));
    // Straight to the widget: without a real drag the application would not route these.
    static_cast<QObject&>(grid).event(&move);
    QDropEvent drop(at, Qt::MoveAction, &mime, Qt::LeftButton, Qt::KeyboardModifiers(modifiers));
    static_cast<QObject&>(grid).event(&drop);
    QTest::mouseRelease(&grid, Qt::LeftButton, {}, at.toPoint());

    QList<int> found;
    for (int i = 0; i < 4; ++i)
        found << tiles.tile(i)->image().pixelIndex(0, 0);
    QCOMPARE(found, marks);
}

QTEST_MAIN(TestTilePicker)
#include "tst_tilepicker.moc"
