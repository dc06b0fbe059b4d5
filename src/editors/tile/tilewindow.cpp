#include "editors/tile/tilewindow.h"

#include "canvas/canvas.h"
#include "editors/palette/colourselector.h"
#include "editors/palette/paletteeditor.h"
#include "editors/tile/tilesheet.h"
#include "history/pixeleditcommand.h"
#include "model/indexedpixels.h"
#include "model/palette.h"
#include "model/tile.h"
#include "model/tileset.h"
#include "ui/numberrange.h"
#include "ui/toolpalette.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QUndoStack>
#include <QVBoxLayout>

using Tintorel::Ui::ToolButton;

namespace {

constexpr int CanvasSide = 256;
constexpr int CanvasZoom = 32;

QGroupBox* group(const QString& title, QWidget* content)
{
    auto* box = new QGroupBox(title);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(content);
    return box;
}

} // namespace

TileWindow::TileWindow(QWidget* parent)
    : DockWidget(QStringLiteral("TileEditor"), tr("Tile Editor"), tr("No tile set selected"), parent)
{
    setContent(build());
    connectWidgets();
}

QWidget* TileWindow::build()
{
    mCanvas = new Canvas(QSize(8, 8));
    mCanvas->setFixedSize(CanvasSide, CanvasSide);
    mCanvas->setZoomLevel(CanvasZoom);
    mCanvas->setImageType(int(Tintorel::Ui::ImageType::Offset16));
    mCanvas->setGridLinesVisible(true);
    mCanvas->setInk(1);
    mCanvas->setPaper(0);
    mTools = new ToolPalette;
    mTools->addTools(ToolPalette::tools());
    mTools->setButtonEnabled(ToolButton::Open, false);
    mTools->setButtonEnabled(ToolButton::Save, false);
    mTools->setState(ToolButton::Draw);
    mColours = new ColourSelector(1);
    mPaletteEditor = new PaletteEditor;
    mSheet = new TileSheet;
    mNumber = new NumberRange;
    mNumber->setRange(1, 512);
    mOffset = new QSpinBox;
    mOffset->setRange(1, 16);
    mOffset->setToolTip(tr("The bank of sixteen colours the tile is drawn in"));

    auto* numbers = new QHBoxLayout;
    numbers->addWidget(new QLabel(tr("Tile")));
    numbers->addWidget(mNumber);
    numbers->addStretch();
    numbers->addWidget(new QLabel(tr("Palette Offset")));
    numbers->addWidget(mOffset);

    auto* inner = new QWidget;
    inner->setObjectName(QStringLiteral("tileWidget"));
    auto* layout = new QVBoxLayout(inner);
    // The colours above the canvas, where they stay in sight when the dock is short.
    layout->addLayout(numbers);
    layout->addWidget(mColours);
    layout->addWidget(mCanvas, 0, Qt::AlignHCenter);
    layout->addWidget(mTools);
    layout->addWidget(group(tr("Palette Editor"), mPaletteEditor));
    layout->addWidget(group(tr("Attributes"), mSheet));
    layout->addStretch();
    // Taller than most docks: it scrolls rather than squeezing the canvas.
    auto* scroll = new QScrollArea;
    scroll->setWidget(inner);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    return scroll;
}

void TileWindow::connectWidgets()
{
    connect(mColours, &ColourSelector::doubleClicked, mPaletteEditor, &PaletteEditor::setSelectedIndex);
    connect(mColours, &ColourSelector::foreColourChanged, mCanvas, &Canvas::setInk);
    connect(mColours, &ColourSelector::backColourChanged, mCanvas, &Canvas::setPaper);
    connect(mTools, &ToolPalette::actionActivated, mCanvas, &Canvas::setMode);
    connect(mCanvas, &Canvas::imageChanged, this, &TileWindow::imageChanged);
    mCanvas->sendEditsTo(this, this);
    connect(mCanvas, &Canvas::foregroundPicked, this, &TileWindow::foreColourChanged);
    connect(mCanvas, &Canvas::backgroundPicked, this, &TileWindow::backColourChanged);
    connect(mNumber, &NumberRange::currentValueChanged, this, &TileWindow::setTileIndex);
    connect(mOffset, qOverload<int>(&QSpinBox::valueChanged), this, &TileWindow::paletteOffsetChanged);
    connect(mPaletteEditor, &PaletteEditor::paletteChanged, mCanvas, &Canvas::paletteChanged);
    connect(mPaletteEditor, &PaletteEditor::paletteChanged, mColours, &ColourSelector::paletteChanged);
    connect(mSheet, &TileSheet::attributesEdited, this, &TileWindow::tileEdited);
}

Canvas* TileWindow::canvas() const { return mCanvas; }
ToolPalette* TileWindow::tools() const { return mTools; }
ColourSelector* TileWindow::colourSelector() const { return mColours; }
PaletteEditor* TileWindow::paletteEditor() const { return mPaletteEditor; }
TileSheet* TileWindow::sheet() const { return mSheet; }
NumberRange* TileWindow::numberRange() const { return mNumber; }
QSpinBox* TileWindow::offsetBox() const { return mOffset; }

int TileWindow::tileNumber() const
{
    return mNumber->value();
}

void TileWindow::setUndoStackProvider(std::function<QUndoStack*()> provider)
{
    mStackProvider = std::move(provider);
}

