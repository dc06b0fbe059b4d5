#include "canvas/canvas.h"
#include "canvas/canvasclipboard.h"
#include "canvas/scrollcanvas.h"
#include "model/indexedpixels.h"
#include "model/palette.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

using Tintorel::Ui::ToolButton;

namespace {

constexpr int Zoom = 16;
constexpr int Margin = 32;

// A screen point in the cell of `pixel`. Widget to image truncates toward
// zero, so a cell left of or above the image lies half a step further out.
QPoint screenOf(const Canvas& canvas, const QPoint& pixel)
{
    auto at = [](int origin, int cell, int step) { return origin + cell * step + (cell < 0 ? -step : step) / 2; };
    return QPoint(at(canvas.imageArea().left(), pixel.x(), canvas.zoom()),
                  at(canvas.imageArea().top(), pixel.y(), canvas.zoomY()));
}

// A move with no button down, as mouse tracking delivers it.
void hover(Canvas& canvas, const QPoint& pixel)
{
    const QPoint at = screenOf(canvas, pixel);
    QMouseEvent event(QEvent::MouseMove, at, canvas.mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&canvas, &event);
}

int changedPixels(const QImage& a, const QImage& b)
{
    int changed = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            changed += a.pixelIndex(x, y) != b.pixelIndex(x, y);
    return changed;
}

// The names of the canvas's signals in the order they came.
struct SignalLog
{
    explicit SignalLog(Canvas& canvas)
    {
        QObject::connect(&canvas, &Canvas::imageChanged, [this] { names << "imageChanged"; });
        QObject::connect(&canvas, &Canvas::edited, [this](const QString& text, const QImage& b, const QImage& a, int k) {
            names << "edited";
            texts << text;
            before = b;
            after = a;
            kind = k;
        });
    }
    QStringList names;
    QStringList texts;
    QImage before;
    QImage after;
    int kind = 0;
};

} // namespace

class TestCanvas : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void shapeClickSetsOnePixel_data();
    void shapeClickSetsOnePixel();
    void dragPreviewsOnlyFromInside_data();
    void dragPreviewsOnlyFromInside();
    void strokeIsOneEdit();
    void strokeOutsideImageReportsNothing();
    void fillWithBothButtonsEndsInPaper();
    void fillOnSameIndexLeavesNoEdit();
    void indexOfTheSameColourIsAnEdit();
    void pickOnRelease_data();
    void pickOnRelease();
    void oneShotEdits_data();
    void oneShotEdits();
    void fourQuarterTurnsAreFourEdits();
    void moveOnOnePixelWideLeavesNoEdit();
    void unknownModeOnlyLogs();
    void zoomSteps_data();
    void zoomSteps();
    void wheel();
    void keysScrollAndResizeResets();
    void doubleHeight();
    void scrollBarsDriveCrossedSlots();
    void inkBeyondTable();
    void remapOnlyForFourBitImages();
    void selectionLeavesFarCornerOut();
    void contextMenuCutErasesCopyDoesNot();
    void rightClickOpensMenuAndKeepsBand();

private:
    Palette mPalette;
    Canvas* mCanvas = nullptr;
};

void TestCanvas::init()
{
    mPalette.loadStandard();
    mCanvas = new Canvas(QSize(8, 6));
    mCanvas->setPalette(&mPalette);
    mCanvas->resize(8 * Zoom + 2 * Margin, 6 * Zoom + 2 * Margin);
    mCanvas->show();
    QVERIFY(QTest::qWaitForWindowExposed(mCanvas));
    QCOMPARE(mCanvas->imageArea(), QRect(Margin, Margin, 8 * Zoom, 6 * Zoom));
}

void TestCanvas::cleanup()
{
    delete mCanvas;
    mCanvas = nullptr;
}

void TestCanvas::shapeClickSetsOnePixel_data()
{
    QTest::addColumn<ToolButton>("tool");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<QString>("text");
    const QList<std::pair<ToolButton, QString>> shapes = { { ToolButton::Line, "Line" },
                                                           { ToolButton::Rectangle, "Rectangle" },
                                                           { ToolButton::RectangleFill, "Filled Rectangle" },
                                                           { ToolButton::Circle, "Circle" } };
    for (const auto& [tool, text] : shapes) {
        QTest::addRow("%s, left button", qPrintable(text)) << tool << Qt::LeftButton << text;
        QTest::addRow("%s, right button draws ink too", qPrintable(text)) << tool << Qt::RightButton << text;
    }
}

