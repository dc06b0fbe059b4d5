#include "benchtable.h"

#include "editors/block/animationeditorwidget.h"
#include "editors/animation/frameeditorwidget.h"
#include "editors/sprite/spritelist.h"
#include "editors/sprite/spritewindow.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "model/tileanimation.h"
#include "model/tileset.h"

#include <QCoreApplication>

namespace {

// A bank of 128 sprites of many indices, so that no sprite draws cheaply.
void fillBank(SpriteBank& bank)
{
    for (int i = 1; i < 128; ++i)
        bank.addSprite(false);
    QImage strip = bank.image();
    for (int y = 0; y < strip.height(); ++y) {
        uchar* row = strip.scanLine(y);
        for (int x = 0; x < strip.width(); ++x)
            row[x] = uchar((x * 7 + y * 13) % 256);
    }
    bank.setBankImage(strip);
}

void benchSprites(BenchTable& table, Palette& palette)
{
    SpriteBank bank(Tintorel::Sprite::EightBit);
    bank.setPalette(&palette);
    fillBank(bank);
    SpriteWindow window;
    window.setSprites(&bank);
    window.resize(400, 1000);
    window.show();
    QCoreApplication::processEvents();
    int index = 0;
    table.measure("SpriteWindow: show another sprite of 128", "ms", 2, 31, [&] {
        index = (index + 37) % bank.spriteCount();
        window.changeSprite(index);
        window.repaint();
    });

    SpriteEditor::SpriteList list;
    list.setSprites(&bank);
    list.resize(8 * SpriteEditor::SpriteList::CellSide, list.preferredHeight());
    list.show();
    QCoreApplication::processEvents();
    table.measure("Sprite list repaint, 128 sprites", "ms", 5, 31, [&] { list.repaint(); });
}

void benchBlockPreview(BenchTable& table, Palette& palette)
{
    TileSet tiles(64);
    tiles.setPalette(&palette);
    TileAnimation block;
    block.setTileSet(&tiles);
    block.setSize(QSize(8, 8));
    for (int frame = 0; frame < 4; ++frame) {
        block.addFrame();
        for (int cell = 0; cell < 64; ++cell)
            block.setIndex(frame, cell, (cell + frame) % 64);
    }
    BlockEditor::AnimationEditorWidget editor;
    editor.setAnimation(&block);
    editor.resize(800, 800);
    editor.show();
    QCoreApplication::processEvents();
    table.measure("Block preview step, 8x8 cells, repaint included", "ms", 1, 31, [&] {
        editor.animate();
        editor.frameEditor()->repaint();
    });
}

} // namespace

void benchEditors(BenchTable& table)
{
    Palette palette;
    palette.loadStandard();
    benchSprites(table, palette);
    benchBlockPreview(table, palette);
}
