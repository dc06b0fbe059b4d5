#include "canvas/canvas.h"
#include "editors/image/screenpicture.h"
#include "editors/image/toolbar.h"
#include "editors/image/view.h"
#include "editors/palette/colourpalette.h"
#include "editors/palette/colourselector.h"
#include "model/image.h"
#include "model/indexedpixels.h"
#include "model/palette.h"
#include "project/project.h"
#include "project/projectstore.h"

#include <QAction>
#include <QFileDialog>
#include <QLabel>
#include <QScrollBar>
#include <QImageReader>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QtTest>

using Tintorel::ImageMode;
using Tintorel::Ui::ToolButton;

Q_DECLARE_METATYPE(ImageMode)

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
    void undoRedoOfAStroke();
    void gesturesAreSteps_data();
    void gesturesAreSteps();
    void sixteenColourScreenKeepsFourBits();
    void paletteEditsShowAtOnce();
    void openTakesPixelsAndColoursAsOneStep();
    void scratchImportWithoutPaletteMakesOne();
    void exportFormatFollowsTheName_data();
    void exportFormatFollowsTheName();
    void arrowsScrollAndGridLinesShow();
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
    QCOMPARE(mCanvas->image().size(), Image::sizeOf(mode));
    QCOMPARE(mCanvas->doubleHeight(), mode == ImageMode::Layer2_640x256);
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

void TestImageEditor::undoRedoOfAStroke()
{
    open(ImageMode::Layer2_256x192);
    const QImage blank = mImage->image();
    stroke(at(3, 3), at(6, 3));
    QCOMPARE(mStack->count(), 1);
    QCOMPARE(mStack->undoText(), QStringLiteral("Draw"));
    const QImage painted = mImage->image();

    for (int round = 0; round < 2; ++round) {
        mStack->undo();
        QVERIFY(sameIndexedPixels(mImage->image(), blank));
        QVERIFY(sameIndexedPixels(mCanvas->image(), blank));
        mStack->redo();
        QVERIFY(sameIndexedPixels(mImage->image(), painted));
        QVERIFY(sameIndexedPixels(mCanvas->image(), painted));
    }
    // A step of an image that has gone does nothing.
    mView->setImage(nullptr);
    delete mImage.data();
    const QImage shown = mCanvas->image();
    mStack->undo();
    QVERIFY(sameIndexedPixels(mCanvas->image(), shown));
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
    for (int button : buttons) {
        if (button < 0)
            stroke(at(3, 3), at(3, 3));
        else
            mView->changeMode(ToolButton(button), false);
    }
    QCOMPARE(mStack->count(), steps);
    QVERIFY(sameIndexedPixels(mImage->image(), mCanvas->image()));
}

void TestImageEditor::sixteenColourScreenKeepsFourBits()
{
    open(ImageMode::Layer2_640x256);
    QCOMPARE(mView->colourSelector()->picker()->mode(), ColourPalette::Bank16);
    // What a paste from a 256-colour picture would bring.
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

    mCanvas->setInk(0x25);
    stroke(at(4, 4), at(4, 4));
    QCOMPARE(mImage->image().pixelIndex(4, 4), 0x05);
    QCOMPARE(mCanvas->image().pixelIndex(4, 4), 0x05);
    mStack->undo();
    mStack->redo();
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
    const QList<QLabel*> swatches = mView->colourSelector()->findChildren<QLabel*>();
    QVERIFY(std::any_of(swatches.cbegin(), swatches.cend(),
                        [&](QLabel* swatch) { return swatch->palette().color(QPalette::Window) == green; }));
}

void TestImageEditor::openTakesPixelsAndColoursAsOneStep()
{
    open(ImageMode::Layer2_256x192);
    stroke(at(0, 0), at(0, 0));
    // Three colours in order of first appearance, on the machine's grid.
    QImage picture(4, 2, QImage::Format_RGB32);
    const QList<QRgb> colours { qRgb(255, 0, 0), qRgb(0, 0, 255), qRgb(255, 255, 255) };
    const int layout[2][4] = { { 0, 0, 1, 2 }, { 2, 1, 1, 0 } };
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 4; ++x)
            picture.setPixel(x, y, colours.at(layout[y][x]));
    const QString file = mDir.filePath("three.png");
    QVERIFY(picture.save(file));

    QVERIFY(mView->openImage(file));
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 4; ++x)
            QCOMPARE(mImage->image().pixelIndex(x, y), layout[y][x]);
    QCOMPARE(mImage->image().pixelIndex(100, 100), 0); // past the picture
    for (int i = 0; i < colours.size(); ++i)
        QCOMPARE(mImage->palette()->colour(i).rgb(), colours.at(i));
    QCOMPARE(mStack->count(), 2);
    QCOMPARE(mStack->undoText(), QStringLiteral("Import Image"));
    mStack->undo();
    QCOMPARE(mImage->image().pixelIndex(0, 0), 1);
    QCOMPARE(mImage->image().pixelIndex(3, 0), 0);

    QVERIFY(!mView->openImage(mDir.filePath("missing.png")));
    QCOMPARE(mStack->count(), 2);
}