void TestCanvas::shapeClickSetsOnePixel()
{
    QFETCH(ToolButton, tool);
    QFETCH(Qt::MouseButton, button);
    QFETCH(QString, text);
    mCanvas->setMode(tool, true);
    mCanvas->setInk(7);
    SignalLog log(*mCanvas);
    QTest::mouseClick(mCanvas, button, {}, screenOf(*mCanvas, QPoint(3, 2)));

    QCOMPARE(log.names, QStringList({ "imageChanged", "edited" }));
    QCOMPARE(log.texts, QStringList { text });
    QCOMPARE(log.kind, -1);
    QCOMPARE(changedPixels(log.before, log.after), 1);
    QCOMPARE(mCanvas->image().pixelIndex(3, 2), 7);
}

void TestCanvas::dragPreviewsOnlyFromInside_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<bool>("previewed");
    QTest::newRow("from inside") << QPoint(0, 2) << true;
    QTest::newRow("from the margin") << QPoint(-1, 2) << false;
}

void TestCanvas::dragPreviewsOnlyFromInside()
{
    QFETCH(QPoint, from);
    QFETCH(bool, previewed);
    mCanvas->setMode(ToolButton::Line, true);
    mCanvas->setInk(255); // white in the standard palette
    const QImage start = mCanvas->image();
    SignalLog log(*mCanvas);

    QTest::mousePress(mCanvas, Qt::LeftButton, {}, screenOf(*mCanvas, from));
    QTest::mouseMove(mCanvas, screenOf(*mCanvas, QPoint(5, 2)));
    const QImage shown = mCanvas->grab().toImage();
    QCOMPARE(QColor(shown.pixel(screenOf(*mCanvas, QPoint(3, 2)))) == Qt::white, previewed);
    QVERIFY(sameIndexedPixels(mCanvas->image(), start)); // a preview paints no pixel
    QVERIFY(log.names.isEmpty());

    QTest::mouseRelease(mCanvas, Qt::LeftButton, {}, screenOf(*mCanvas, QPoint(5, 2)));
    QCOMPARE(log.texts, QStringList { "Line" });
    QCOMPARE(changedPixels(start, mCanvas->image()), 6); // columns 0 to 5; the margin takes nothing
    QCOMPARE(mCanvas->image().pixelIndex(0, 2), 255);
}

void TestCanvas::strokeIsOneEdit()
{
    mCanvas->setPaper(9);
    SignalLog log(*mCanvas);
    hover(*mCanvas, QPoint(1, 1));
    QTest::mousePress(mCanvas, Qt::RightButton, {}, screenOf(*mCanvas, QPoint(1, 1)));
    for (int x = 2; x <= 4; ++x)
        QTest::mouseMove(mCanvas, screenOf(*mCanvas, QPoint(x, 1)));
    QTest::mouseRelease(mCanvas, Qt::RightButton, {}, screenOf(*mCanvas, QPoint(4, 1)));

    QCOMPARE(log.names, QStringList({ "imageChanged", "edited" }));
    QCOMPARE(log.texts, QStringList { "Draw" });
    QCOMPARE(changedPixels(log.before, log.after), 4);
    QCOMPARE(mCanvas->image().pixelIndex(1, 1), 9);
    QCOMPARE(mCanvas->image().pixelIndex(4, 1), 9);
}

void TestCanvas::strokeOutsideImageReportsNothing()
{
    SignalLog log(*mCanvas);
    const QImage start = mCanvas->image();
    hover(*mCanvas, QPoint(-1, 0));
    QTest::mousePress(mCanvas, Qt::LeftButton, {}, screenOf(*mCanvas, QPoint(-1, 0)));
    QTest::mouseMove(mCanvas, screenOf(*mCanvas, QPoint(-1, 3)));
    QTest::mouseMove(mCanvas, QPoint(1, 1));
    QTest::mouseRelease(mCanvas, Qt::LeftButton, {}, QPoint(1, 1));
    QCOMPARE(log.names, QStringList { "imageChanged" });
    QVERIFY(sameIndexedPixels(mCanvas->image(), start));
}

