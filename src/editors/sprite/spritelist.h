#pragma once
#include "ui/indexgrid.h"

#include <QMenu>
#include <QPointer>
#include <functional>

class SpriteBank;

namespace SpriteEditor {

// Every sprite of a bank, and an entry at the end that adds one. Dragging a
// sprite onto another moves it there, with Shift copies it; its menu
// deletes, clears, and copies or pastes its picture.
class SpriteList : public IndexGrid
{
    Q_OBJECT
public:
    static constexpr const char* DragFormat = "tintorel/sprite-drag-anim";
    static constexpr int CellSide = 48;

    explicit SpriteList(QWidget* parent = nullptr);

    void setSprites(SpriteBank* bank);
    QPointer<SpriteBank> sprites() const { return mBank; }
    QMenu* menu() { return &mMenu; }
    int menuIndex() const { return mMenuIndex; }
    void setMenuIndex(int index) { mMenuIndex = index; }
    // Runs a change of one sprite's picture as an undo step; set by the window.
    std::function<void(int index, const QString& text, const std::function<void()>& change)> editSprite;

public slots:
    void copyImage();
    void pasteImage();

signals:
    void indexChanged(int index);
    void copySprite(int source, int dest);
    void moveSprite(int source, int dest);
    void addSprite();
    void deleteRequested(int index);
    void clearRequested(int index);

protected:
    int cellCount() const override;
    bool hasContent() const override;
    int cellSize() const override { return CellSide; }
    void paintCell(QPainter& painter, int index, const QRect& cell) override;
    bool canDrag(int index) const override;
    QByteArray dragPayload(int index) const override;
    QImage dragImage(int index) const override;
    void copyCell(int from, int to) override { emit copySprite(from, to); }
    void moveCell(int from, int to) override { emit moveSprite(from, to); }
    QString toolTipAt(int index) const override;
    void clicked(int index) override;
    void menuRequested(int index, const QPoint& globalPos) override;

private:
    bool isAddEntry(int index) const;

    QPointer<SpriteBank> mBank;
    QMenu mMenu;
    int mMenuIndex = -1;
};

} // namespace SpriteEditor