void TileWindow::setTileSet(QPointer<TileSet> tileSet)
{
    if (mTileSet)
        disconnect(mTileSet, nullptr, this, nullptr);
    mTileSet = tileSet;
    setActive(mTileSet);
    emit activeStateChanged(mTileSet);
    if (!mTileSet) {
        setWindowTitle(tr("Tile Editor"));
        mSheet->setTile(nullptr);
        return;
    }
    mCanvas->setDoubleHeight(mTileSet->hiRes());
    {
        const QSignalBlocker blocker(mNumber);
        mNumber->setRange(1, qMax(1, mTileSet->count()));
    }
    setWindowTitle(tr("Tile Editor: %1").arg(mTileSet->name()));
    connect(mTileSet, &TileSet::nameChanged, this,
            [this](const QString& name) { setWindowTitle(tr("Tile Editor: %1").arg(name)); });
    connect(mTileSet, &TileSet::tileInserted, this, &TileWindow::tileCountChanged);
    connect(mTileSet, &TileSet::tileDeleted, this, &TileWindow::tileCountChanged);
    connect(mTileSet, &TileSet::restored, this, [this] { tileCountChanged(0); });
    connect(mTileSet, &TileSet::tileChanged, this, &TileWindow::tileSetChanged);
    connect(mTileSet, &TileSet::tileSwapped, this, [this] { loadTile(tileNumber()); });
    connect(mTileSet, &QObject::destroyed, this, [this] { setTileSet(nullptr); });
    setPalette(mTileSet->palette());
    loadTile(tileNumber());
}

void TileWindow::setPalette(QPointer<Palette> palette)
{
    if (mTileSet && palette)
        mTileSet->setPalette(palette);
    mPalette = palette;
    mCanvas->setPalette(palette);
    mPaletteEditor->setPalette(palette);
    mColours->setPalette(palette);
    mCanvas->setPalette(palette);
}

void TileWindow::loadTile(int number)
{
    if (!mTileSet || number <= 0 || number > mTileSet->count())
        return;
    const Tile* tile = mTileSet->tile(number - 1);
    mCanvas->setImage(tile->image());
    {
        // Showing a tile is not an edit of its bank.
        const QSignalBlocker blocker(mOffset);
        mOffset->setValue(tile->offset() + 1);
    }
    mColours->setOffset(tile->offset() + 1);
    mCanvas->remap(tile->offset() + 1);
    mSheet->setTile(mTileSet->tile(number - 1));
    emit tileNumberChanged(number);
}

// The tile's own form keeps only the low four bits; writing back what it
// already holds is no change, and nobody is told of one.
void TileWindow::writeBack(int index, const QImage& image)
{
    const Tile* tile = mTileSet ? mTileSet->tile(index) : nullptr;
    if (!tile)
        return;
    const QImage stored = Tile::fourBit(image);
    if (sameIndexedPixels(stored, tile->image()))
        return;
    mWriting = true;
    mTileSet->setTileImage(index, stored);
    // The tile's number, 1-based, as the set's listeners have always had it.
    emit mTileSet->tileChanged(index + 1);
    mWriting = false;
}

void TileWindow::imageChanged()
{
    if (mTileSet)
        writeBack(tileNumber() - 1, mCanvas->image());
}

void TileWindow::tileSetChanged(int)
{
    // Another path changed a tile (a copy, a clear, a colour, an undo):
    // show the truth unless the change is this window's own.
    if (mWriting || !mTileSet)
        return;
    const Tile* tile = mTileSet->tile(tileNumber() - 1);
    if (tile && !sameIndexedPixels(Tile::fourBit(mCanvas->image()), tile->image()))
        loadTile(tileNumber());
    else
        mCanvas->update();
}

void TileWindow::setTileIndex(int index)
{
    if (mNumber->value() == index)
        loadTile(index);
    else
        mNumber->setValue(index);
}

void TileWindow::paletteOffsetChanged(int offset)
{
    if (!mTileSet)
        return;
    const int index = tileNumber() - 1;
    mTileSet->setTileOffset(index, offset - 1);
    mColours->setOffset(offset);
    mCanvas->remap(offset);
    // The bank is the tile's offset, not its pixels; only the set's
    // listeners need to know.
    mWriting = true;
    emit mTileSet->tileChanged(index + 1);
    mWriting = false;
    emit tileEdited();
}

void TileWindow::foreColourChanged(int index)
{
    mColours->setForeIndex(index);
    mTools->update();
}

void TileWindow::backColourChanged(int index)
{
    mColours->setBackIndex(index);
    mTools->update();
}

void TileWindow::tileCountChanged(int)
{
    if (!mTileSet)
        return;
    {
        const QSignalBlocker blocker(mNumber);
        mNumber->setRange(1, qMax(1, mTileSet->count()));
    }
    loadTile(tileNumber());
}

void TileWindow::pushEdit(const QString& text, const QImage& before, const QImage& after, int canvasKind)
{
    QUndoStack* stack = mTileSet && mStackProvider ? mStackProvider() : nullptr;
    if (!stack)
        return;
    const int index = tileNumber() - 1;
    const QPointer<TileSet> tiles = mTileSet;
    const QPointer<TileWindow> window = this;
    auto apply = [tiles, index, window](const QImage& image) {
        if (!tiles)
            return;
        if (window && window->mTileSet == tiles && window->tileNumber() == index + 1) {
            // The canvas shows this tile: it takes the picture, in the bank
            // the tile has now, and writes it back as any edit does.
            window->mCanvas->setImage(image);
            window->mCanvas->remap(window->mOffset->value());
            return;
        }
        tiles->setTileImage(index, Tile::fourBit(image));
        emit tiles->tileChanged(index + 1);
    };
    // Only the pixel moves of one tile merge into one step.
    const QVariant key = canvasKind == Moved ? QVariant(QStringLiteral("%1:%2").arg(mTileSet->id().toString()).arg(index))
                                             : QVariant();
    stack->push(new PixelEditCommand(text, mTileSet, PixelEditCommand::Tile, before, after, apply, key));
}

bool TileWindow::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && isActive())
        mCanvas->handleKey(static_cast<QKeyEvent*>(event));
    return DockWidget::event(event);
}