void TestCanvas::fillWithBothButtonsEndsInPaper()
{
    mCanvas->setMode(ToolButton::Fill, true);
    mCanvas->setInk(5);
    mCanvas->setPaper(9);
    SignalLog log(*mCanvas);
    const QPoint at = screenOf(*mCanvas, QPoint(2, 2));
    hover(*mCanvas, QPoint(2, 2));
    QTest::mousePress(mCanvas, Qt::LeftButton, {}, at);
    QTest::mousePress(mCanvas, Qt::RightButton, {}, at);
    QTest::mouseRelease(mCanvas, Qt::RightButton, {}, at);
    QTest::mouseRelease(mCanvas, Qt::LeftButton, {}, at); // the gesture is over already

    QCOMPARE(log.names, QStringList({ "imageChanged", "edited" }));
    QCOMPARE(log.texts, QStringList { "Fill" });
    QCOMPARE(changedPixels(log.before, log.after), 48);
    QCOMPARE(mCanvas->image().pixelIndex(7, 5), 9);
}

void TestCanvas::fillOnSameIndexLeavesNoEdit()
{
    mCanvas->setMode(ToolButton::Fill, true);
    mCanvas->setInk(0);
    SignalLog log(*mCanvas);
    hover(*mCanvas, QPoint(2, 2));
    QTest::mouseClick(mCanvas, Qt::LeftButton, {}, screenOf(*mCanvas, QPoint(2, 2)));
    QCOMPARE(log.names, QStringList { "imageChanged" });
}

void TestCanvas::indexOfTheSameColourIsAnEdit()
{
    Palette red;
    red.fill(Qt::red, false);
    mCanvas->setPalette(&red);
    mCanvas->setMode(ToolButton::Fill, true);
    mCanvas->setInk(5);
    QSignalSpy edits(mCanvas, &Canvas::edited);
    hover(*mCanvas, QPoint(2, 2));
    QTest::mouseClick(mCanvas, Qt::LeftButton, {}, screenOf(*mCanvas, QPoint(2, 2)));
    QCOMPARE(edits.count(), 1);
    mCanvas->setPalette(&mPalette);
}

void TestCanvas::pickOnRelease_data()
{
    QTest::addColumn<QPoint>("pixel");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<int>("foreground");
    QTest::addColumn<int>("background");
    QTest::newRow("left picks ink") << QPoint(3, 4) << Qt::LeftButton << 42 << -1;
    QTest::newRow("right picks paper") << QPoint(3, 4) << Qt::RightButton << -1 << 42;
    QTest::newRow("margin picks nothing") << QPoint(8, 4) << Qt::LeftButton << -1 << -1;
}

void TestCanvas::pickOnRelease()
{
    QFETCH(QPoint, pixel);
    QFETCH(Qt::MouseButton, button);
    QFETCH(int, foreground);
    QFETCH(int, background);
    QImage image = mCanvas->image();
    image.setPixel(3, 4, 42);
    mCanvas->setImage(image);
    mCanvas->setMode(ToolButton::Pick, true);
    QSignalSpy inks(mCanvas, &Canvas::foregroundPicked);
    QSignalSpy papers(mCanvas, &Canvas::backgroundPicked);
    hover(*mCanvas, pixel);
    QTest::mouseClick(mCanvas, button, {}, screenOf(*mCanvas, pixel));

    QCOMPARE(inks.count(), foreground < 0 ? 0 : 1);
    QCOMPARE(papers.count(), background < 0 ? 0 : 1);
    if (foreground >= 0)
        QCOMPARE(inks.first().first().toInt(), foreground);
    if (background >= 0)
        QCOMPARE(mCanvas->paper(), background);
}

void TestCanvas::oneShotEdits_data()
{
    QTest::addColumn<ToolButton>("button");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QPoint>("movedTo"); // where the pixel at (0, 0) ends
    QTest::newRow("rotate clockwise") << ToolButton::RotateCW << "Rotate" << -1 << QPoint(3, 0);
    QTest::newRow("rotate anticlockwise") << ToolButton::RotateCCW << "Rotate" << -1 << QPoint(0, 3);
    QTest::newRow("flip") << ToolButton::Flip << "Flip" << -1 << QPoint(0, 3);
    QTest::newRow("mirror") << ToolButton::Mirror << "Mirror" << -1 << QPoint(3, 0);
    QTest::newRow("move up") << ToolButton::MoveUp << "Scroll" << 1 << QPoint(0, 3);
    QTest::newRow("move down") << ToolButton::MoveDown << "Scroll" << 1 << QPoint(0, 1);
    QTest::newRow("move left") << ToolButton::MoveLeft << "Scroll" << 1 << QPoint(3, 0);
    QTest::newRow("move right") << ToolButton::MoveRight << "Scroll" << 1 << QPoint(1, 0);
}

