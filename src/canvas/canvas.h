#pragma once
#include "canvas/canvasselection.h"
#include "canvas/canvasviewport.h"
#include "canvas/layer2image.h"
#include "model/tintorelui.h"

#include <QColor>
#include <QHash>
#include <QImage>
#include <QMenu>
#include <QPointer>
#include <QUuid>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>

class EditTarget;

class CanvasClipboard;
class CanvasTool;
class Palette;
class QKeyEvent;

// The one pixel-editing surface: an indexed image shown through a palette at
// an integer zoom, with a rubber-band selection. The mouse goes to the
// current tool; each finished gesture is reported as `edited` with the
// picture before and after. The editors own the picture and the undo.
class Canvas : public QWidget
{
    Q_OBJECT
public:
    // `size` is the image's size in pixels.
    explicit Canvas(const QSize& size, QWidget* parent = nullptr);
    ~Canvas() override;

    // Every finished edit goes to `target` as an undo step, while `context` lives.
    void sendEditsTo(EditTarget* target, QObject* context);

    QSize sizeHint() const override;

    // Every tool button of the editors comes here.
    void setMode(Tintorel::Ui::ToolButton button, bool checked);
    Tintorel::Ui::ToolButton mode() const { return mMode; }

    QPointer<Palette> colourPalette() const { return mPalette; }
    using QWidget::setPalette;
    void setPalette(QPointer<Palette> palette);
    Tintorel::Ui::ImageType imageType() const { return mImageType; }
    // Values outside Tintorel::Ui::ImageType are ignored.
    void setImageType(int type);
    bool doubleHeight() const { return mView.doubleHeight(); }
    // Each image row then takes two zoomed rows on screen.
    void setDoubleHeight(bool doubleHeight);
    int reserved() const { return mReserved; }

    // setInk or setPaper, then the matching signal; what the Pick tool uses.
    void setForeground(int index);
    void setBackground(int index);

    // The arrow-key scroll, for the editors' ShortcutOverride handling.
    // Always false, so the event goes on to the base class.
    bool handleKey(QKeyEvent* event);

    QImage image() const { return mLayer.image(); }
    // The selection when the band shows, else the whole picture.
    QImage selectedImage() const;
    CanvasSelection& selection() { return mSelection; }
    const CanvasSelection& selection() const { return mSelection; }
    int zoom() const { return mView.zoom(); }
    int zoomY() const { return mView.zoomY(); }
    QPoint scrollOffset() const { return mView.scrollOffset(); }
    QRect imageArea() const { return mView.imageArea(); }
    bool checkerVisible() const { return mCheckerVisible; }
    bool gridLinesVisible() const { return mGridLinesVisible; }
    int ink() const { return mInk; }
    int paper() const { return mPaper; }
    CanvasClipboard* clipboard() const;

    // The frame of every one-shot edit: snapshot, `edit`, imageChanged,
    // commitEdit. `kind` is 1 for the pixel moves and -1 for all else.
    void doEdit(const QString& text, int kind, const std::function<void(Layer2Image&)>& edit);
    // Emits `edited` when the picture differs from the snapshot that
    // beginEdit took, and drops the snapshot either way.
    void commitEdit(const QString& text, int kind);

    // What the tools read and drive.
    Layer2Image& layer() { return mLayer; }
    QPoint startPixel() const { return mStartPixel; }
    QPoint endPixel() const { return mEndPixel; }
    QPoint lastPixel() const { return mLastPixel; }
    Qt::MouseButtons buttons() const { return mButtons; }
    QPoint pixelAt(const QPointF& position) const { return mView.pixelAt(position); }
    void beginEdit();
    // Start and end to (-1, -1): no shape is being dragged.
    void resetPoints();
    // Blocks until the menu closes.
    void openContextMenu(const QPoint& globalPosition);

public slots:
    // The names are crossed: each stores the other axis. The scroll bars
    // are wired to match.
    void setHorizontalPosition(int pos);
    void setVerticalPosition(int pos);
    void selectAll();
    void selectNone();
    void cut();
    void copy();
    void paste();
    void setPasteMode(QUuid paletteId);
    void setZoomLevel(int level);
    void setGridLinesVisible(bool visible);
    void setInk(int index);
    void setPaper(int index);
    void setImage(QImage image);
    void paletteChanged(int first, int last, QColor colour);
    void remap(int offset);
    void updatePalette(int index, QColor colour, bool priority);
    void eraseSelection();
    void fillSelection();

signals:
    // The largest scroll offsets after a change of geometry.
    void scrollValuesChanged(int horizontal, int vertical);
    void scrollPositionChanged(QPoint pos);
    void imageChanged();
    // `kind` is 1 for a pixel move ("Scroll") and -1 for every other edit.
    void edited(QString text, QImage before, QImage after, int kind);
    void foregroundPicked(int index);
    void backgroundPicked(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void buildContextMenu();
    void switchTool(Tintorel::Ui::ToolButton button);
    // Fits the image area to the widget; the resize rule.
    void layoutImage();
    void zoomBy(int step);
    void scrollBy(const QPoint& delta);

    QPointer<Palette> mPalette;
    Layer2Image mLayer;
    QMenu mContextMenu;
    bool mCheckerVisible = false;
    bool mGridLinesVisible = false;
    int mCheckerAlpha = 80;
    CanvasViewport mView; // zoom, double height, scroll offset, image area
    int mReserved = 0;
    int mInk = 1;
    int mPaper = 0;
    Tintorel::Ui::ImageType mImageType = Tintorel::Ui::ImageType::Full256;
    Tintorel::Ui::ToolButton mMode = Tintorel::Ui::Draw;
    QPoint mLastPixel;
    std::array<QColor, 2> mCheckerColours { QColor(0x40, 0x40, 0x40), QColor(0x50, 0x50, 0x50) };
    Qt::MouseButtons mButtons;
    CanvasSelection mSelection;
    QPointer<CanvasClipboard> mClipboard;
    QPoint mStartPixel { -1, -1 };
    QPoint mEndPixel { -1, -1 };
    QImage mBeforeImage;
    QHash<int, std::shared_ptr<CanvasTool>> mTools;
    CanvasTool* mTool = nullptr;
};
