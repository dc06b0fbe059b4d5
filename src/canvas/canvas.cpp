#include "canvas/canvas.h"

#include "canvas/canvasclipboard.h"
#include "canvas/canvaspainter.h"
#include "canvas/canvasselection.h"
#include "canvas/canvasviewport.h"
#include "canvas/circlecanvastool.h"
#include "canvas/drawcanvastool.h"
#include "canvas/fillcanvastool.h"
#include "canvas/linecanvastool.h"
#include "canvas/pastecanvastool.h"
#include "canvas/pickcanvastool.h"
#include "canvas/rectanglecanvastool.h"
#include "canvas/selectcanvastool.h"
#include "history/edittarget.h"
#include "model/indexedpixels.h"
#include "model/palette.h"

#include <QDebug>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

using Tintorel::Ui::ToolButton;

namespace {

int sign(int value)
{
    return (value > 0) - (value < 0);
}

// The whole-picture edits of the tool buttons; kind 1 marks the moves, whose
// runs an editor may merge into one step.
struct OneShotEdit
{
    QString text;
    int kind = -1;
    std::function<void(Layer2Image&)> apply;
};

OneShotEdit oneShotEdit(ToolButton button)
{
    switch (button) {
    case ToolButton::RotateCW: return { "Rotate", -1, [](Layer2Image& l) { l.rotate(90, false, false); } };
    case ToolButton::RotateCCW: return { "Rotate", -1, [](Layer2Image& l) { l.rotate(270, false, false); } };
    case ToolButton::Flip: return { "Flip", -1, [](Layer2Image& l) { l.rotate(0, true, false); } };
    case ToolButton::Mirror: return { "Mirror", -1, [](Layer2Image& l) { l.rotate(0, false, true); } };
    case ToolButton::MoveUp: return { "Scroll", 1, [](Layer2Image& l) { l.scrollUp(); } };
    case ToolButton::MoveDown: return { "Scroll", 1, [](Layer2Image& l) { l.scrollDown(); } };
    case ToolButton::MoveLeft: return { "Scroll", 1, [](Layer2Image& l) { l.scrollLeft(); } };
    case ToolButton::MoveRight: return { "Scroll", 1, [](Layer2Image& l) { l.scrollRight(); } };
    default: return {};
    }
}

} // namespace

Canvas::Canvas(const QSize& size, QWidget* parent)
    : QWidget(parent)
    , mLayer(size)
    , mContextMenu(this)
    , mSelection(this)
    , mClipboard(new CanvasClipboard(this))
{
    connect(mClipboard, &CanvasClipboard::pasted, this, &Canvas::setPasteMode);
    connect(mClipboard, &CanvasClipboard::copied, this, [this](bool cut) {
        if (cut) {
            eraseSelection();
            emit imageChanged();
        }
    });
    buildContextMenu();

    mTools.insert(ToolButton::Draw, std::make_shared<DrawCanvasTool>(this));
    mTools.insert(ToolButton::Select, std::make_shared<SelectCanvasTool>(this));
    mTools.insert(ToolButton::Rectangle, std::make_shared<RectangleCanvasTool>(this, false));
    mTools.insert(ToolButton::RectangleFill, std::make_shared<RectangleCanvasTool>(this, true));
    mTools.insert(ToolButton::Line, std::make_shared<LineCanvasTool>(this));
    mTools.insert(ToolButton::Circle, std::make_shared<CircleCanvasTool>(this));
    mTools.insert(ToolButton::Fill, std::make_shared<FillCanvasTool>(this));
    mTools.insert(ToolButton::Pick, std::make_shared<PickCanvasTool>(this));
    mTools.insert(ToolButton::Paste, std::make_shared<PasteCanvasTool>(this));
    mTool = mTools.value(ToolButton::Draw).get();

    setInk(1);
    setPaper(0);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_MouseTracking);
    setFocusPolicy(Qt::StrongFocus);
}

void Canvas::sendEditsTo(EditTarget* target, QObject* context)
{
    connect(this, &Canvas::edited, context,
            [target](const QString& text, const QImage& before, const QImage& after, int kind) {
                target->pushEdit(text, before, after, kind);
            });
}