void TestCanvas::oneShotEdits()
{
    QFETCH(ToolButton, button);
    QFETCH(QString, text);
    QFETCH(int, kind);
    QFETCH(QPoint, movedTo);
    Canvas canvas(QSize(4, 4));
    QImage image = canvas.image();
    image.setPixel(0, 0, 3);
    canvas.setImage(image);
    canvas.selectAll();
    SignalLog log(canvas);
    canvas.setMode(button, false);

    QCOMPARE(log.names, QStringList({ "imageChanged", "edited" }));
    QCOMPARE(log.texts, QStringList { text });
    QCOMPARE(log.kind, kind);
    QCOMPARE(canvas.image().pixelIndex(movedTo), 3);
    QCOMPARE(canvas.image().pixelIndex(0, 0), 0);
    QVERIFY(!canvas.selection().isVisible());
}

void TestCanvas::fourQuarterTurnsAreFourEdits()
{
    auto* square = new Canvas(QSize(4, 4));
    QImage image = square->image();
    for (int i = 0; i < 16; ++i)
        image.setPixel(i % 4, i / 4, i);
    square->setImage(image);
    QSignalSpy edits(square, &Canvas::edited);
    for (int i = 0; i < 4; ++i)
        square->setMode(ToolButton::RotateCW, false);
    QCOMPARE(edits.count(), 4);
    QVERIFY(sameIndexedPixels(square->image(), image));
    delete square;
}

void TestCanvas::moveOnOnePixelWideLeavesNoEdit()
{
    Canvas narrow(QSize(1, 4));
    QImage image = narrow.image();
    image.setPixel(0, 2, 5);
    narrow.setImage(image);
    SignalLog log(narrow);
    narrow.setMode(ToolButton::MoveLeft, false);
    QCOMPARE(log.names, QStringList { "imageChanged" });
}

void TestCanvas::unknownModeOnlyLogs()
{
    mCanvas->selectAll();
    SignalLog log(*mCanvas);
    QTest::ignoreMessage(QtInfoMsg, "PaintCanvas::setMode(Tintorel::Ui::CircleFill)");
    mCanvas->setMode(ToolButton::CircleFill, true);
    QCOMPARE(mCanvas->mode(), ToolButton::Draw);
    QVERIFY(log.names.isEmpty());
    QVERIFY(!mCanvas->selection().isVisible());
}

void TestCanvas::zoomSteps_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<ToolButton>("button");
    QTest::addColumn<int>("zoom");
    QTest::newRow("64 stays 64") << 64 << ToolButton::ZoomIn << 64;
    QTest::newRow("1 stays 1") << 1 << ToolButton::ZoomOut << 1;
    QTest::newRow("2 down gives 1") << 2 << ToolButton::ZoomOut << 1;
    QTest::newRow("1 up gives 3") << 1 << ToolButton::ZoomIn << 3;
    QTest::newRow("level clamped up to 1") << -5 << ToolButton::Draw << 1;
    QTest::newRow("level clamped down to 64") << 99 << ToolButton::Draw << 64;
}

void TestCanvas::zoomSteps()
{
    QFETCH(int, level);
    QFETCH(ToolButton, button);
    QFETCH(int, zoom);
    mCanvas->setZoomLevel(level);
    mCanvas->setMode(button, false);
    QCOMPARE(mCanvas->zoom(), zoom);
    QCOMPARE(mCanvas->sizeHint(), QSize(8, 6) * zoom);
}

