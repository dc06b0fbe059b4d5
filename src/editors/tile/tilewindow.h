#pragma once
#include "history/edittarget.h"
#include "ui/dockwidget.h"

#include <QPointer>
#include <functional>

class Canvas;
class ColourSelector;
class NumberRange;
class Palette;
class PaletteEditor;
class QSpinBox;
class QUndoStack;
class TileSet;
class TileSheet;
class ToolPalette;

// The Tile Editor dock: one 8 x 8 tile of a tile set on the canvas, in the
// sixteen colours of its bank, with its number, bank, colours and game
// attributes. Tile numbers here count from 1; the set's indices from 0.
class TileWindow : public DockWidget, public EditTarget
{
    Q_OBJECT
public:
    explicit TileWindow(QWidget* parent = nullptr);

    QPointer<TileSet> tileSet() const { return mTileSet; }
    void setTileSet(QPointer<TileSet> tileSet);
    // Gives the set this palette, then the window.
    void setPalette(QPointer<Palette> palette);
    using QWidget::setPalette;
    // The stack of the tile set's document, asked at each edit.
    void setUndoStackProvider(std::function<QUndoStack*()> provider);
    // The 1-based number of the tile shown.
    int tileNumber() const;

    Canvas* canvas() const;
    ToolPalette* tools() const;
    ColourSelector* colourSelector() const;
    PaletteEditor* paletteEditor() const;
    TileSheet* sheet() const;
    NumberRange* numberRange() const;
    QSpinBox* offsetBox() const;

    void pushEdit(const QString& text, const QImage& before, const QImage& after, int canvasKind) override;

public slots:
    void imageChanged();
    void setTileIndex(int index);
    void paletteOffsetChanged(int offset);
    void foreColourChanged(int index);
    void backColourChanged(int index);
    void tileCountChanged(int index);

signals:
    void activeStateChanged(bool enabled);
    // The shown tile changed; 1-based.
    void tileNumberChanged(int number);
    // An edit that takes no undo step (attributes, the bank) changed the set.
    void tileEdited();

protected:
    bool event(QEvent* event) override;

private:
    QWidget* build();
    void connectWidgets();
    void loadTile(int number);
    void writeBack(int index, const QImage& image);
    void tileSetChanged(int index);

    QPointer<TileSheet> mSheet;
    QPointer<Canvas> mCanvas;
    QPointer<ToolPalette> mTools;
    QPointer<PaletteEditor> mPaletteEditor;
    QPointer<NumberRange> mNumber;
    QPointer<ColourSelector> mColours;
    QPointer<QSpinBox> mOffset;
    QPointer<TileSet> mTileSet;
    QPointer<Palette> mPalette;
    std::function<QUndoStack*()> mStackProvider;
    // Set while the window writes a tile, so that the set's notice of it
    // does not reload the canvas.
    bool mWriting = false;
};
