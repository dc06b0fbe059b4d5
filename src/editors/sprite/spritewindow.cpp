#include "editors/sprite/spritewindow.h"

#include "canvas/canvas.h"
#include "editors/palette/colourpalette.h"
#include "editors/palette/colourselector.h"
#include "editors/sprite/spritelist.h"
#include "history/pixeleditcommand.h"
#include "model/indexedpixels.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "ui/numberrange.h"
#include "ui/toolpalette.h"

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

constexpr int SpriteZoom = 16;

QWidget* row(const QString& label, QWidget* field)
{
    auto* widget = new QWidget;
    auto* layout = new QHBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(label));
    layout->addWidget(field);
    return widget;
}

} // namespace

SpriteWindow::SpriteWindow(QWidget* parent)
    : DockWidget(QStringLiteral("SpriteEditor"), tr("Sprite Editor"), tr("No sprites selected"), parent)
{
    setContent(build());
    connectWidgets();
}

SpriteWindow::~SpriteWindow() = default;

Canvas* SpriteWindow::canvas() const { return mCanvas; }
ToolPalette* SpriteWindow::tools() const { return mTools; }
ColourSelector* SpriteWindow::colourSelector() const { return mColours; }
NumberRange* SpriteWindow::numberRange() const { return mNumber; }
SpriteEditor::SpriteList* SpriteWindow::spriteList() const { return mList; }
QSpinBox* SpriteWindow::offsetBox() const { return mOffset; }
QSpinBox* SpriteWindow::transparencyBox() const { return mTransparency; }

QWidget* SpriteWindow::build()
{
    mCanvas = new Canvas(QSize(SpriteBank::SpriteSize, SpriteBank::SpriteSize));
    mCanvas->setZoomLevel(SpriteZoom);
    mCanvas->setGridLinesVisible(true);
    mCanvas->setInk(1);
    mCanvas->setPaper(0);
    mCanvas->setMinimumSize(SpriteBank::SpriteSize * SpriteZoom, SpriteBank::SpriteSize * SpriteZoom);
    auto* canvasArea = new QScrollArea;
    canvasArea->setWidget(mCanvas);
    canvasArea->setWidgetResizable(true);
    canvasArea->setMinimumHeight(SpriteBank::SpriteSize * SpriteZoom + 4);
    mTools = new ToolPalette;
    mTools->addTools(ToolPalette::tools());
    mTools->setButtonEnabled(ToolButton::Open, false);
    mTools->setButtonEnabled(ToolButton::Save, false);
    mTools->setState(ToolButton::Draw);
    mColours = new ColourSelector(ColourPalette::Full256);
    mNumber = new NumberRange;
    mNumber->setRange(1, 64);
    mOffset = new QSpinBox;
    mOffset->setRange(1, 16);
    mOffset->setToolTip(tr("The bank of sixteen colours the sprite is drawn in"));
    mTransparency = new QSpinBox;
    mTransparency->setRange(0, 255);
    mTransparency->setToolTip(tr("The pixel value that the machine leaves transparent"));
    mOffsetRow = row(tr("Palette Offset"), mOffset);
    mTransparencyRow = row(tr("Transparent"), mTransparency);
    mList = new SpriteEditor::SpriteList;
    auto* listArea = new QScrollArea;
    listArea->setWidget(mList);
    listArea->setWidgetResizable(true);
    listArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    listArea->setMinimumHeight(2 * SpriteEditor::SpriteList::CellSide + 4);

    auto* numbers = new QHBoxLayout;
    numbers->addWidget(new QLabel(tr("Sprite")));
    numbers->addWidget(mNumber);
    numbers->addStretch();
    numbers->addWidget(mOffsetRow);
    numbers->addWidget(mTransparencyRow);

    auto* inner = new QWidget;
    auto* layout = new QVBoxLayout(inner);
    layout->addLayout(numbers);
    layout->addWidget(mColours);
    layout->addWidget(canvasArea);
    layout->addWidget(mTools);
    layout->addWidget(listArea, 1);
    auto* scroll = new QScrollArea;
    scroll->setWidget(inner);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    return scroll;
}