void TestCanvas::wheel()
{
    auto send = [this](const QPoint& at, const QPoint& delta) {
        QWheelEvent event(at, mCanvas->mapToGlobal(at), QPoint(), delta, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(mCanvas, &event);
        return event.isAccepted();
    };
    QVERIFY(!send(QPoint(2, 2), QPoint(0, 120))); // the margin is left alone
    QCOMPARE(mCanvas->zoom(), Zoom);

    // The modifier comes from the application's keyboard state.
    QTest::keyPress(mCanvas, Qt::Key_Control, Qt::ControlModifier);
    QVERIFY(send(screenOf(*mCanvas, QPoint(1, 1)), QPoint(0, 120)));
    QCOMPARE(mCanvas->zoom(), Zoom + 2);
    QVERIFY(send(screenOf(*mCanvas, QPoint(1, 1)), QPoint(120, 0))); // purely horizontal zooms out
    QCOMPARE(mCanvas->zoom(), Zoom);
    QTest::keyRelease(mCanvas, Qt::Key_Control, Qt::NoModifier);
}

void TestCanvas::keysScrollAndResizeResets()
{
    Canvas canvas(QSize(64, 64));
    canvas.resize(160, 160); // ten cells of sixteen
    canvas.show();
    QSignalSpy positions(&canvas, &Canvas::scrollPositionChanged);
    auto key = [&canvas](Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::ShortcutOverride, code, modifiers);
        QVERIFY(!canvas.handleKey(&event));
    };
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    key(Qt::Key_Down);
    key(Qt::Key_Left, Qt::ShiftModifier); // modified keys are the editors'
    QCOMPARE(canvas.scrollOffset(), QPoint(2, 1));
    QCOMPARE(positions.count(), 3);
    for (int i = 0; i < 60; ++i)
        key(Qt::Key_Right);
    QCOMPARE(canvas.scrollOffset(), QPoint(54, 1)); // 64 less the 10 that show
    key(Qt::Key_Up);
    key(Qt::Key_Up);
    QCOMPARE(canvas.scrollOffset(), QPoint(54, 0));

    canvas.resize(2000, 2000);
    QCOMPARE(canvas.scrollOffset(), QPoint(0, 0));
}

void TestCanvas::doubleHeight()
{
    Canvas canvas(QSize(8, 8));
    canvas.setZoomLevel(4);
    canvas.setDoubleHeight(true);
    QSignalSpy amounts(&canvas, &Canvas::scrollValuesChanged);
    canvas.resize(32, 32); // all 8 columns, 4 double rows
    canvas.show();
    QCOMPARE(canvas.imageArea().size(), QSize(32, 32));
    QCOMPARE(canvas.pixelAt(QPointF(0, 15)), QPoint(0, 1)); // a pair of screen rows is one pixel
    // The bar's maximum counts single rows, the keyboard's clamp double ones.
    QCOMPARE(amounts.last(), (QVariantList { 0, 0 }));
    QKeyEvent down(QEvent::ShortcutOverride, Qt::Key_Down, Qt::NoModifier);
    for (int i = 0; i < 10; ++i)
        canvas.handleKey(&down);
    QCOMPARE(canvas.scrollOffset(), QPoint(0, 4));

    canvas.selectAll();
    QCOMPARE(canvas.selection().pixels(), QRect(0, 4, 8, 4));
    canvas.resize(64, 128);
    canvas.selectAll();
    QCOMPARE(canvas.selection().pixels(), QRect(0, 0, 8, 8));
}

void TestCanvas::scrollBarsDriveCrossedSlots()
{
    ScrollCanvas scroll(QSize(64, 32));
    scroll.resize(200, 200);
    scroll.show();
    QVERIFY(QTest::qWaitForWindowExposed(&scroll));
    QVERIFY(scroll.horizontalScrollBar()->isVisible());
    QVERIFY(scroll.verticalScrollBar()->isVisible());
    scroll.verticalScrollBar()->setValue(3);
    scroll.horizontalScrollBar()->setValue(5);
    QCOMPARE(scroll.canvas()->scrollOffset(), QPoint(5, 3));

    QKeyEvent right(QEvent::ShortcutOverride, Qt::Key_Right, Qt::NoModifier);
    scroll.canvas()->handleKey(&right);
    QCOMPARE(scroll.horizontalScrollBar()->value(), 6);

    scroll.updateScrollAmounts(0, 4);
    QVERIFY(!scroll.horizontalScrollBar()->isVisible());
    QCOMPARE(scroll.verticalScrollBar()->maximum(), 4);
}

void TestCanvas::inkBeyondTable()
{
    mCanvas->setInk(256);
    QCOMPARE(mCanvas->ink(), 256);
    QCOMPARE(mCanvas->layer().ink(), 256);
    mCanvas->setInk(257);
    QCOMPARE(mCanvas->ink(), 257);
    QCOMPARE(mCanvas->layer().ink(), 256);
}

