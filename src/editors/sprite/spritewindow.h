#pragma once
#include "history/edittarget.h"
#include "ui/dockwidget.h"

#include <QPointer>
#include <functional>

class Canvas;
class ColourSelector;
class NumberRange;
class Palette;
class QSpinBox;
class QUndoStack;
class SpriteBank;
class ToolPalette;
namespace SpriteEditor {
class SpriteList;
}

// The Sprite Editor dock: one 16 x 16 sprite of a bank on the canvas, the
// list of all of them, and the colours. A 4-bit bank draws each sprite in
// its own bank of sixteen colours; an 8-bit bank has one transparent value.
// Sprite numbers here count from 1; the bank's indices from 0.
class SpriteWindow : public DockWidget, public EditTarget
{
    Q_OBJECT
public:
    explicit SpriteWindow(QWidget* parent = nullptr);
    ~SpriteWindow() override;

    QPointer<SpriteBank> sprites() const { return mBank; }
    void setUndoStackProvider(std::function<QUndoStack*()> provider);
    int spriteNumber() const;

    Canvas* canvas() const;
    ToolPalette* tools() const;
    ColourSelector* colourSelector() const;
    NumberRange* numberRange() const;
    SpriteEditor::SpriteList* spriteList() const;
    QSpinBox* offsetBox() const;
    QSpinBox* transparencyBox() const;

    void pushEdit(const QString& text, const QImage& before, const QImage& after, int canvasKind) override;

public slots:
    void updateSpriteImage();
    void changeSprite(int index);
    void refresh();
    void setSprites(QPointer<SpriteBank> sprites);
    void setSpritePalette(Palette* palette);

signals:
    // An edit that takes no undo step (a bank, the transparency) changed the sprites.
    void spritesEdited();

protected:
    bool event(QEvent* event) override;

private:
    QWidget* build();
    void connectWidgets();
    void connectList();
    bool isFourBit() const;
    void loadSprite();
    // The bank's form of a picture: a 4-bit bank keeps the low four bits.
    QImage stored(const QImage& image) const;
    void structure(const QString& text, const std::function<void()>& change);
    void editSprite(int index, const QString& text, const std::function<void()>& change);
    void offsetChanged(int offset);

    QPointer<Canvas> mCanvas;
    QPointer<ToolPalette> mTools;
    QPointer<ColourSelector> mColours;
    QPointer<SpriteBank> mBank;
    NumberRange* mNumber = nullptr;
    SpriteEditor::SpriteList* mList = nullptr;
    QSpinBox* mOffset = nullptr;
    QSpinBox* mTransparency = nullptr;
    QWidget* mOffsetRow = nullptr;
    QWidget* mTransparencyRow = nullptr;
    std::function<QUndoStack*()> mStackProvider;
    QList<QMetaObject::Connection> mListConnections;
    bool mWriting = false;
};
