#include "editors/animation/frameeditorwidget.h"

#include "model/animation.h"

#include <QDataStream>
#include <QHelpEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace AnimationEditor {

namespace {

constexpr const char* SpriteDragFormat = "tintorel/sprite-drag-anim";
constexpr const char* TileDragFormat = "tintorel/tile-drag-anim";
constexpr int MaxScale = 64;

QString yesNo(bool value)
{
    return value ? FrameEditorWidget::tr("Yes") : FrameEditorWidget::tr("No");
}

} // namespace

FrameEditorWidget::FrameEditorWidget(QWidget* parent)
    : QWidget(parent)
    , mMenu(tr("Frame"))
{
    setAcceptDrops(true);
    mRotated = mMenu.addAction(tr("Rotated"));
    mFlipped = mMenu.addAction(tr("Flipped"));
    mMirrored = mMenu.addAction(tr("Mirrored"));
    for (QAction* action : { mRotated.data(), mFlipped.data(), mMirrored.data() }) {
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, &FrameEditorWidget::writeFlags);
    }
}

void FrameEditorWidget::setAnimation(Animation* animation)
{
    if (mAnimation)
        disconnect(mAnimation, nullptr, this, nullptr);
    mAnimation = animation;
    mCurrentFrame = 0;
    mSelectedCell = mDropCell = QPoint(-1, -1);
    if (mAnimation) {
        const auto redraw = [this] {
            // A restore or a shorter list may leave the frame or the cell behind.
            setCurrentFrame(mCurrentFrame);
            if (!isValidCell(mSelectedCell))
                mSelectedCell = QPoint(-1, -1);
            fit();
        };
        connect(mAnimation, &Animation::frameChanged, this, [this] { update(); });
        connect(mAnimation, &Animation::sizeChanged, this, redraw);
        connect(mAnimation, &Animation::contentChanged, this, redraw);
        connect(mAnimation, &Animation::restored, this, redraw);
    }
    fit();
}

// In a scroll area nobody lays the widget out: it takes its own size.
void FrameEditorWidget::fit()
{
    updateGeometry();
    resize(sizeHint());
    update();
}

void FrameEditorWidget::setCellPainter(CellPainter painter)
{
    mPainter = std::move(painter);
    update();
}

bool FrameEditorWidget::isSpriteAnimation() const
{
    return mAnimation && mAnimation->type() == Animation::SpriteType;
}

QString FrameEditorWidget::dragFormat() const
{
    return QString::fromLatin1(isSpriteAnimation() ? SpriteDragFormat : TileDragFormat);
}

int FrameEditorWidget::cellSize() const
{
    return (isSpriteAnimation() ? 16 : 8) * mScale;
}

QSize FrameEditorWidget::sizeHint() const
{
    if (!mAnimation)
        return { cellSize(), cellSize() };
    return mAnimation->size() * cellSize();
}

bool FrameEditorWidget::applyTool(Tintorel::Ui::ToolButton button, bool checked)
{
    using Tintorel::Ui::ToolButton;
    switch (button) {
    case ToolButton::ZoomIn: zoomIn(); return true;
    case ToolButton::ZoomOut: zoomOut(); return true;
    case ToolButton::RotateCW: setRotated(checked); return true;
    case ToolButton::Flip: setFlipped(checked); return true;
    case ToolButton::Mirror: setMirrored(checked); return true;
    default: return false;
    }
}

void FrameEditorWidget::zoomIn()
{
    mScale = qMin(mScale * 2, MaxScale);
    fit();
}

void FrameEditorWidget::zoomOut()
{
    mScale = qMax(mScale / 2, 1);
    fit();
}

void FrameEditorWidget::setCurrentFrame(int index)
{
    if (!mAnimation)
        return;
    mCurrentFrame = qBound(0, index, qMax(0, mAnimation->frameCount() - 1));
    update();
    emit currentFrameChanged(mCurrentFrame);
    // The attributes on show follow the frame.
    if (mSelectedCell.x() >= 0)
        emit selectedCellChanged(mSelectedCell);
}

void FrameEditorWidget::addFrame()
{
    if (!mAnimation)
        return;
    mAnimation->addFrame();
    setCurrentFrame(mAnimation->frameCount() - 1);
}

void FrameEditorWidget::deleteCurrentFrame()
{
    if (!mAnimation)
        return;
    mAnimation->removeFrame(mCurrentFrame);
    setCurrentFrame(mCurrentFrame - 1);
}

QPoint FrameEditorWidget::cellAt(const QPoint& pos) const
{
    const QPoint cell(pos.x() / cellSize(), pos.y() / cellSize());
    return isValidCell(cell) ? cell : QPoint(-1, -1);
}

bool FrameEditorWidget::isValidCell(const QPoint& cell) const
{
    return mAnimation && cell.x() >= 0 && cell.y() >= 0 && cell.x() < mAnimation->width()
           && cell.y() < mAnimation->height();
}

int FrameEditorWidget::cellNumber(const QPoint& cell) const
{
    return cell.y() * mAnimation->width() + cell.x();
}

AnimationFrame::Cell FrameEditorWidget::cell(const QPoint& at) const
{
    const QSharedPointer<AnimationFrame> frame = mAnimation ? mAnimation->frame(mCurrentFrame) : nullptr;
    return frame ? frame->cell(at.y(), at.x()) : AnimationFrame::Cell();
}

void FrameEditorWidget::selectCell(const QPoint& at)
{
    if (!isValidCell(at))
        return;
    mSelectedCell = at;
    update();
    emit selectedCellChanged(at);
}