void SpriteWindow::connectWidgets()
{
    connect(mColours, &ColourSelector::foreColourChanged, mCanvas, &Canvas::setInk);
    connect(mColours, &ColourSelector::backColourChanged, mCanvas, &Canvas::setPaper);
    connect(mTools, &ToolPalette::actionActivated, mCanvas, &Canvas::setMode);
    connect(mCanvas, &Canvas::imageChanged, this, &SpriteWindow::updateSpriteImage);
    mCanvas->sendEditsTo(this, this);
    connect(mCanvas, &Canvas::foregroundPicked, mColours, &ColourSelector::setForeIndex);
    connect(mCanvas, &Canvas::backgroundPicked, mColours, &ColourSelector::setBackIndex);
    connect(mNumber, &NumberRange::currentValueChanged, this, [this](int number) { changeSprite(number - 1); });
    connect(mOffset, qOverload<int>(&QSpinBox::valueChanged), this, &SpriteWindow::offsetChanged);
    connect(mTransparency, qOverload<int>(&QSpinBox::valueChanged), this, [this](int value) {
        if (!mBank)
            return;
        mBank->setTransparency(value);
        mList->update();
        emit spritesEdited();
    });
    mList->editSprite = [this](int index, const QString& text, const std::function<void()>& change) {
        editSprite(index, text, change);
    };
}

void SpriteWindow::setUndoStackProvider(std::function<QUndoStack*()> provider)
{
    mStackProvider = std::move(provider);
}

int SpriteWindow::spriteNumber() const
{
    return mNumber->value();
}

bool SpriteWindow::isFourBit() const
{
    return mBank && mBank->depth() == Tintorel::Sprite::FourBit;
}

QImage SpriteWindow::stored(const QImage& image) const
{
    return isFourBit() ? lowNibbles(image) : image;
}

void SpriteWindow::setSprites(QPointer<SpriteBank> sprites)
{
    if (mBank)
        disconnect(mBank, nullptr, this, nullptr);
    for (const QMetaObject::Connection& connection : std::as_const(mListConnections))
        disconnect(connection);
    mListConnections.clear();
    mBank = sprites;
    if (!mBank) {
        setWindowTitle(tr("Sprite Editor"));
        mList->setSprites(nullptr);
        setActive(false);
        return;
    }
    for (auto signal : { &SpriteBank::countChanged, &SpriteBank::restored })
        connect(mBank, signal, this, &SpriteWindow::refresh);
    connect(mBank, &SpriteBank::imageChanged, this, [this](int index) {
        // Another path changed the sprite on show: show the truth.
        if (!mWriting && index == spriteNumber() - 1
            && !sameIndexedPixels(stored(mCanvas->image()), mBank->sprite(index)))
            loadSprite();
    });
    connect(mBank, &QObject::destroyed, this, [this] { setSprites(nullptr); });
    setWindowTitle(tr("Sprites: %1").arg(mBank->name()));
    {
        const QSignalBlocker blocker(mNumber);
        mNumber->setRange(1, mBank->spriteCount());
        mNumber->setValue(1);
    }
    mList->setSprites(mBank);
    mCanvas->setImageType(int(isFourBit() ? Tintorel::Ui::ImageType::Offset16 : Tintorel::Ui::ImageType::Full256));
    mColours->setMode(isFourBit() ? ColourPalette::Bank16 : ColourPalette::Full256);
    mOffsetRow->setVisible(isFourBit());
    mTransparencyRow->setVisible(!isFourBit());
    {
        const QSignalBlocker blocker(mTransparency);
        mTransparency->setValue(mBank->transparency());
    }
    setSpritePalette(mBank->palette());
    loadSprite();
    setActive(true);
    connectList();
}

// The list's requests change the bank's structure: each is one undo step,
// recorded by snapshot around the change.
void SpriteWindow::connectList()
{
    const auto at = [this](auto act) {
        return [this, act](int index) { act(index); };
    };
    mListConnections << connect(mList, &SpriteEditor::SpriteList::indexChanged, this, &SpriteWindow::changeSprite);
    mListConnections << connect(mList, &SpriteEditor::SpriteList::addSprite, this, [this] {
        structure(tr("Add Sprite"), [this] { mBank->addSprite(true); });
    });
    mListConnections << connect(mList, &SpriteEditor::SpriteList::deleteRequested, this, at([this](int index) {
        structure(tr("Delete Sprite"), [this, index] { mBank->deleteSprite(index); });
    }));
    mListConnections << connect(mList, &SpriteEditor::SpriteList::clearRequested, this, at([this](int index) {
        structure(tr("Clear Sprite"), [this, index] { mBank->clearSprite(index); });
    }));
    mListConnections << connect(mList, &SpriteEditor::SpriteList::copySprite, this, [this](int source, int dest) {
        structure(tr("Copy Sprite"), [this, source, dest] {
            mBank->copySprite(source, dest);
            // The copy is drawn in the bank of its source, as it was.
            mBank->setOffset(dest, mBank->offset(source));
        });
    });
    mListConnections << connect(mList, &SpriteEditor::SpriteList::moveSprite, this, [this](int source, int dest) {
        structure(tr("Move Sprite"), [this, source, dest] { mBank->moveSprite(source, dest); });
    });
}

