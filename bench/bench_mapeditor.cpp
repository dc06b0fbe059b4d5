#include "benchfixtures.h"
#include "benchtable.h"

#include "mapeditor/mapanimator.h"
#include "mapeditor/mapgrid.h"
#include "mapeditor/view.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"
#include "model/tileanimation.h"
#include "model/tileset.h"
#include "project/project.h"

#include <QApplication>
#include <QMouseEvent>
#include <QUndoStack>

namespace {

constexpr QSize GridSize(1920, 1080);

// A level as large as the editor expects: 256 × 256 cells of every tile and
// look, 500 animated 2 × 2 blocks of four frames, and 128 sprites, half of
// them animated.
struct Level
{
    Project project;
    QPointer<Map> map;
    QPointer<SpriteBank> bank;

    Level()
    {
        const QPointer<Palette> palette = project.createPalette(CreateAction::Standard, "Colours");
        const QPointer<TileSet> tiles = project.createTileSet("Tiles", palette->id(), 512);
        fillTiles(*tiles, *palette);
        map = project.createMap("Level", tiles->id(), QSize(256, 256));
        fillMap(*map->tileMap());
        map->setObjectLayerVisible(true);
        // Index 0 is see-through, so both layers and the background show.
        map->setTileTransparencyIndex(0);

        const QSharedPointer<TileAnimation> block =
            project.createBlockList("Blocks", tiles->id())->createTileAnimation("Torch");
        block->setTileSet(tiles);
        block->setSize(QSize(2, 2));
        block->setDelay(1);
        while (block->frameCount() < 4)
            block->addFrame();
        for (int frame = 0; frame < 4; ++frame)
            for (int cell = 0; cell < 4; ++cell)
                block->setIndex(frame, cell, 100 + frame * 4 + cell);
        // Spread over the whole map, ten cells apart across and twelve down.
        for (int i = 0; i < 500; ++i)
            map->placeAnimation(block.data(), QPoint((i % 25) * 10, (i / 25) * 12));

        bank = project.createSpriteBank(Tintorel::Sprite::EightBit, "Hero", palette->id());
        while (bank->spriteCount() < 16)
            bank->addSprite(false);
        SpriteAnim* walk = bank->createAnimation("Walk");
        walk->setSize(QSize(2, 2));
        walk->setDelay(2);
        while (walk->frameCount() < 4)
            walk->addFrame();
        for (int frame = 0; frame < 4; ++frame)
            for (int cell = 0; cell < 4; ++cell)
                walk->setIndex(frame, cell, frame * 4 + cell);
        for (int i = 0; i < 128; ++i) {
            Map::PlacedSprite sprite;
            sprite.bank = bank->id();
            sprite.animation = i % 2 ? walk->id() : QUuid();
            sprite.sprite = i % 16;
            sprite.x = (i * 97) % 2000;
            sprite.y = (i * 61) % 2000;
            sprite.startFrame = i % 4;
            map->addSprite(sprite);
        }
    }
};

void sendMouse(QWidget* widget, QEvent::Type type, const QPoint& at, Qt::MouseButtons held)
{
    QMouseEvent event(type, at, widget->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void benchRepaint(BenchTable& table, MapEditor::MapGrid& grid)
{
    for (int zoom : { 1, 4, 8 }) {
        grid.setZoom(zoom);
        // From the middle of the map, where blocks and sprites are all around.
        grid.setHorizontalScrollPosition(zoom == 1 ? 0 : 100);
        grid.setVerticalScrollPosition(zoom == 1 ? 0 : 100);
        qint64 ticks = 0;
        table.measure(QString("Map tab repaint, 256×256, 500 blocks, 128 sprites, zoom %1").arg(zoom), "ms", 8, 31,
                      [&] {
                          grid.setSpriteTicks(++ticks);
                          grid.repaint();
                      });
    }
}

void benchDrawing(BenchTable& table, Level& level, MapEditor::MapGrid& grid, QUndoStack& stack)
{
    grid.setZoom(4);
    grid.setHorizontalScrollPosition(0);
    grid.setVerticalScrollPosition(0);
    grid.setMode(Tintorel::Ui::ToolButton::Draw);
    grid.setCurrentTileIndex(300);
    const auto centreOf = [&grid](int n) {
        const MapEditor::MapViewState& view = grid.view();
        const QPoint cell(n % 58 + 1, (n / 58) % 30 + 1);
        return view.drawRect.topLeft() + cell * view.scaledCell + QPoint(view.scaledCell / 2, view.scaledCell / 2);
    };
    int step = 0;
    sendMouse(&grid, QEvent::MouseButtonPress, centreOf(step), Qt::LeftButton);
    table.measure("Map tab: Draw move to a new cell, 1920×1080", "ms", 8, 61,
                  [&] { sendMouse(&grid, QEvent::MouseMove, centreOf(++step), Qt::LeftButton); });
    sendMouse(&grid, QEvent::MouseButtonRelease, centreOf(step), Qt::NoButton);

    // One cell changed of 256 × 256: the snapshots compared and the step pushed.
    int n = 0;
    table.measureStep("Map endEdit, one cell of 256×256 changed", "ms", 5, 31,
                      [&] {
                          grid.beginEdit();
                          TileMap::TileData data = level.map->tile(QPoint(200, 200));
                          data.index = (data.index + 1 + n++) % 512;
                          level.map->setTile(QPoint(200, 200), data);
                      },
                      [&] { grid.endEdit("Paint"); });
    table.measureStep("Map undo of that step, repaint included", "ms", 10, 31, [&] { stack.redo(); },
                      [&] {
                          stack.undo();
                          grid.repaint();
                      });
}

void benchAnimator(BenchTable& table, Level& level)
{
    MapEditor::MapAnimator animator;
    animator.setMap(level.map);
    animator.setProject(&level.project);
    table.measure("Map animator tick, 500 blocks and 128 sprites", "ms", 1, 101, [&] { animator.tick(); });
}

void benchMemory(BenchTable& table, Level& level)
{
    level.map->tileMap()->invalidate();
    level.map->objectMap()->invalidate();
    const double before = heapMegabytes();
    {
        MapEditor::View view(level.map);
        view.setProject(&level.project);
        view.resize(GridSize + QSize(120, 40));
        view.show();
        view.grid()->setZoom(1);
        view.grid()->repaint();
        table.record("Map tab open on 256×256, above the model", "MB", heapMegabytes() - before, 32);
    }
}

} // namespace

void benchMapEditor(BenchTable& table)
{
    Level level;
    QUndoStack stack;
    {
        MapEditor::MapGrid grid;
        grid.setMap(level.map);
        grid.setUndoStack(&stack);
        grid.setSpriteBanks({ level.bank });
        grid.resize(GridSize);
        grid.show();
        QApplication::processEvents();
        benchRepaint(table, grid);
        benchDrawing(table, level, grid, stack);
    }
    benchAnimator(table, level);
    benchMemory(table, level);
}
