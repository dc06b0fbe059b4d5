#include "canvas/canvas.h"
#include "editors/sprite/spritelist.h"
#include "editors/sprite/spritewindow.h"
#include "history/editrecorder.h"
#include "model/palette.h"
#include "model/spritebank.h"

#include <QMimeData>
#include <QSpinBox>
#include <QUndoStack>
#include <QtTest>

// The sprite dock on a bank, with its edits recorded as a project would.
class TestSpriteEditor : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void structureStepsKeepOneOffsetPerSprite_data();
    void structureStepsKeepOneOffsetPerSprite();
    void dropsMoveOrCopyByModifier_data();
    void dropsMoveOrCopyByModifier();
    void fourBitStrokesKeepFourBits();
    void undoOfASpriteNotShownWritesTheBankOnly();

private:
    void stroke(int x, int y);
    QList<int> marks() const; // pixel (0, 0) of each sprite
    QList<int> offsets() const;

    Palette mPalette;
    SpriteBank* mBank = nullptr;
    QUndoStack* mStack = nullptr;
    EditRecorder* mRecorder = nullptr;
    SpriteWindow* mWindow = nullptr;
};

void TestSpriteEditor::init()
{
    mPalette.loadStandard();
    mBank = new SpriteBank(Tintorel::Sprite::FourBit);
    mBank->setPalette(&mPalette);
    for (int i = 1; i < 4; ++i)
        mBank->addSprite(true);
    for (int i = 0; i < 4; ++i) {
        QImage sprite = mBank->sprite(i);
        sprite.setPixel(0, 0, uint(i));
        mBank->setImage(i, sprite);
        mBank->setOffset(i, i + 4);
    }
    mStack = new QUndoStack;
    mRecorder = new EditRecorder([this](const QUuid&) { return mStack; });
    mRecorder->trackSprites(mBank);
    mWindow = new SpriteWindow;
    mWindow->setUndoStackProvider([this] { return mStack; });
    mWindow->setSprites(mBank);
    mWindow->resize(400, 900);
    mWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(mWindow));
}

void TestSpriteEditor::cleanup()
{
    delete mWindow;
    delete mRecorder;
    delete mStack;
    delete mBank;
}

QList<int> TestSpriteEditor::marks() const
{
    QList<int> found;
    for (int i = 0; i < mBank->spriteCount(); ++i)
        found << mBank->sprite(i).pixelIndex(0, 0);
    return found;
}

QList<int> TestSpriteEditor::offsets() const
{
    QList<int> found;
    for (int i = 0; i < mBank->spriteCount(); ++i)
        found << mBank->offset(i);
    return found;
}

void TestSpriteEditor::stroke(int x, int y)
{
    QCoreApplication::processEvents(); // the layout settles where the canvas stands
    Canvas* canvas = mWindow->canvas();
    const QPoint at = canvas->imageArea().topLeft() + QPoint(x * canvas->zoom() + 2, y * canvas->zoom() + 2);
    QTest::mouseMove(canvas, at);
    QTest::mousePress(canvas, Qt::LeftButton, {}, at);
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, at);
}

void TestSpriteEditor::structureStepsKeepOneOffsetPerSprite_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("marks");
    QTest::addColumn<QList<int>>("offsets");
    QTest::newRow("add") << "add" << "Add Sprite" << QList<int> { 0, 1, 2, 3, 0 } << QList<int> { 4, 5, 6, 7, 0 };
    QTest::newRow("delete") << "delete" << "Delete Sprite" << QList<int> { 0, 2, 3 } << QList<int> { 4, 6, 7 };
    QTest::newRow("clear") << "clear" << "Clear Sprite" << QList<int> { 0, 0, 2, 3 } << QList<int> { 4, 5, 6, 7 };
    QTest::newRow("copy") << "copy" << "Copy Sprite" << QList<int> { 0, 1, 2, 1 } << QList<int> { 4, 5, 6, 5 };
    QTest::newRow("move") << "move" << "Move Sprite" << QList<int> { 0, 2, 3, 1 } << QList<int> { 4, 6, 7, 5 };
}

