#include "canvas/canvas.h"
#include "canvas/canvasclipboard.h"
#include "canvas/scrollcanvas.h"
#include "model/indexedpixels.h"
#include "model/palette.h"

#include <QApplication>
#include <QMenu>
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

void setPixel(Canvas& canvas, const QPoint& pixel, int index)
{
    QImage image = canvas.image();
    image.setPixel(pixel, index);
    canvas.setImage(image);
}

int changedPixels(const QImage& a, const QImage& b)
{
    int changed = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            changed += a.pixelIndex(x, y) != b.pixelIndex(x, y);
    return changed;
}

// The canvas's edit signals in the order they came, with the last edit.
struct SignalLog
{
    explicit SignalLog(Canvas& canvas)
    {
        QObject::connect(&canvas, &Canvas::imageChanged, [this] { names << "imageChanged"; });
        QObject::connect(&canvas, &Canvas::edited, [this](const QString& text, const QImage& b, const QImage& a, int k) {
            names << "edited";
            texts << text;
            changed = changedPixels(b, a);
            kind = k;
        });
    }
    QStringList names;
    QStringList texts;
    int changed = 0;
    int kind = 0;
};

const QStringList Edit = { "imageChanged", "edited" };

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
    void drawStroke_data();
    void drawStroke();
    void fill_data();
    void fill();
    void pickOnRelease_data();
    void pickOnRelease();
    void oneShotEdits_data();
    void oneShotEdits();
    void fourQuarterTurnsAreFourEdits();
    void moveOnOnePixelWideLeavesNoEdit();
    void unknownModeOnlyLogs();
    void remapOnlyForFourBitImages();
    void zoomSteps_data();
    void zoomSteps();
    void wheel();
    void scrolling();
    void doubleHeight();
    void selectionLeavesFarCornerOut();
    void contextMenu();

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

    QCOMPARE(log.names, Edit);
    QCOMPARE(log.texts, QStringList { text });
    QCOMPARE(log.kind, -1);
    QCOMPARE(log.changed, 1);
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
    QCOMPARE(log.changed, 6); // columns 0 to 5; the margin takes nothing
}

void TestCanvas::drawStroke_data()
{
    QTest::addColumn<QPolygon>("path");
    QTest::addColumn<int>("changed");
    QTest::newRow("inside: one edit") << QPolygon({ { 1, 1 }, { 2, 1 }, { 3, 1 }, { 4, 1 } }) << 4;
    QTest::newRow("over the edge: what is inside") << QPolygon({ { 6, 1 }, { 7, 1 }, { 8, 1 }, { 9, 2 } }) << 2;
    QTest::newRow("outside: no edit") << QPolygon({ { -1, 0 }, { -1, 3 }, { -2, -2 } }) << 0;
}

void TestCanvas::drawStroke()
{
    QFETCH(QPolygon, path);
    QFETCH(int, changed);
    mCanvas->setPaper(9);
    SignalLog log(*mCanvas);
    hover(*mCanvas, path.first());
    QTest::mousePress(mCanvas, Qt::RightButton, {}, screenOf(*mCanvas, path.first()));
    for (const QPoint& pixel : path)
        QTest::mouseMove(mCanvas, screenOf(*mCanvas, pixel));
    QTest::mouseRelease(mCanvas, Qt::RightButton, {}, screenOf(*mCanvas, path.last()));

    QCOMPARE(log.names, changed ? Edit : QStringList { "imageChanged" });
    QCOMPARE(log.texts, changed ? QStringList { "Draw" } : QStringList());
    QCOMPARE(log.changed, changed);
}

void TestCanvas::fill_data()
{
    QTest::addColumn<bool>("withRight");
    QTest::addColumn<int>("ink");
    QTest::addColumn<bool>("oneColour");
    QTest::addColumn<int>("result");
    QTest::newRow("left fills with ink") << false << 5 << false << 5;
    QTest::newRow("both buttons end in paper") << true << 5 << false << 9;
    QTest::newRow("the index already there: no edit") << false << 0 << false << 0;
    QTest::newRow("another index of the same colour is an edit") << false << 5 << true << 5;
}

