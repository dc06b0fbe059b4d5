#include "canvas/canvas.h"
#include "editors/image/screenpicture.h"
#include "editors/image/view.h"
#include "editors/palette/colourpalette.h"
#include "editors/palette/colourselector.h"
#include "model/image.h"
#include "model/indexedpixels.h"
#include "model/palette.h"
#include "project/project.h"
#include "project/projectstore.h"

#include <QScrollBar>
#include <QImageReader>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QtTest>

using Tintorel::ImageMode;
using Tintorel::Ui::ToolButton;

Q_DECLARE_METATYPE(ImageMode)

namespace {

// Pictures as rows of colour letters: r red, g green, b blue, w white,
// k black, o a red off the machine's grid. Half transparent: alpha plays
// no part anywhere.
QRgb letterColour(QChar letter)
{
    const QHash<QChar, QRgb> colours { { 'r', qRgb(255, 0, 0) }, { 'g', qRgb(0, 255, 0) },
                                       { 'b', qRgb(0, 0, 255) }, { 'w', qRgb(255, 255, 255) },
                                       { 'k', qRgb(0, 0, 0) },   { 'o', qRgb(250, 5, 3) } };
    return colours.value(letter);
}

QImage lettered(const QStringList& rows)
{
    QImage picture(rows.first().size(), rows.size(), QImage::Format_ARGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, letterColour(rows.at(y).at(x)) & 0x80ffffff);
    return picture;
}

} // namespace

// One image view on an image of a project, as its tab shows it: paint with
// the mouse, then look at the image, its stack and its file.
class TestImageEditor : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void paintSaveReopen_data();
    void paintSaveReopen();
    void gesturesAreSteps_data();
    void gesturesAreSteps();
    void sixteenColourScreenKeepsFourBits();
    void paletteEditsShowAtOnce();
    void openTakesPixelsAndColoursAsOneStep();
    void scratchImportWithoutPaletteMakesOne();
    void exportFormatFollowsTheName();
    void screenPicture_data();
    void screenPicture();

private:
    void open(ImageMode mode, CreateAction colours = CreateAction::Standard);
    QPoint at(int x, int y) const;
    // The pointer hovers before it presses, as a hand's does.
    void stroke(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton);
    void pickColours(int ink, int paper);

    QTemporaryDir mDir;
    std::unique_ptr<ProjectStore> mStore;
    std::unique_ptr<QUndoStack> mStack;
    std::unique_ptr<ImageEditor::View> mView;
    QPointer<Image> mImage;
    Canvas* mCanvas = nullptr;
};

void TestImageEditor::init()
{
    mStore = std::make_unique<ProjectStore>();
    mStore->create("Game", false);
    mStack = std::make_unique<QUndoStack>();
    mView = std::make_unique<ImageEditor::View>();
    mView->setUndoStack(mStack.get());
    mView->resize(1000, 700);
    mView->show();
    QVERIFY(QTest::qWaitForWindowExposed(mView.get()));
    mCanvas = mView->canvas();
}

void TestImageEditor::cleanup()
{
    mView.reset();
    mStack.reset();
    mStore.reset();
}

void TestImageEditor::open(ImageMode mode, CreateAction colours)
{
    Project* project = mStore->project();
    const QPointer<Palette> palette = project->createPalette(colours, "Colours");
    mImage = project->createImage(mode, "Screen", palette->id());
    mView->setImage(mImage);
    QCoreApplication::processEvents();
}

QPoint TestImageEditor::at(int x, int y) const
{
    const QPoint cell(x - mCanvas->scrollOffset().x(), y - mCanvas->scrollOffset().y());
    return mCanvas->imageArea().topLeft()
           + QPoint(cell.x() * mCanvas->zoom() + mCanvas->zoom() / 2, cell.y() * mCanvas->zoomY() + mCanvas->zoomY() / 2);
}

void TestImageEditor::stroke(QPoint from, QPoint to, Qt::MouseButton button)
{
    QTest::mouseMove(mCanvas, from);
    QTest::mousePress(mCanvas, button, {}, from);
    QTest::mouseMove(mCanvas, to);
    QTest::mouseRelease(mCanvas, button, {}, to);
}

// Through the selector's cells, as a user picks: left for ink, right for paper.
void TestImageEditor::pickColours(int ink, int paper)
{
    ColourPalette* picker = mView->colourSelector()->picker();
    QTest::mouseClick(picker, Qt::LeftButton, {}, picker->cellRect(ink).center());
    QTest::mouseClick(picker, Qt::RightButton, {}, picker->cellRect(paper).center());
}

void TestImageEditor::paintSaveReopen_data()
{
    QTest::addColumn<ImageMode>("mode");
    QTest::addColumn<CreateAction>("colours");
    QTest::addColumn<int>("ink");
    QTest::addColumn<int>("paper");
    QTest::newRow("256 x 192") << ImageMode::Layer2_256x192 << CreateAction::Standard << 200 << 7;
    QTest::newRow("320 x 256") << ImageMode::Layer2_320x256 << CreateAction::Standard << 255 << 16;
    QTest::newRow("640 x 256, sixteen colours") << ImageMode::Layer2_640x256 << CreateAction::Standard << 13 << 2;
    QTest::newRow("LoRes 128 x 96") << ImageMode::LoRes_128x96 << CreateAction::Standard << 129 << 3;
    // Every entry black: only the index bytes tell the pixels apart.
    QTest::newRow("blank palette, one colour") << ImageMode::Layer2_256x192 << CreateAction::NewBlank << 77 << 5;
}

