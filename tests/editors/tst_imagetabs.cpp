#include "app/documentcontroller.h"
#include "app/filemenu.h"
#include "app/mainwindow.h"
#include "app/viewmenu.h"
#include "canvas/canvas.h"
#include "editors/image/view.h"
#include "model/image.h"
#include "model/indexedpixels.h"
#include "model/palette.h"
#include "project/project.h"

#include <QTemporaryDir>
#include <QUndoGroup>
#include <QUndoStack>
#include <QtTest>

// The image editors in the whole window: a tab per image from the project
// tree, and the one scratch tab, each with its own undo stack.
class TestImageTabs : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();
    void eachImageHasItsTabAndStack();
    void scratchEditsTheProjectAndSurvivesSaveAndReopen();

private:
    void stroke(Canvas* canvas, int x, int y);
    QUndoGroup* group() const { return mWindow->documentController()->undoGroup(); }
    QAction* scratchAction() const { return mWindow->menus()->viewMenu()->action(ViewMenu::ScratchImageEditor); }
    int tabOf(QWidget* page) const { return static_cast<QTabWidget*>(mWindow->tabView())->indexOf(page); }
    ImageEditor::View* currentView() const { return qobject_cast<ImageEditor::View*>(mWindow->tabView()->currentWidget()); }

    QTemporaryDir mHome;
    QString mFile;
    MainWindow* mWindow = nullptr;
};

void TestImageTabs::initTestCase()
{
    qputenv("HOME", QFile::encodeName(mHome.path()));
    mFile = mHome.filePath("game.tintorel");
}

void TestImageTabs::init()
{
    mWindow = new MainWindow;
    mWindow->menus()->fileMenu()->newAccepted("Game");
    mWindow->projectController()->askSavePath = [this] { return mFile; };
}

void TestImageTabs::cleanup()
{
    mWindow->projectController()->promptUnsaved = [](const QString&) {
        return ProjectController::UnsavedAnswer::Discard;
    };
    delete mWindow;
}

// One pixel at (x, y), hovered first as a hand does.
void TestImageTabs::stroke(Canvas* canvas, int x, int y)
{
    QTRY_VERIFY(!canvas->imageArea().isEmpty());
    const QPoint at = canvas->imageArea().topLeft()
                      + QPoint(x * canvas->zoom() + canvas->zoom() / 2, y * canvas->zoomY() + canvas->zoomY() / 2);
    QTest::mouseMove(canvas, at);
    QTest::mouseClick(canvas, Qt::LeftButton, {}, at);
}

void TestImageTabs::eachImageHasItsTabAndStack()
{
    const QPointer<Project> project = mWindow->projectController()->project();
    const QPointer<Palette> colours = project->createPalette(CreateAction::Standard, "Colours");
    const QPointer<Image> title = project->createImage(Tintorel::ImageMode::Layer2_256x192, "Title", colours->id());
    const QPointer<Image> wide = project->createImage(Tintorel::ImageMode::Layer2_640x256, "Wide", colours->id());
    mWindow->projectWindow()->itemDoubleClicked(ProjectTree::Image, title->id());
    mWindow->projectWindow()->itemDoubleClicked(ProjectTree::Image, wide->id());
    QCOMPARE(mWindow->tabView()->count(), 2);
    QCOMPARE(currentView()->image(), wide);
    QCOMPARE(mWindow->documentController()->activePalette(), colours->id());

    const int titleTab = mWindow->tabView()->indexOf(title->id());
    QCOMPARE(mWindow->tabView()->tabText(titleTab), QStringLiteral("Title"));
    mWindow->tabView()->setCurrentIndex(titleTab);
    QUndoStack* titleStack = mWindow->documentController()->stack(title->id());
    QCOMPARE(group()->activeStack(), titleStack);
    stroke(currentView()->canvas(), 4, 2);
    QCOMPARE(title->image().pixelIndex(4, 2), 1);
    QCOMPARE(titleStack->count(), 1);
    QVERIFY(mWindow->projectController()->hasUnsavedChanges());

    // Another tab's stack is another history: the title's step stays.
    mWindow->tabView()->setCurrentIndex(mWindow->tabView()->indexOf(wide->id()));
    QCOMPARE(group()->activeStack()->count(), 0);
    group()->undo();
    QCOMPARE(title->image().pixelIndex(4, 2), 1);
    mWindow->tabView()->setCurrentIndex(titleTab);
    group()->undo();
    QCOMPARE(title->image().pixelIndex(4, 2), 0);
    QCOMPARE(currentView()->canvas()->image().pixelIndex(4, 2), 0);
}

void TestImageTabs::scratchEditsTheProjectAndSurvivesSaveAndReopen()
{
    QVERIFY(scratchAction()->isEnabled());
    scratchAction()->trigger();
    ImageEditor::View* scratch = currentView();
    QVERIFY(scratch);
    QCOMPARE(mWindow->tabView()->tabText(mWindow->tabView()->currentIndex()), QStringLiteral("Scratch Image Editor"));

    // Without palettes the standard colours show; the first palette made
    // becomes the scratch palette, as a reopen would make it.
    const QPointer<Project> project = mWindow->projectController()->project();
    QVERIFY(project->scratchPalette().isNull());
    const QPointer<Palette> first = project->createPalette(CreateAction::NewBlank, "First");
    QCOMPARE(project->scratchPalette(), first->id());
    QCOMPARE(scratch->shownPalette(), first);
    project->createPalette(CreateAction::Standard, "Second");
    QCOMPARE(project->scratchPalette(), first->id());

    stroke(scratch->canvas(), 10, 20);
    QCOMPARE(project->scratchImage().pixelIndex(10, 20), 1);
    QCOMPARE(group()->activeStack(), mWindow->documentController()->stack(QUuid()));
    QCOMPARE(group()->activeStack()->count(), 1);
    const QImage painted = project->scratchImage();

    mWindow->projectController()->save();
    mWindow->projectController()->close();
    QVERIFY(!scratch->isEnabled());
    QVERIFY(!scratchAction()->isChecked());
    mWindow->projectController()->openProject(mFile);
    QVERIFY(sameIndexedPixels(mWindow->projectController()->project()->scratchImage(), painted));
    QVERIFY(sameIndexedPixels(scratch->canvas()->image(), painted));
    QCOMPARE(mWindow->documentController()->stack(QUuid())->count(), 0);

    // Its own close button hides the tab, and the menu says so.
    scratchAction()->trigger();
    QVERIFY(scratchAction()->isChecked());
    emit mWindow->tabView()->tabCloseRequested(tabOf(scratch));
    QVERIFY(!scratchAction()->isChecked());
    QCOMPARE(tabOf(scratch), -1);
    scratchAction()->trigger();
    QCOMPARE(currentView(), scratch);
}

QTEST_MAIN(TestImageTabs)
#include "tst_imagetabs.moc"