void TestCanvas::fill()
{
    QFETCH(bool, withRight);
    QFETCH(int, ink);
    QFETCH(bool, oneColour);
    QFETCH(int, result);
    Palette red;
    red.fill(Qt::red, false);
    if (oneColour)
        mCanvas->setPalette(&red);
    mCanvas->setMode(ToolButton::Fill, true);
    mCanvas->setInk(ink);
    mCanvas->setPaper(9);
    SignalLog log(*mCanvas);
    const QPoint at = screenOf(*mCanvas, QPoint(2, 2));
    hover(*mCanvas, QPoint(2, 2));
    QTest::mousePress(mCanvas, Qt::LeftButton, {}, at);
    if (withRight) {
        QTest::mousePress(mCanvas, Qt::RightButton, {}, at);
        QTest::mouseRelease(mCanvas, Qt::RightButton, {}, at);
    }
    QTest::mouseRelease(mCanvas, Qt::LeftButton, {}, at); // ends nothing more after the right one

    QCOMPARE(log.names, result ? Edit : QStringList { "imageChanged" });
    QCOMPARE(log.changed, result ? 48 : 0);
    QCOMPARE(mCanvas->image().pixelIndex(7, 5), result);
    mCanvas->setPalette(&mPalette);
}

void TestCanvas::pickOnRelease_data()
{
    QTest::addColumn<QPoint>("pixel");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<int>("inks");
    QTest::addColumn<int>("papers");
    QTest::newRow("left picks ink") << QPoint(3, 4) << Qt::LeftButton << 1 << 0;
    QTest::newRow("right picks paper") << QPoint(3, 4) << Qt::RightButton << 0 << 1;
    QTest::newRow("the margin picks nothing") << QPoint(8, 4) << Qt::LeftButton << 0 << 0;
}

void TestCanvas::pickOnRelease()
{
    QFETCH(QPoint, pixel);
    QFETCH(Qt::MouseButton, button);
    QFETCH(int, inks);
    QFETCH(int, papers);
    setPixel(*mCanvas, QPoint(3, 4), 42);
    mCanvas->setMode(ToolButton::Pick, true);
    QSignalSpy inkSpy(mCanvas, &Canvas::foregroundPicked);
    QSignalSpy paperSpy(mCanvas, &Canvas::backgroundPicked);
    hover(*mCanvas, pixel);
    QTest::mouseClick(mCanvas, button, {}, screenOf(*mCanvas, pixel));

    QCOMPARE(inkSpy.count(), inks);
    QCOMPARE(paperSpy.count(), papers);
    QCOMPARE(mCanvas->ink(), inks ? 42 : 1);
    QCOMPARE(mCanvas->paper(), papers ? 42 : 0);
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
    setPixel(canvas, QPoint(0, 0), 3);
    canvas.selectAll();
    SignalLog log(canvas);
    canvas.setMode(button, false);

    QCOMPARE(log.names, Edit);
    QCOMPARE(log.texts, QStringList { text });
    QCOMPARE(log.kind, kind);
    QCOMPARE(canvas.image().pixelIndex(movedTo), 3);
    QCOMPARE(canvas.image().pixelIndex(0, 0), 0);
    QVERIFY(!canvas.selection().isVisible());
}

void TestCanvas::fourQuarterTurnsAreFourEdits()
{
    Canvas square(QSize(4, 4));
    QImage image = square.image();
    for (int i = 0; i < 16; ++i)
        image.setPixel(i % 4, i / 4, i);
    square.setImage(image);
    QSignalSpy edits(&square, &Canvas::edited);
    for (int i = 0; i < 4; ++i)
        square.setMode(ToolButton::RotateCW, false);
    QCOMPARE(edits.count(), 4);
    QVERIFY(sameIndexedPixels(square.image(), image));
}

void TestCanvas::moveOnOnePixelWideLeavesNoEdit()
{
    Canvas narrow(QSize(1, 4));
    setPixel(narrow, QPoint(0, 2), 5);
    SignalLog log(narrow);
    narrow.setMode(ToolButton::MoveLeft, false);
    QCOMPARE(log.names, QStringList { "imageChanged" });
}