void TestCanvas::remapOnlyForFourBitImages()
{
    QImage image = mCanvas->image();
    image.setPixel(1, 1, 0x13);
    mCanvas->setImage(image);
    mCanvas->setInk(0x05);
    SignalLog log(*mCanvas);
    mCanvas->remap(3);
    QCOMPARE(mCanvas->image().pixelIndex(1, 1), 0x13);

    mCanvas->setImageType(int(Tintorel::Ui::ImageType::Offset16));
    mCanvas->remap(3);
    QCOMPARE(mCanvas->image().pixelIndex(1, 1), 0x23);
    QCOMPARE(mCanvas->image().pixelIndex(0, 0), 0x20);
    QCOMPARE(mCanvas->ink(), 0x25);
    QVERIFY(log.names.isEmpty()); // the editors record this change themselves
}

void TestCanvas::selectionLeavesFarCornerOut()
{
    mCanvas->setMode(ToolButton::Select, true);
    QTest::mousePress(mCanvas, Qt::LeftButton, {}, screenOf(*mCanvas, QPoint(1, 1)));
    QTest::mouseMove(mCanvas, screenOf(*mCanvas, QPoint(4, 3)));
    QTest::mouseRelease(mCanvas, Qt::LeftButton, {}, screenOf(*mCanvas, QPoint(4, 3)));
    QCOMPARE(mCanvas->selection().band().width(), 3 * Zoom + 1);
    QCOMPARE(mCanvas->selection().pixels(), QRect(1, 1, 3, 2));
    QCOMPARE(mCanvas->selectedImage().size(), QSize(3, 2));
    QCOMPARE(mCanvas->selection().anchor(), QPoint(-1, -1));

    // Within one cell: an empty selection, and no picture at all.
    QTest::mousePress(mCanvas, Qt::LeftButton, {}, screenOf(*mCanvas, QPoint(2, 2)));
    QTest::mouseRelease(mCanvas, Qt::LeftButton, {}, screenOf(*mCanvas, QPoint(2, 2)) + QPoint(3, 3));
    QVERIFY(mCanvas->selection().pixels().isEmpty());
    QVERIFY(mCanvas->selectedImage().isNull());

    mCanvas->selectNone();
    QCOMPARE(mCanvas->selectedImage().size(), QSize(8, 6));
}

void TestCanvas::contextMenuCutErasesCopyDoesNot()
{
    QImage image = mCanvas->image();
    image.fill(4);
    mCanvas->setImage(image);
    mCanvas->setPaper(2);
    QMenu* menu = mCanvas->findChild<QMenu*>();
    QVERIFY(menu);
    auto action = [menu](const QString& text) {
        for (QAction* a : menu->actions())
            if (a->text() == text)
                return a;
        return static_cast<QAction*>(nullptr);
    };
    mCanvas->selectAll();
    SignalLog log(*mCanvas);
    action("Copy")->trigger();
    QVERIFY(log.names.isEmpty());
    action("Cut")->trigger();
    QCOMPARE(log.names, QStringList({ "imageChanged", "edited", "imageChanged" }));
    QCOMPARE(log.texts, QStringList { "Erase" });
    QCOMPARE(mCanvas->image().pixelIndex(7, 5), 2);
}

void TestCanvas::rightClickOpensMenuAndKeepsBand()
{
    mCanvas->setMode(ToolButton::Select, true);
    mCanvas->selectAll();
    const QRect band = mCanvas->selection().band();
    QStringList texts;
    QTimer::singleShot(0, this, [&texts] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        for (QAction* a : menu->actions())
            texts << (a->isSeparator() ? "-" : a->text());
        menu->close();
    });
    QTest::mouseClick(mCanvas, Qt::RightButton, {}, screenOf(*mCanvas, QPoint(2, 2)));
    QCOMPARE(texts, QStringList({ "Cut", "Copy", "Paste", "-", "Select All", "Select None", "-", "Erase", "Fill" }));
    QCOMPARE(mCanvas->selection().band(), band);
    QCOMPARE(mCanvas->selection().anchor(), screenOf(*mCanvas, QPoint(2, 2)));
}

QTEST_MAIN(TestCanvas)
#include "tst_canvas.moc"