Canvas::~Canvas() = default;

void Canvas::buildContextMenu()
{
    connect(mContextMenu.addAction(QStringLiteral("Cut")), &QAction::triggered, mClipboard,
            &CanvasClipboard::copyToClipboard);
    connect(mContextMenu.addAction(QStringLiteral("Copy")), &QAction::triggered, mClipboard,
            &CanvasClipboard::copyToClipboard);
    connect(mContextMenu.addAction(QStringLiteral("Paste")), &QAction::triggered, mClipboard,
            &CanvasClipboard::pasteFromClipboard);
    mContextMenu.addSeparator();
    connect(mContextMenu.addAction(QStringLiteral("Select All")), &QAction::triggered, this, &Canvas::selectAll);
    connect(mContextMenu.addAction(QStringLiteral("Select None")), &QAction::triggered, this, &Canvas::selectNone);
    mContextMenu.addSeparator();
    connect(mContextMenu.addAction(QStringLiteral("Erase")), &QAction::triggered, this, &Canvas::eraseSelection);
    connect(mContextMenu.addAction(QStringLiteral("Fill")), &QAction::triggered, this, &Canvas::fillSelection);
}

QSize Canvas::sizeHint() const
{
    return QSize(mLayer.width() * mView.zoom(), mLayer.height() * mView.zoomY());
}

// Modes and tools

void Canvas::setMode(ToolButton button, bool checked)
{
    if (button != ToolButton::Cut && button != ToolButton::Copy)
        selectNone();

    if (const OneShotEdit edit = oneShotEdit(button); edit.apply) {
        doEdit(edit.text, edit.kind, edit.apply);
        mSelection.hide();
        update();
        return;
    }
    switch (button) {
    case ToolButton::Draw:
    case ToolButton::Line:
    case ToolButton::Rectangle:
    case ToolButton::RectangleFill:
    case ToolButton::Circle:
    case ToolButton::Fill:
    case ToolButton::Pick:
        switchTool(button);
        mSelection.hide();
        break;
    case ToolButton::Select:
        switchTool(button);
        break;
    case ToolButton::Paste:
        // Goes on into paste mode, through `pasted`, only with canvas data.
        mClipboard->pasteFromClipboard();
        break;
    case ToolButton::Grid:
        mCheckerVisible = checked;
        break;
    case ToolButton::ZoomIn:
    case ToolButton::ZoomOut:
        zoomBy(button == ToolButton::ZoomIn ? 2 : -2);
        mSelection.hide();
        break;
    case ToolButton::Cut:
        // No "Cut" action is the sender here, so the erase is ours to do.
        mClipboard->copyToClipboard();
        eraseSelection();
        mSelection.hide();
        break;
    case ToolButton::Copy:
        mClipboard->copyToClipboard();
        mSelection.hide();
        break;
    default: {
        QString name;
        QDebug(&name).nospace() << button;
        qInfo().noquote() << QStringLiteral("PaintCanvas::setMode(%1)").arg(name);
        mSelection.hide();
        break;
    }
    }
    update();
}

void Canvas::switchTool(ToolButton button)
{
    mMode = button;
    const auto found = mTools.constFind(button);
    mTool = found == mTools.cend() ? nullptr : found->get();
    if (mTool)
        mTool->activate();
}

void Canvas::setPasteMode(QUuid paletteId)
{
    if (paletteId != (mPalette ? mPalette->id() : QUuid()))
        qInfo() << "Pasting to image with different palette";
    mSelection.hide();
    mMode = ToolButton::Paste;
    mTool = mTools.value(ToolButton::Paste).get();
}

// The edit frame

void Canvas::beginEdit()
{
    mBeforeImage = mLayer.image();
}

void Canvas::doEdit(const QString& text, int kind, const std::function<void(Layer2Image&)>& edit)
{
    beginEdit();
    edit(mLayer);
    update();
    emit imageChanged();
    commitEdit(text, kind);
}