void TestCanvas::unknownModeOnlyLogs()
{
    mCanvas->selectAll();
    QTest::ignoreMessage(QtInfoMsg, "PaintCanvas::setMode(Tintorel::Ui::CircleFill)");
    mCanvas->setMode(ToolButton::CircleFill, true);
    QCOMPARE(mCanvas->mode(), ToolButton::Draw);
    QVERIFY(!mCanvas->selection().isVisible());
}

void TestCanvas::remapOnlyForFourBitImages()
{
    setPixel(*mCanvas, QPoint(1, 1), 0x3A);
    mCanvas->setInk(0x05);
    SignalLog log(*mCanvas);
    mCanvas->remap(3);
    QCOMPARE(mCanvas->image().pixelIndex(1, 1), 0x3A);
    mCanvas->setImageType(int(Tintorel::Ui::ImageType::Offset16));
    mCanvas->remap(3);
    QCOMPARE(mCanvas->image().pixelIndex(1, 1), 0x2A);
    QCOMPARE(mCanvas->ink(), 0x25);
    mCanvas->remap(0); // wraps to the last bank
    QCOMPARE(mCanvas->image().pixelIndex(0, 0), 0xF0);
    QCOMPARE(mCanvas->layer().paper(), 0xF0);
    QVERIFY(log.names.isEmpty()); // the editors record this change themselves
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
    QTest::newRow("level held up to 1") << -5 << ToolButton::Draw << 1;
    QTest::newRow("level held down to 64") << 99 << ToolButton::Draw << 64;
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

    // Control is read from the application's keyboard state.
    QTest::keyPress(mCanvas, Qt::Key_Control, Qt::ControlModifier);
    QVERIFY(send(screenOf(*mCanvas, QPoint(1, 1)), QPoint(0, 120)));
    QCOMPARE(mCanvas->zoom(), Zoom + 2);
    QVERIFY(send(screenOf(*mCanvas, QPoint(1, 1)), QPoint(120, 0))); // purely horizontal zooms out
    QCOMPARE(mCanvas->zoom(), Zoom);
    QTest::keyRelease(mCanvas, Qt::Key_Control, Qt::NoModifier);
}

void TestCanvas::scrolling()
{
    ScrollCanvas scroll(QSize(64, 32));
    Canvas* canvas = scroll.canvas();
    scroll.resize(200, 200);
    scroll.show();
    QVERIFY(QTest::qWaitForWindowExposed(&scroll));
    QVERIFY(scroll.horizontalScrollBar()->isVisible());
    auto key = [canvas](Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::ShortcutOverride, code, modifiers);
        QVERIFY(!canvas->handleKey(&event));
    };

    // The crossed slots: the vertical bar moves the rows.
    scroll.verticalScrollBar()->setValue(3);
    scroll.horizontalScrollBar()->setValue(5);
    QCOMPARE(canvas->scrollOffset(), QPoint(5, 3));
    key(Qt::Key_Right);
    key(Qt::Key_Up);
    key(Qt::Key_Left, Qt::ShiftModifier); // modified keys are the editors'
    QCOMPARE(canvas->scrollOffset(), QPoint(6, 2));
    QCOMPARE(scroll.horizontalScrollBar()->value(), 6);
    for (int i = 0; i < 99; ++i)
        key(Qt::Key_Right);
    QCOMPARE(canvas->scrollOffset().x(), 64 - canvas->imageArea().width() / Zoom);

    scroll.resize(2000, 2000);
    QCOMPARE(canvas->scrollOffset(), QPoint(0, 0));
    QVERIFY(!scroll.horizontalScrollBar()->isVisible());
}