void TestImageEditor::paintSaveReopen()
{
    QFETCH(ImageMode, mode);
    QFETCH(CreateAction, colours);
    QFETCH(int, ink);
    QFETCH(int, paper);
    open(mode, colours);
    pickColours(ink, paper);
    stroke(at(9, 1), at(12, 9), Qt::RightButton);
    mCanvas->setMode(ToolButton::Line, true);
    stroke(at(2, 5), at(12, 1));
    QCOMPARE(mImage->image().pixelIndex(9, 1), paper);
    QCOMPARE(mImage->image().pixelIndex(12, 9), paper);
    QCOMPARE(mImage->image().pixelIndex(12, 1), ink);
    QCOMPARE(mImage->image().pixelIndex(2, 5), ink);
    QVERIFY(sameIndexedPixels(mImage->image(), mCanvas->image()));

    const QString file = mDir.filePath("screen.tintorel");
    QVERIFY(mStore->saveAs(file));
    ProjectStore reopened;
    QVERIFY(reopened.load(file));
    const QPointer<Image> loaded = reopened.project()->image(mImage->id());
    QVERIFY(loaded);
    QCOMPARE(loaded->mode(), mode);
    QVERIFY(sameIndexedPixels(loaded->image(), mCanvas->image()));
}

void TestImageEditor::gesturesAreSteps_data()
{
    QTest::addColumn<QList<int>>("buttons"); // ToolButton values pressed in turn; -1 a stroke at (3, 3)
    QTest::addColumn<int>("steps");
    QTest::newRow("a stroke that changes nothing is no step") << QList<int> { -1, -1 } << 1;
    QTest::newRow("pixel moves merge") << QList<int> { -1, ToolButton::MoveLeft, ToolButton::MoveLeft,
                                                       ToolButton::MoveUp, ToolButton::MoveRight }
                                       << 2;
    QTest::newRow("a flip ends a run of moves")
        << QList<int> { -1, ToolButton::MoveLeft, ToolButton::Flip, ToolButton::MoveLeft } << 4;
    QTest::newRow("a stroke ends a run of moves")
        << QList<int> { -1, ToolButton::MoveDown, -1, ToolButton::MoveDown } << 4;
    QTest::newRow("crop and erase are no edit here") << QList<int> { ToolButton::Crop, ToolButton::Erase } << 0;
}

void TestImageEditor::gesturesAreSteps()
{
    QFETCH(QList<int>, buttons);
    QFETCH(int, steps);
    open(ImageMode::Layer2_320x256);
    const QImage blank = mImage->image();
    for (int button : buttons) {
        if (button < 0)
            stroke(at(3, 3), at(3, 3));
        else
            mView->changeMode(ToolButton(button), false);
    }
    QCOMPARE(mStack->count(), steps);
    // All undone is the blank picture, all redone the painted one, in the
    // image and on the canvas alike.
    const QImage done = mImage->image();
    while (mStack->canUndo())
        mStack->undo();
    QVERIFY(sameIndexedPixels(mImage->image(), blank));
    QVERIFY(sameIndexedPixels(mCanvas->image(), blank));
    while (mStack->canRedo())
        mStack->redo();
    QVERIFY(sameIndexedPixels(mImage->image(), done));
    QVERIFY(sameIndexedPixels(mCanvas->image(), done));
}

void TestImageEditor::sixteenColourScreenKeepsFourBits()
{
    open(ImageMode::Layer2_640x256);
    QCOMPARE(mView->colourSelector()->picker()->mode(), ColourPalette::Bank16);
    // The bar reaches the last rows of the picture, two screen rows each.
    mCanvas->setZoomLevel(4);
    const int rows = mCanvas->imageArea().height() / 8;
    QVERIFY(rows < 256);
    QCOMPARE(mView->verticalScrollBar()->maximum(), 256 - rows);
    QKeyEvent down(QEvent::ShortcutOverride, Qt::Key_Down, Qt::NoModifier);
    for (int i = 0; i <= 256 - rows; ++i)
        QApplication::sendEvent(mView.get(), &down);
    QCOMPARE(mCanvas->scrollOffset().y(), 256 - rows);
    QCOMPARE(mView->verticalScrollBar()->value(), 256 - rows);
    mCanvas->setZoomLevel(1);

    mCanvas->setInk(0x25); // what a paste from a 256-colour picture brings
    stroke(at(4, 4), at(4, 4));
    mStack->undo();
    mStack->redo();
    QCOMPARE(mImage->image().pixelIndex(4, 4), 0x05);
    QCOMPARE(mCanvas->image().pixelIndex(4, 4), 0x05);

    // A view that goes back to a 256-colour image offers all 256 again.
    open(ImageMode::Layer2_256x192);
    QCOMPARE(mView->colourSelector()->picker()->mode(), ColourPalette::Full256);
    QVERIFY(!mCanvas->doubleHeight());
}