void Canvas::commitEdit(const QString& text, int kind)
{
    if (mBeforeImage.isNull())
        return;
    const QImage before = std::exchange(mBeforeImage, QImage());
    const QImage after = mLayer.image();
    if (sameIndexedPixels(before, after))
        return;
    emit edited(text, before, after, kind);
}

void Canvas::resetPoints()
{
    mStartPixel = QPoint(-1, -1);
    mEndPixel = QPoint(-1, -1);
}

// Picture, palette and drawing indices

void Canvas::setImage(QImage image)
{
    mLayer.setImage(image);
    layoutImage();
    update();
    emit imageChanged();
}

void Canvas::setPalette(QPointer<Palette> palette)
{
    if (mPalette)
        disconnect(mPalette, nullptr, this, nullptr);
    mPalette = palette;
    if (mPalette) {
        mLayer.setPalette(mPalette);
        connect(mPalette, &Palette::colourChanged, this, &Canvas::updatePalette);
    }
    repaint();
}

void Canvas::updatePalette(int, QColor, bool)
{
    mLayer.setPalette(mPalette);
    repaint();
}

void Canvas::paletteChanged(int, int, QColor)
{
    if (!mPalette)
        return;
    mLayer.setPalette(mPalette);
    update();
}

void Canvas::setImageType(int type)
{
    if (type >= int(Tintorel::Ui::ImageType::Ula) && type <= int(Tintorel::Ui::ImageType::Undefined))
        mImageType = Tintorel::Ui::ImageType(type);
}

void Canvas::setDoubleHeight(bool doubleHeight)
{
    mView.setDoubleHeight(doubleHeight);
    layoutImage();
    update();
}

void Canvas::remap(int offset)
{
    if (mImageType != Tintorel::Ui::ImageType::Offset16)
        return;
    mLayer.remap(offset);
    mInk = Layer2Image::banked(mInk, offset);
    mPaper = Layer2Image::banked(mPaper, offset);
    repaint();
}

void Canvas::setInk(int index)
{
    mInk = index;
    mLayer.setInk(index);
}

void Canvas::setPaper(int index)
{
    mPaper = index;
    mLayer.setPaper(index);
}

void Canvas::setForeground(int index)
{
    setInk(index);
    emit foregroundPicked(mInk);
}

void Canvas::setBackground(int index)
{
    setPaper(index);
    emit backgroundPicked(mPaper);
}

// Geometry, zoom and scrolling

void Canvas::layoutImage()
{
    const QPoint largest = mView.layout(rect(), mLayer.rect().size());
    emit scrollValuesChanged(largest.x(), largest.y());
}

void Canvas::resizeEvent(QResizeEvent*)
{
    layoutImage();
}

void Canvas::setZoomLevel(int level)
{
    mView.setZoom(level);
    layoutImage();
}

void Canvas::zoomBy(int step)
{
    mView.setZoom(mView.zoom() + step);
    layoutImage();
}

void Canvas::scrollBy(const QPoint& delta)
{
    mView.scrollBy(delta, mLayer.rect().size());
    update();
    emit scrollPositionChanged(mView.scrollOffset());
}

void Canvas::setHorizontalPosition(int pos)
{
    mView.setScrollOffset(QPoint(mView.scrollOffset().x(), pos));
    update();
}

void Canvas::setVerticalPosition(int pos)
{
    mView.setScrollOffset(QPoint(pos, mView.scrollOffset().y()));
    update();
}

void Canvas::setGridLinesVisible(bool visible)
{
    mGridLinesVisible = visible;
    update();
}

void Canvas::wheelEvent(QWheelEvent* event)
{
    if (!mView.imageArea().contains(CanvasViewport::roundedPoint(event->position()))) {
        event->ignore();
        return;
    }
    const QPoint step(2 * sign(event->angleDelta().x()), 2 * sign(event->angleDelta().y()));
    if (QGuiApplication::keyboardModifiers() & Qt::ControlModifier) {
        zoomBy(step.y() > 0 ? 2 : -2);
        update();
    } else {
        scrollBy(step);
    }
    event->accept();
}