void FrameEditorWidget::setActions(bool rotated, bool flipped, bool mirrored)
{
    mRotated->setChecked(rotated);
    mFlipped->setChecked(flipped);
    mMirrored->setChecked(mirrored);
}

void FrameEditorWidget::writeFlags()
{
    if (!isValidCell(mSelectedCell))
        return;
    const int number = cellNumber(mSelectedCell);
    mAnimation->setRotate(mCurrentFrame, number, mRotated->isChecked());
    mAnimation->setFlip(mCurrentFrame, number, mFlipped->isChecked());
    mAnimation->setMirror(mCurrentFrame, number, mMirrored->isChecked());
    emit selectedCellChanged(mSelectedCell);
}

void FrameEditorWidget::setRotated(bool rotated)
{
    if (isValidCell(mSelectedCell))
        mAnimation->setRotate(mCurrentFrame, cellNumber(mSelectedCell), rotated);
}

void FrameEditorWidget::setMirrored(bool mirrored)
{
    if (isValidCell(mSelectedCell))
        mAnimation->setMirror(mCurrentFrame, cellNumber(mSelectedCell), mirrored);
}

void FrameEditorWidget::setFlipped(bool flipped)
{
    if (isValidCell(mSelectedCell))
        mAnimation->setFlip(mCurrentFrame, cellNumber(mSelectedCell), flipped);
}

void FrameEditorWidget::setOffset(int offset)
{
    if (isValidCell(mSelectedCell))
        mAnimation->setOffset(mCurrentFrame, cellNumber(mSelectedCell), offset);
}

void FrameEditorWidget::mousePressEvent(QMouseEvent* event)
{
    mPressedButtons = event->buttons();
}

void FrameEditorWidget::mouseReleaseEvent(QMouseEvent* event)
{
    const Qt::MouseButtons buttons = mPressedButtons;
    mPressedButtons = {};
    const QPoint at = cellAt(event->position().toPoint());
    if (!isValidCell(at))
        return;
    selectCell(at);
    if (buttons & Qt::RightButton) {
        const AnimationFrame::Cell state = cell(at);
        setActions(state.rotate, state.flip, state.mirror);
        mMenu.popup(event->globalPosition().toPoint());
    }
}

bool FrameEditorWidget::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const QPoint at = cellAt(help->pos());
        if (isValidCell(at)) {
            const AnimationFrame::Cell state = cell(at);
            QToolTip::showText(help->globalPos(), tr("Index:\t%1\nOffset:\t%2\nFlip\t%3\nMirror:\t%4\nRotate:\t%5")
                                                      .arg(state.index)
                                                      .arg(state.offset)
                                                      .arg(yesNo(state.flip), yesNo(state.mirror),
                                                           yesNo(state.rotate)));
        } else {
            QToolTip::hideText();
        }
        return true;
    }
    return QWidget::event(event);
}

void FrameEditorWidget::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat(dragFormat()))
        event->acceptProposedAction();
}

void FrameEditorWidget::dragMoveEvent(QDragMoveEvent* event)
{
    const QPoint at = cellAt(event->position().toPoint());
    if (at != mDropCell) {
        mDropCell = at;
        update();
    }
    event->acceptProposedAction();
}

void FrameEditorWidget::dragLeaveEvent(QDragLeaveEvent*)
{
    mDropCell = QPoint(-1, -1);
    update();
}

void FrameEditorWidget::dropEvent(QDropEvent* event)
{
    mDropCell = QPoint(-1, -1);
    update();
    event->acceptProposedAction();
    const QPoint at = cellAt(event->position().toPoint());
    if (!isValidCell(at) || !event->mimeData()->hasFormat(dragFormat()))
        return;
    QDataStream stream(event->mimeData()->data(dragFormat()));
    qint32 index = 0;
    stream >> index;
    const int number = cellNumber(at);
    mAnimation->setIndex(mCurrentFrame, number, index);
    if (!isSpriteAnimation()) {
        qint32 offset = 0;
        stream >> offset;
        mAnimation->setOffset(mCurrentFrame, number, offset);
    }
    selectCell(at);
}

QImage FrameEditorWidget::composed(const AnimationFrame& frame) const
{
    // The cells at their own size in one picture, scaled once by the caller:
    // the raster engine hands every picture it scales past a few dozen rows
    // to worker threads, so cell by cell costs a wait per cell.
    const int side = cellSize() / mScale;
    QImage picture(mAnimation->size() * side, QImage::Format_RGB32);
    picture.fill(Qt::black);
    if (!mPainter)
        return picture;
    QPainter painter(&picture);
    for (int row = 0; row < mAnimation->height(); ++row)
        for (int column = 0; column < mAnimation->width(); ++column)
            painter.drawImage(QRect(column * side, row * side, side, side), mPainter(frame.cell(row, column)));
    return picture;
}

void FrameEditorWidget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QSharedPointer<AnimationFrame> frame = mAnimation ? mAnimation->frame(mCurrentFrame) : nullptr;
    if (!frame) {
        painter.fillRect(event->rect(), Qt::darkGray);
        return;
    }
    const int size = cellSize();
    painter.drawImage(QRect(QPoint(0, 0), mAnimation->size() * size), composed(*frame));
    for (const QPoint& marked : { mSelectedCell, mDropCell }) {
        if (!isValidCell(marked))
            continue;
        const QRect box(marked.x() * size, marked.y() * size, size - 1, size - 1);
        QColor tint = palette().color(QPalette::Highlight);
        tint.setAlpha(128);
        painter.fillRect(box, tint);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(Qt::black, 1));
        painter.drawRect(box);
        painter.setPen(QPen(Qt::white, 1, Qt::DotLine));
        painter.drawRect(box);
    }
}

} // namespace AnimationEditor