void TestImageEditor::scratchImportWithoutPaletteMakesOne()
{
    Project* project = mStore->project();
    mView->setScratch(project, nullptr);
    QImage picture(2, 1, QImage::Format_RGB32);
    picture.setPixel(0, 0, qRgb(0, 255, 0));
    picture.setPixel(1, 0, qRgb(255, 0, 255));
    const QString file = mDir.filePath("two.png");
    QVERIFY(picture.save(file));

    QVERIFY(mView->openImage(file));
    QCOMPARE(project->palettes().size(), 1);
    const QPointer<Palette> made = project->palette(project->scratchPalette());
    QVERIFY(made);
    QCOMPARE(made->colour(1).rgb(), qRgb(255, 0, 255));
    QCOMPARE(project->scratchImage().pixelIndex(1, 0), 1);
    QCOMPARE(mStack->undoText(), QStringLiteral("Import Image"));
}

void TestImageEditor::exportFormatFollowsTheName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("bmp") << "screen.bmp" << QByteArray("bmp");
    QTest::newRow("png") << "screen.png" << QByteArray("png");
}

void TestImageEditor::exportFormatFollowsTheName()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, format);
    open(ImageMode::Layer2_256x192);
    pickColours(42, 0);
    stroke(at(5, 5), at(5, 5));
    QVERIFY(mView->exportImage(mDir.filePath(name)));
    QImageReader reader(mDir.filePath(name));
    reader.setDecideFormatFromContent(true);
    QCOMPARE(reader.format(), format);
    const QImage written = reader.read();
    QCOMPARE(written.pixel(5, 5), mImage->palette()->colour(42).rgb());
    QCOMPARE(written.size(), QSize(256, 192));
    QVERIFY(mView->exportDialog()->defaultSuffix() == QStringLiteral("png"));
}

void TestImageEditor::arrowsScrollAndGridLinesShow()
{
    open(ImageMode::Layer2_320x256);
    mCanvas->setZoomLevel(16);
    QVERIFY(mView->horizontalScrollBar()->maximum() > 0);
    QKeyEvent left(QEvent::ShortcutOverride, Qt::Key_Left, Qt::NoModifier);
    QKeyEvent right(QEvent::ShortcutOverride, Qt::Key_Right, Qt::NoModifier);
    QApplication::sendEvent(mView.get(), &right);
    QApplication::sendEvent(mView.get(), &right);
    QApplication::sendEvent(mView.get(), &left);
    QCOMPARE(mCanvas->scrollOffset(), QPoint(1, 0));
    QCOMPARE(mView->horizontalScrollBar()->value(), 1);

    // Bars stay in sight when the picture fits.
    mCanvas->setZoomLevel(1);
    QCOMPARE(mView->horizontalScrollBar()->maximum(), 0);
    QVERIFY(mView->horizontalScrollBar()->isVisible());

    mView->toolBar()->gridLinesAction()->trigger();
    QVERIFY(mCanvas->gridLinesVisible());
}

void TestImageEditor::screenPicture_data()
{
    // Pictures as rows of colour letters: r red, g green, b blue, w white,
    // k black, o a red off the machine's grid; the expected indices beside.
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
    QTest::newRow("the rarest colour takes its nearest")
        << QStringList { "rrw", "kkb" } << QSize(3, 2) << 2 << QStringList { "000", "111" } << "rk";
}

void TestImageEditor::screenPicture()
{
    QFETCH(QStringList, picture);
    QFETCH(QSize, size);
    QFETCH(int, maxColours);
    QFETCH(QStringList, indices);
    QFETCH(QString, table);
    const QHash<QChar, QRgb> colours { { 'r', qRgb(255, 0, 0) }, { 'g', qRgb(0, 255, 0) },
                                       { 'b', qRgb(0, 0, 255) }, { 'w', qRgb(255, 255, 255) },
                                       { 'k', qRgb(0, 0, 0) },   { 'o', qRgb(250, 5, 3) } };
    QImage source(picture.first().size(), picture.size(), QImage::Format_ARGB32);
    for (int y = 0; y < source.height(); ++y)
        for (int x = 0; x < source.width(); ++x)
            source.setPixel(x, y, colours.value(picture.at(y).at(x)) & 0x80ffffff); // alpha plays no part

    const ImageEditor::ScreenPicture result = ImageEditor::screenPicture(source, size, maxColours);
    QCOMPARE(result.indexed.format(), QImage::Format_Indexed8);
    QCOMPARE(result.indexed.size(), size);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            QCOMPARE(result.indexed.pixelIndex(x, y), indices.at(y).at(x).digitValue());
    QList<QRgb> expected;
    for (QChar letter : table)
        expected.append(colours.value(letter));
    QCOMPARE(result.colours, expected);
}

QTEST_MAIN(TestImageEditor)
#include "tst_imageeditor.moc"