void SpriteWindow::structure(const QString& text, const std::function<void()>& change)
{
    if (!mBank)
        return;
    // The edit goes to the bank's stack, which becomes the one Edit → Undo works on.
    if (mStackProvider)
        mStackProvider();
    emit mBank->structureAboutToChange();
    mWriting = true;
    change();
    mWriting = false;
    emit mBank->structureChanged(text);
    refresh();
}

void SpriteWindow::refresh()
{
    if (!mBank)
        return;
    mList->update();
    {
        const QSignalBlocker blocker(mNumber);
        mNumber->setRange(1, mBank->spriteCount());
    }
    loadSprite();
}

void SpriteWindow::changeSprite(int index)
{
    if (!mBank || index < 0 || index >= mBank->spriteCount())
        return;
    {
        const QSignalBlocker blocker(mNumber);
        mNumber->setValue(index + 1);
    }
    mList->setSelectedIndex(index);
    loadSprite();
}

void SpriteWindow::loadSprite()
{
    const int index = spriteNumber() - 1;
    mCanvas->setImage(mBank->sprite(index));
    if (isFourBit()) {
        const int offset = mBank->offset(index) + 1;
        {
            const QSignalBlocker blocker(mOffset);
            mOffset->setValue(offset);
        }
        mColours->setOffset(offset);
        mCanvas->remap(offset);
    }
    mList->setSelectedIndex(index);
}

void SpriteWindow::offsetChanged(int offset)
{
    if (!mBank)
        return;
    mBank->setOffset(spriteNumber() - 1, offset - 1);
    mColours->setOffset(offset);
    mCanvas->remap(offset);
    mList->update();
    emit spritesEdited();
}

void SpriteWindow::updateSpriteImage()
{
    if (!mBank)
        return;
    const int index = spriteNumber() - 1;
    const QImage picture = stored(mCanvas->image());
    if (sameIndexedPixels(picture, mBank->sprite(index)))
        return;
    mWriting = true;
    mBank->setImage(index, picture);
    mWriting = false;
}

void SpriteWindow::setSpritePalette(Palette* palette)
{
    if (mBank && palette) {
        mBank->setPalette(palette);
        mBank->setPaletteId(palette->id());
    }
    mColours->setPalette(palette);
    mCanvas->setPalette(palette);
    mList->update();
}

void SpriteWindow::pushEdit(const QString& text, const QImage& before, const QImage& after, int canvasKind)
{
    QUndoStack* stack = mBank && mStackProvider ? mStackProvider() : nullptr;
    if (!stack)
        return;
    const int index = spriteNumber() - 1;
    const QPointer<SpriteBank> bank = mBank;
    const QPointer<SpriteWindow> window = this;
    auto apply = [bank, index, window](const QImage& image) {
        if (!bank)
            return;
        if (window && window->mBank == bank && window->spriteNumber() == index + 1) {
            window->mCanvas->setImage(image);
            if (window->isFourBit())
                window->mCanvas->remap(window->mOffset->value());
            return;
        }
        bank->setImage(index, bank->depth() == Tintorel::Sprite::FourBit ? lowNibbles(image) : image);
    };
    // Only the pixel moves of one sprite merge into one step.
    const QVariant key = canvasKind == Moved ? QVariant(QStringLiteral("%1:%2").arg(mBank->id().toString()).arg(index))
                                             : QVariant();
    stack->push(new PixelEditCommand(text, mBank, PixelEditCommand::Sprite, before, after, apply, key));
}

void SpriteWindow::editSprite(int index, const QString& text, const std::function<void()>& change)
{
    if (!mBank)
        return;
    const QImage before = mBank->sprite(index);
    change();
    const QImage after = mBank->sprite(index);
    if (index == spriteNumber() - 1)
        loadSprite();
    QUndoStack* stack = mStackProvider ? mStackProvider() : nullptr;
    if (!stack || sameIndexedPixels(before, after))
        return;
    const QPointer<SpriteBank> bank = mBank;
    auto apply = [bank, index](const QImage& image) {
        if (bank)
            bank->setImage(index, image);
    };
    stack->push(new PixelEditCommand(text, mBank, PixelEditCommand::Sprite, before, after, apply));
}

bool SpriteWindow::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && isActive())
        mCanvas->handleKey(static_cast<QKeyEvent*>(event));
    return DockWidget::event(event);
}
