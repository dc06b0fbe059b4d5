#pragma once
#include "model/animationframe.h"
#include "model/tintorelui.h"

#include <QImage>
#include <QMenu>
#include <QPointer>
#include <QWidget>
#include <functional>

class Animation;

namespace AnimationEditor {

// One frame of an animation as a grid of cells: tiles or sprites are
// dropped on it, a cell is selected with a click and its turn, flip and
// mirror set from its menu. The holder says how a cell is drawn.
class FrameEditorWidget : public QWidget
{
    Q_OBJECT
public:
    using CellPainter = std::function<QImage(const AnimationFrame::Cell& cell)>;

    explicit FrameEditorWidget(QWidget* parent = nullptr);

    void setAnimation(Animation* animation);
    QPointer<Animation> animation() const { return mAnimation; }
    void setCellPainter(CellPainter painter);
    int scale() const { return mScale; }
    int currentFrame() const { return mCurrentFrame; }
    void setCurrentFrame(int index);
    QPoint selectedCell() const { return mSelectedCell; }
    void selectCell(const QPoint& cell);
    void setActions(bool rotated, bool flipped, bool mirrored);
    void addFrame();
    void deleteCurrentFrame();
    int cellSize() const;
    // The cell under a widget point; (-1, -1) when there is none.
    QPoint cellAt(const QPoint& pos) const;
    bool isValidCell(const QPoint& cell) const;
    QMenu* menu() { return &mMenu; }
    QString dragFormat() const;
    QSize sizeHint() const override;
    // The tool strip's zoom and turn buttons; false for any other button.
    bool applyTool(Tintorel::Ui::ToolButton button, bool checked);

public slots:
    void setRotated(bool rotated);
    void setMirrored(bool mirrored);
    void setFlipped(bool flipped);
    void setOffset(int offset);
    void zoomIn();
    void zoomOut();

signals:
    void selectedCellChanged(QPoint cell);
    void currentFrameChanged(int index);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QImage composed(const AnimationFrame& frame) const;
    bool isSpriteAnimation() const;
    void fit();
    int cellNumber(const QPoint& cell) const;
    AnimationFrame::Cell cell(const QPoint& cell) const;
    void writeFlags();

    QPointer<Animation> mAnimation;
    CellPainter mPainter;
    int mScale = 8;
    int mCurrentFrame = 0;
    QPoint mDropCell { -1, -1 };
    QPoint mSelectedCell { -1, -1 };
    Qt::MouseButtons mPressedButtons;
    QMenu mMenu;
    QPointer<QAction> mRotated;
    QPointer<QAction> mFlipped;
    QPointer<QAction> mMirrored;
};

} // namespace AnimationEditor