void TestImageEditor::paletteEditsShowAtOnce()
{
    open(ImageMode::LoRes_128x96);
    stroke(at(0, 0), at(0, 0));
    mImage->palette()->setColour(1, QColor(0, 200, 0), false);
    const QColor green = mImage->palette()->colour(1);
    QCOMPARE(QColor(mCanvas->image().color(1)), green);
    QCOMPARE(QColor(mCanvas->grab().toImage().pixel(at(0, 0))), green);
    // The picture fits, and the bars stay in sight all the same.
    QCOMPARE(mView->horizontalScrollBar()->maximum(), 0);
    QVERIFY(mView->horizontalScrollBar()->isVisible());
}

void TestImageEditor::openTakesPixelsAndColoursAsOneStep()
{
    open(ImageMode::Layer2_256x192);
    stroke(at(0, 0), at(0, 0));
    const QString file = mDir.filePath("three.png");
    QVERIFY(lettered({ "rrbw", "wbbr" }).save(file));
    QVERIFY(mView->openImage(file));
    // Indices by first appearance, index 0 past the picture's edge.
    QCOMPARE(mImage->image().pixelIndex(2, 0), 1);
    QCOMPARE(mImage->image().pixelIndex(0, 1), 2);
    QCOMPARE(mImage->image().pixelIndex(100, 100), 0);
    QCOMPARE(mImage->palette()->colour(1).rgb(), letterColour('b'));
    QCOMPARE(mImage->palette()->colour(2).rgb(), letterColour('w'));
    QCOMPARE(mStack->undoText(), QStringLiteral("Import Image"));
    mStack->undo();
    QCOMPARE(mImage->image().pixelIndex(0, 0), 1);
    QCOMPARE(mImage->image().pixelIndex(2, 0), 0);

    QVERIFY(!mView->openImage(mDir.filePath("missing.png")));
    QCOMPARE(mStack->count(), 2);
}

void TestImageEditor::scratchImportWithoutPaletteMakesOne()
{
    Project* project = mStore->project();
    mView->setScratch(project, nullptr);
    const QString file = mDir.filePath("two.png");
    QVERIFY(lettered({ "gb" }).save(file));
    QVERIFY(mView->openImage(file));
    const QPointer<Palette> made = project->palette(project->scratchPalette());
    QVERIFY(made);
    QCOMPARE(made->colour(1).rgb(), letterColour('b'));
    QCOMPARE(project->scratchImage().pixelIndex(1, 0), 1);
}

// The format comes from the name alone: a ".bmp" file is a BMP.
void TestImageEditor::exportFormatFollowsTheName()
{
    open(ImageMode::Layer2_256x192);
    pickColours(42, 0);
    stroke(at(5, 5), at(5, 5));
    const QString file = mDir.filePath("screen.bmp");
    QVERIFY(mView->exportImage(file));
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    QCOMPARE(reader.format(), QByteArray("bmp"));
    const QImage written = reader.read();
    QCOMPARE(written.size(), QSize(256, 192));
    QCOMPARE(written.pixel(5, 5), mImage->palette()->colour(42).rgb());
}

void TestImageEditor::screenPicture_data()
{
    QTest::addColumn<QStringList>("picture");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("maxColours");
    QTest::addColumn<QStringList>("indices");
    QTest::addColumn<QString>("table");
    QTest::newRow("colours in order of first appearance")
        << QStringList { "gr", "bg" } << QSize(2, 2) << 256 << QStringList { "01", "20" } << "grb";
    QTest::newRow("a colour off the grid snaps onto it") << QStringList { "or" } << QSize(2, 1) << 256
                                                         << QStringList { "00" } << "r";
    QTest::newRow("cropped at the top-left") << QStringList { "rgb", "wkw" } << QSize(2, 1) << 256
                                             << QStringList { "01" } << "rg";
    QTest::newRow("padded with index 0") << QStringList { "g" } << QSize(2, 2) << 256
                                         << QStringList { "00", "00" } << "g";
    QTest::newRow("the rarer colours take their nearest")
        << QStringList { "rrw", "kkb" } << QSize(3, 2) << 2 << QStringList { "000", "111" } << "rk";
}

void TestImageEditor::screenPicture()
{
    QFETCH(QStringList, picture);
    QFETCH(QSize, size);
    QFETCH(int, maxColours);
    QFETCH(QStringList, indices);
    QFETCH(QString, table);
    const ImageEditor::ScreenPicture result = ImageEditor::screenPicture(lettered(picture), size, maxColours);
    QCOMPARE(result.indexed.format(), QImage::Format_Indexed8);
    QCOMPARE(result.indexed.size(), size);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            QCOMPARE(result.indexed.pixelIndex(x, y), indices.at(y).at(x).digitValue());
    QList<QRgb> expected;
    for (QChar letter : table)
        expected.append(letterColour(letter));
    QCOMPARE(result.colours, expected);
}

QTEST_MAIN(TestImageEditor)
#include "tst_imageeditor.moc"
