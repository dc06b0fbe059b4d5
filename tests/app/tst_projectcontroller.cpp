#include "app/documentcontroller.h"
#include "app/projectcontroller.h"
#include "history/editrecorder.h"
#include "model/image.h"
#include "model/map.h"
#include "model/mapobjects.h"
#include "model/palette.h"
#include "model/spritebank.h"
#include "project/project.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUndoCommand>
#include <QUndoStack>
#include <QtTest>

using Answer = ProjectController::UnsavedAnswer;

// The controller driven through its callbacks, as the window drives it,
// with undo stacks from a real document controller.
class TestProjectController : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void untouchedProjectClosesWithoutAsking();
    void newAssetCountsAsUnsaved();
    void undoEntryCountsAsUnsaved();
    void answers_data();
    void answers();
    void saveAsCancelledKeepsThePath();
    void reopenRestoresTabsInOrder();
    void failedOpenLeavesNoProject();

private:
    std::unique_ptr<QTemporaryDir> mDir;
    std::unique_ptr<ProjectController> mProjects;
    std::unique_ptr<DocumentController> mDocuments;
    int mPrompts = 0;
    Answer mAnswer = Answer::Cancel;
    QString mSavePath;
};

void TestProjectController::init()
{
    mDir = std::make_unique<QTemporaryDir>();
    mProjects = std::make_unique<ProjectController>();
    mDocuments = std::make_unique<DocumentController>(DocumentViews(), mProjects.get());
    mPrompts = 0;
    mProjects->promptUnsaved = [this](const QString&) {
        ++mPrompts;
        return mAnswer;
    };
    mProjects->askSavePath = [this] { return mSavePath; };
    mProjects->newProject("Game");
}

void TestProjectController::cleanup()
{
    mDocuments.reset();
    mProjects.reset();
}

void TestProjectController::untouchedProjectClosesWithoutAsking()
{
    QVERIFY(!mProjects->hasUnsavedChanges());
    QVERIFY(mProjects->confirmClose());
    QCOMPARE(mPrompts, 0);
}

void TestProjectController::newAssetCountsAsUnsaved()
{
    mProjects->project()->createPalette(CreateAction::Standard, "Sky");
    QVERIFY(mDocuments->isClean()); // no undo entry was made
    QVERIFY(mProjects->hasUnsavedChanges());
}

void TestProjectController::undoEntryCountsAsUnsaved()
{
    const QPointer<Palette> palette = mProjects->project()->createPalette(CreateAction::Blank, "Sky");
    mSavePath = mDir->filePath("game.tintorel");
    mProjects->save();
    QVERIFY(!mProjects->hasUnsavedChanges());
    mDocuments->recorder()->trackPalette(palette);
    palette->setColour(3, Qt::red, false);
    QCOMPARE(mDocuments->stack(palette->id())->count(), 1);
    QVERIFY(!mDocuments->isClean());
    QVERIFY(mProjects->hasUnsavedChanges());
    mDocuments->stack(palette->id())->undo();
    QVERIFY(!mProjects->hasUnsavedChanges());
}

void TestProjectController::answers_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("savePath"); // empty: the save dialog is cancelled
    QTest::addColumn<bool>("mayClose");
    QTest::newRow("cancel keeps the project") << int(Answer::Cancel) << "" << false;
    QTest::newRow("discard closes") << int(Answer::Discard) << "" << true;
    QTest::newRow("save closes once saved") << int(Answer::Save) << "saved.tintorel" << true;
    QTest::newRow("save cancelled in the dialog keeps it") << int(Answer::Save) << "" << false;
}

void TestProjectController::answers()
{
    QFETCH(int, answer);
    QFETCH(QString, savePath);
    QFETCH(bool, mayClose);
    mProjects->project()->createPalette(CreateAction::Standard, "Sky");
    mAnswer = Answer(answer);
    mSavePath = savePath.isEmpty() ? QString() : mDir->filePath(savePath);
    QCOMPARE(mProjects->confirmClose(), mayClose);
    QCOMPARE(mPrompts, 1);
    QVERIFY(mProjects->project());
    if (!savePath.isEmpty())
        QVERIFY(QFile::exists(mSavePath));
}

void TestProjectController::saveAsCancelledKeepsThePath()
{
    mSavePath = mDir->filePath("first.tintorel");
    QSignalSpy recent(mProjects.get(), &ProjectController::recentFileAdded);
    mProjects->save();
    QCOMPARE(mProjects->store().filePath(), mSavePath);
    QCOMPARE(recent.count(), 1);
    mSavePath.clear();
    mProjects->saveAs();
    QCOMPARE(mProjects->store().filePath(), mDir->filePath("first.tintorel"));
    mSavePath = mDir->filePath("no/such/folder/x.tintorel");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(".*"));
    mProjects->saveAs();
    QCOMPARE(mProjects->store().filePath(), mDir->filePath("first.tintorel"));
}

void TestProjectController::reopenRestoresTabsInOrder()
{
    Project& project = *mProjects->project();
    const QUuid map = project.createMap("Map", QUuid(), QSize(2, 2))->id();
    const QUuid bank = project.createSpriteBank(Tintorel::Sprite::FourBit, "Bank", QUuid())->id();
    const QUuid blocks = project.createBlockList("Blocks", QUuid())->id();
    const QUuid image = project.createImage(Tintorel::ImageMode::LoRes_128x96, "Image", QUuid())->id();
    project.setOpenDocuments({ bank.toString(), QUuid::createUuid().toString(), image.toString(), map.toString(),
                               blocks.toString() });
    mSavePath = mDir->filePath("tabs.tintorel");
    mProjects->save();

    QSignalSpy maps(mDocuments.get(), &DocumentController::activeMapChanged);
    QSignalSpy sprites(mDocuments.get(), &DocumentController::activeSpritesChanged);
    mProjects->openProject(mSavePath);
    QCOMPARE(sprites.count(), 1); // the stale id and the image are skipped without a word
    QCOMPARE(maps.count(), 1);
    QCOMPARE(mProjects->project()->openDocuments().size(), 5);
    QCOMPARE(mDocuments->undoGroup()->activeStack(), mDocuments->stack(blocks)); // the last one restored
}

void TestProjectController::failedOpenLeavesNoProject()
{
    QSignalSpy closed(mProjects.get(), &ProjectController::projectClosed);
    QSignalSpy opened(mProjects.get(), &ProjectController::projectOpened);
    mProjects->openProject(mDir->filePath("missing.tintorel"));
    QCOMPARE(closed.count(), 1);
    QCOMPARE(opened.count(), 0);
    QVERIFY(!mProjects->project());
    QVERIFY(mProjects->confirmClose());
}

QTEST_MAIN(TestProjectController)
#include "tst_projectcontroller.moc"