bool Canvas::handleKey(QKeyEvent* event)
{
    if (event->modifiers() != Qt::NoModifier)
        return false;
    switch (event->key()) {
    case Qt::Key_Left: scrollBy(QPoint(1, 0)); break;
    case Qt::Key_Right: scrollBy(QPoint(-1, 0)); break;
    case Qt::Key_Up: scrollBy(QPoint(0, 1)); break;
    case Qt::Key_Down: scrollBy(QPoint(0, -1)); break;
    default: break;
    }
    return false;
}

// Mouse

void Canvas::mousePressEvent(QMouseEvent* event)
{
    // A second button joins the gesture in progress instead of starting
    // another, so one press-to-release stays one edit.
    if (mButtons != Qt::NoButton) {
        mButtons = event->buttons();
        return;
    }
    mButtons = event->buttons();
    mStartPixel = mEndPixel = pixelAt(event->position());
    if (mTool)
        mTool->mousePress(event);
}

void Canvas::mouseMoveEvent(QMouseEvent* event)
{
    // Once per image pixel: moves within one cell change nothing.
    const QPoint pixel = pixelAt(event->position());
    if (pixel == mLastPixel)
        return;
    mLastPixel = mEndPixel = pixel;
    if (mTool && mTool->mouseMove(event))
        repaint();
}

void Canvas::mouseReleaseEvent(QMouseEvent* event)
{
    // The gesture ended at the first release; the other buttons' releases
    // have nothing left to finish.
    if (mButtons == Qt::NoButton)
        return;
    mEndPixel = pixelAt(event->position());
    if (mTool)
        mTool->mouseRelease(event);
    mButtons = Qt::NoButton;
}

// Painting

void Canvas::paintEvent(QPaintEvent*)
{
    if (mLayer.image().isNull() || !mPalette)
        return;
    CanvasPainter painter(this);
    painter.fillBackground();

    // Previews draw on a throw-away copy; the picture itself stays as it is.
    Layer2Image shown(mLayer.rect().size());
    shown.setImage(mLayer.image());
    shown.setInk(mLayer.ink());
    shown.setPaper(mLayer.paper());
    if (mTool && mLayer.rect().contains(mStartPixel))
        mTool->preview(shown);
    painter.drawPicture(shown.image());

    if (mCheckerVisible)
        painter.drawChecker(mCheckerColours, mCheckerAlpha);
    if (mGridLinesVisible)
        painter.drawGridLines();
    if (mTool)
        mTool->paint(painter);
}

// Selection

void Canvas::selectAll()
{
    const QRect area = mView.imageArea();
    mSelection.setAnchor(area.topLeft());
    mSelection.setBand(area.topLeft(), area.bottomRight() + QPoint(1, 1));
}

void Canvas::selectNone()
{
    mSelection.hide();
    mSelection.setAnchor(QPoint(-1, -1));
}

QImage Canvas::selectedImage() const
{
    if (!mSelection.isVisible())
        return mLayer.image().copy();
    // QImage::copy of a null rectangle would copy everything; an empty
    // selection is no picture.
    const QRect selected = mSelection.pixels();
    return selected.isEmpty() ? QImage() : mLayer.image().copy(selected);
}

void Canvas::eraseSelection()
{
    if (!mSelection.isVisible())
        return;
    const QRect selected = mSelection.pixels();
    doEdit(QStringLiteral("Erase"), -1, [&](Layer2Image& layer) { layer.fillRect(selected, mPaper); });
}

void Canvas::fillSelection()
{
    if (!mSelection.isVisible())
        return;
    const QRect selected = mSelection.pixels();
    doEdit(QStringLiteral("Fill"), -1, [&](Layer2Image& layer) { layer.fillRect(selected, mInk); });
}

void Canvas::openContextMenu(const QPoint& globalPosition)
{
    mContextMenu.exec(globalPosition);
}

// Clipboard

CanvasClipboard* Canvas::clipboard() const
{
    return mClipboard;
}

void Canvas::cut()
{
    mClipboard->copyToClipboard();
    eraseSelection();
}

void Canvas::copy()
{
    mClipboard->copyToClipboard();
}

void Canvas::paste()
{
    mClipboard->pasteFromClipboard();
}
