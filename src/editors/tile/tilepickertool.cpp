#include "editors/tile/tilepickertool.h"

#include "canvas/canvasclipboard.h"
#include "editors/tile/tilepickergrid.h"
#include "history/pixeleditcommand.h"
#include "model/indexedpixels.h"
#include "model/palette.h"
#include "model/tile.h"
#include "model/tileset.h"
#include "model/tintorelui.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QUndoStack>
#include <QScrollArea>
#include <QVBoxLayout>

TilePickerTool::TilePickerTool(QWidget* parent)
    : DockWidget(QStringLiteral("TilePickerTool"), tr("Tiles"), tr("No active tile set"), parent)
    , mGrid(new TilePickerGrid)
    , mStatus(new QLabel)
{
    auto* scroll = new QScrollArea;
    scroll->setWidget(mGrid);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(scroll);
    layout->addWidget(mStatus);
    setContent(content);
    connect(mGrid, &TilePickerGrid::itemDoubleClicked, this, &TilePickerTool::tileDoubleClicked);
    connect(mGrid, &TilePickerGrid::selectedIndexChanged, this, &TilePickerTool::selectedTileChanged);
    connect(mGrid, &TilePickerGrid::copyImageRequested, this, &TilePickerTool::copyImage);
    connect(mGrid, &TilePickerGrid::pasteImageRequested, this, &TilePickerTool::pasteImage);
    connect(mGrid, &TilePickerGrid::clearRequested, this, &TilePickerTool::clearImage);
}

void TilePickerTool::setUndoStackProvider(std::function<QUndoStack*()> provider)
{
    mStackProvider = std::move(provider);
}

void TilePickerTool::copyImage(int index)
{
    if (!mTileSet || !mTileSet->tile(index))
        return;
    const QPointer<Palette> palette = mTileSet->palette();
    CanvasClipboard::Clip clip;
    clip.imageType = int(Tintorel::Ui::ImageType::Offset16);
    clip.paletteId = palette ? palette->id() : QUuid();
    clip.image = mTileSet->render(index, false, false, false, mTileSet->tileOffset(index));
    if (palette)
        clip.image.setColorTable(palette->rgbTable());
    QGuiApplication::clipboard()->setMimeData(CanvasClipboard::encode(clip), QClipboard::Clipboard);
}

void TilePickerTool::pasteImage(int index)
{
    if (!mTileSet || !mTileSet->tile(index))
        return;
    const QMimeData* data = QGuiApplication::clipboard()->mimeData(QClipboard::Clipboard);
    CanvasClipboard::Clip clip;
    if (CanvasClipboard::decode(data, &clip)) {
        // Indices as they are, as the canvas pastes them.
        editTile(index, tr("Paste Image"), [this, index, &clip] {
            mTileSet->setTileImage(index, Tile::fourBit(clip.image));
        });
    } else if (data && data->hasImage()) {
        // Another program's picture takes the nearest colours of the set's palette.
        const QImage picture = qvariant_cast<QImage>(data->imageData()).copy(0, 0, Tile::Size, Tile::Size);
        editTile(index, tr("Paste Image"), [this, index, &picture] {
            mTileSet->importImage(index, picture, mTileSet->tileOffset(index));
            mTileSet->setTileImage(index, Tile::fourBit(mTileSet->tile(index)->image()));
        });
    }
}

void TilePickerTool::clearImage(int index)
{
    if (mTileSet && mTileSet->tile(index))
        editTile(index, tr("Clear"), [this, index] { mTileSet->clearImage(index); });
}

void TilePickerTool::editTile(int index, const QString& text, const std::function<void()>& change)
{
    const QImage before = mTileSet->tile(index)->image();
    change();
    const QImage after = mTileSet->tile(index)->image();
    mTileSet->notifyImageChanged(index);
    QUndoStack* stack = mStackProvider ? mStackProvider() : nullptr;
    if (!stack || sameIndexedPixels(before, after))
        return;
    const QPointer<TileSet> tiles = mTileSet;
    auto apply = [tiles, index](const QImage& image) {
        if (!tiles)
            return;
        tiles->setTileImage(index, image);
        tiles->notifyImageChanged(index);
    };
    stack->push(new PixelEditCommand(text, mTileSet, PixelEditCommand::Tile, before, after, apply));
}

void TilePickerTool::setTileSet(TileSet* tileSet)
{
    if (mTileSet)
        disconnect(mTileSet, nullptr, this, nullptr);
    mTileSet = tileSet;
    mGrid->setTileSet(tileSet);
    setActive(mTileSet);
    if (mTileSet) {
        connect(mTileSet, &TileSet::tileInserted, this, &TilePickerTool::updateStatus);
        connect(mTileSet, &TileSet::tileDeleted, this, &TilePickerTool::updateStatus);
        connect(mTileSet, &TileSet::restored, this, &TilePickerTool::updateStatus);
        connect(mTileSet, &QObject::destroyed, this, [this] { setTileSet(nullptr); });
    }
    updateStatus();
}

void TilePickerTool::updateStatus()
{
    mStatus->setText(mTileSet ? tr("Tiles: %1").arg(mTileSet->count()) : QString());
}

int TilePickerTool::zoom() const
{
    return mGrid->zoom();
}

void TilePickerTool::setZoom(int level)
{
    mGrid->setZoom(level);
}

QList<QAction*> TilePickerTool::magnifications() const
{
    return mGrid->magnifications();
}