void TestCanvas::doubleHeight()
{
    Canvas canvas(QSize(8, 8));
    canvas.setZoomLevel(4);
    canvas.setDoubleHeight(true);
    QSignalSpy amounts(&canvas, &Canvas::scrollValuesChanged);
    canvas.resize(32, 32); // all 8 columns, 4 double rows
    canvas.show();
    QCOMPARE(canvas.imageArea(), QRect(0, 0, 32, 32));
    QCOMPARE(canvas.pixelAt(QPointF(0, 15)), QPoint(0, 1)); // a pair of screen rows is one pixel
    // The bar's maximum counts single rows, the keyboard's clamp double ones.
    QCOMPARE(amounts.last(), (QVariantList { 0, 0 }));
    QKeyEvent down(QEvent::ShortcutOverride, Qt::Key_Down, Qt::NoModifier);
    for (int i = 0; i < 10; ++i)
        canvas.handleKey(&down);
    QCOMPARE(canvas.scrollOffset(), QPoint(0, 4));

    canvas.resize(64, 128);
    canvas.selectAll();
    QCOMPARE(canvas.selection().pixels(), QRect(0, 0, 8, 8));
}

void TestCanvas::selectionLeavesFarCornerOut()
{
    mCanvas->setMode(ToolButton::Select, true);
    QTest::mousePress(mCanvas, Qt::LeftButton, {}, screenOf(*mCanvas, QPoint(1, 1)));
    QTest::mouseMove(mCanvas, screenOf(*mCanvas, QPoint(4, 3)));
    QTest::mouseRelease(mCanvas, Qt::LeftButton, {}, screenOf(*mCanvas, QPoint(4, 3)));
    QCOMPARE(mCanvas->selection().band().width(), 3 * Zoom + 1);
    QCOMPARE(mCanvas->selectedImage().size(), QSize(3, 2));
    QCOMPARE(mCanvas->selection().pixels(), QRect(1, 1, 3, 2));

    // Within one cell: an empty selection, and no picture at all.
    QTest::mouseClick(mCanvas, Qt::LeftButton, {}, screenOf(*mCanvas, QPoint(2, 2)));
    QVERIFY(mCanvas->selection().isVisible());
    QVERIFY(mCanvas->selectedImage().isNull());
    mCanvas->selectNone();
    QCOMPARE(mCanvas->selectedImage().size(), QSize(8, 6));
}

void TestCanvas::contextMenu()
{
    mCanvas->setMode(ToolButton::Select, true);
    mCanvas->selectAll();
    mCanvas->setPaper(2);
    const QRect band = mCanvas->selection().band();
    SignalLog log(*mCanvas);
    QStringList texts;
    bool shown = false;
    // Closes the blocking menu; a local timer, so that it cannot outlive the test.
    QTimer closer;
    closer.setSingleShot(true);
    connect(&closer, &QTimer::timeout, this, [this, &texts, &shown] {
        auto* menu = mCanvas->findChild<QMenu*>();
        shown = menu->isVisible();
        menu->close();
        for (QAction* action : menu->actions())
            texts << (action->isSeparator() ? "-" : action->text());
    });
    closer.start(0);
    QTest::mouseClick(mCanvas, Qt::RightButton, {}, screenOf(*mCanvas, QPoint(2, 2)));
    QVERIFY(shown);
    QCOMPARE(texts, QStringList({ "Cut", "Copy", "Paste", "-", "Select All", "Select None", "-", "Erase", "Fill" }));
    // The items call the clipboard directly; only "Cut" erases.
    auto item = [this](const QString& text) {
        for (QAction* action : mCanvas->findChild<QMenu*>()->actions())
            if (action->text() == text)
                action->trigger();
    };
    item("Copy");
    QVERIFY(log.names.isEmpty());
    item("Cut");
    QCOMPARE(log.names, QStringList({ "imageChanged", "edited", "imageChanged" }));
    QCOMPARE(log.texts, QStringList { "Erase" });
    QCOMPARE(mCanvas->image().pixelIndex(7, 5), 2);
    // A right click keeps the band, though it moves the anchor.
    QCOMPARE(mCanvas->selection().band(), band);
    QCOMPARE(mCanvas->selection().anchor(), screenOf(*mCanvas, QPoint(2, 2)));
}

QTEST_MAIN(TestCanvas)
#include "tst_canvas.moc"