void TestSpriteEditor::structureStepsKeepOneOffsetPerSprite()
{
    QFETCH(QString, action);
    QFETCH(QString, text);
    QFETCH(QList<int>, marks);
    QFETCH(QList<int>, offsets);
    SpriteEditor::SpriteList* list = mWindow->spriteList();
    const QList<int> before = this->marks();
    const QList<int> offsetsBefore = this->offsets();
    if (action == "add")
        emit list->addSprite();
    else if (action == "delete")
        emit list->deleteRequested(1);
    else if (action == "clear")
        emit list->clearRequested(1);
    else if (action == "copy")
        emit list->copySprite(1, 3);
    else
        emit list->moveSprite(1, 3);
    QCOMPARE(this->marks(), marks);
    QCOMPARE(this->offsets(), offsets);
    QCOMPARE(mStack->count(), 1);
    QCOMPARE(mStack->undoText(), text);
    QVERIFY(mWindow->spriteNumber() <= mBank->spriteCount());

    mStack->undo();
    QCOMPARE(this->marks(), before);
    QCOMPARE(this->offsets(), offsetsBefore);
    mStack->redo();
    QCOMPARE(this->marks(), marks);
    QCOMPARE(this->offsets(), offsets);
}

void TestSpriteEditor::dropsMoveOrCopyByModifier_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QList<int>>("marks");
    QTest::newRow("no modifier moves") << int(Qt::NoModifier) << QList<int> { 2, 0, 1, 3 };
    QTest::newRow("exactly Shift copies") << int(Qt::ShiftModifier) << QList<int> { 2, 1, 2, 3 };
    QTest::newRow("Control drops nothing") << int(Qt::ControlModifier) << QList<int> { 0, 1, 2, 3 };
}

void TestSpriteEditor::dropsMoveOrCopyByModifier()
{
    QFETCH(int, modifiers);
    QFETCH(QList<int>, marks);
    SpriteEditor::SpriteList* list = mWindow->spriteList();
    QTest::mousePress(list, Qt::LeftButton, {}, list->cellRect(2).center());
    QMimeData mime;
    mime.setData(SpriteEditor::SpriteList::DragFormat, QByteArray(4, 0));
    const QPointF at = list->cellRect(0).center();
    QDragMoveEvent move(at.toPoint(), Qt::MoveAction, &mime, Qt::LeftButton, Qt::KeyboardModifiers(modifiers));
    static_cast<QObject&>(*list).event(&move);
    QDropEvent drop(at, Qt::MoveAction, &mime, Qt::LeftButton, Qt::KeyboardModifiers(modifiers));
    static_cast<QObject&>(*list).event(&drop);
    QTest::mouseRelease(list, Qt::LeftButton, {}, at.toPoint());
    QCOMPARE(this->marks(), marks);
}

void TestSpriteEditor::fourBitStrokesKeepFourBits()
{
    // Sprite 1 is drawn in bank 5: the canvas shows 0x5n, the bank keeps n.
    mWindow->changeSprite(1);
    QCOMPARE(mWindow->offsetBox()->value(), 6);
    stroke(3, 3);
    QCOMPARE(mWindow->canvas()->image().pixelIndex(3, 3), 0x51);
    QCOMPARE(mBank->sprite(1).pixelIndex(3, 3), 1);
    QCOMPARE(mStack->count(), 1);
    mWindow->offsetBox()->setValue(3);
    QCOMPARE(mBank->offset(1), 2);
    QCOMPARE(mWindow->canvas()->image().pixelIndex(3, 3), 0x21);
    QCOMPARE(mStack->count(), 1); // a bank is no step
}

void TestSpriteEditor::undoOfASpriteNotShownWritesTheBankOnly()
{
    stroke(5, 5);
    QCOMPARE(mBank->sprite(0).pixelIndex(5, 5), 1);
    mWindow->changeSprite(2);
    const int shown = mWindow->canvas()->image().pixelIndex(5, 5);
    mStack->undo();
    QCOMPARE(mBank->sprite(0).pixelIndex(5, 5), 0);
    QCOMPARE(mWindow->canvas()->image().pixelIndex(5, 5), shown);
    QCOMPARE(mWindow->spriteNumber(), 3);
}

QTEST_MAIN(TestSpriteEditor)
#include "tst_spriteeditor.moc"
