#include "editors/palette/coloureditor.h"
#include "editors/palette/colourpalette.h"
#include "editors/palette/colourselector.h"
#include "editors/palette/palettegrid.h"
#include "editors/palette/palettewindow.h"
#include "editors/palette/rgbeditor.h"
#include "history/editrecorder.h"
#include "model/palette.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSlider>
#include <QToolButton>
#include <QUndoStack>
#include <QtTest>

// The colour widgets driven as a user drives them, checked on the palette.
class TestPaletteWidgets : public QObject
{
    Q_OBJECT
private slots:
    void okFollowsTheEdit();
    void darkenAndLightenStepOneLevel_data();
    void darkenAndLightenStepOneLevel();
    void confirmedEditPaintsTheRangeAsOneStep();
    void gradient_data();
    void gradient();
    void selectorPicksInkAndPaperInTheBank();
};

namespace {

QPoint centreOf(int index)
{
    return QPoint((index % 16) * PaletteGrid::Pitch + 7, (index / 16) * PaletteGrid::Pitch + 7);
}

} // namespace

void TestPaletteWidgets::okFollowsTheEdit()
{
    ColourEditor editor;
    editor.setColour(QColor(73, 110, 146), false);
    QVERIFY(!editor.okButton()->isEnabled());
    auto* red = editor.rgbEditor()->findChildren<QSlider*>().at(0);
    red->setValue(3);
    QVERIFY(editor.okButton()->isEnabled());
    red->setValue(2); // back to the saved level
    QVERIFY(!editor.okButton()->isEnabled());
    editor.findChild<QCheckBox*>()->setChecked(true);
    QVERIFY(editor.okButton()->isEnabled());
    editor.findChild<QCheckBox*>()->setChecked(false);
    QVERIFY(!editor.okButton()->isEnabled());

    QSignalSpy confirmed(&editor, &ColourEditor::colourChanged);
    red->setValue(7);
    editor.cancelClick();
    QCOMPARE(editor.editedColour(), QColor(73, 110, 146));
    QCOMPARE(confirmed.count(), 0);
    red->setValue(7);
    QTest::mouseClick(editor.okButton(), Qt::LeftButton);
    QCOMPARE(confirmed.count(), 1);
    QCOMPARE(confirmed.at(0).at(0).value<QColor>(), QColor(255, 110, 146));
    QVERIFY(!editor.okButton()->isEnabled());
}

void TestPaletteWidgets::darkenAndLightenStepOneLevel_data()
{
    QTest::addColumn<QColor>("start");
    QTest::addColumn<bool>("darker");
    QTest::addColumn<QColor>("levels"); // as levels 0 to 7 per channel
    QTest::newRow("black stays black") << QColor(Qt::black) << true << QColor(0, 0, 0);
    QTest::newRow("white stays white") << QColor(Qt::white) << false << QColor(7, 7, 7);
    QTest::newRow("darken white one step") << QColor(Qt::white) << true << QColor(6, 6, 6);
    QTest::newRow("lighten a grey one step") << QColor(110, 110, 110) << false << QColor(4, 4, 4);
}

void TestPaletteWidgets::darkenAndLightenStepOneLevel()
{
    QFETCH(QColor, start);
    QFETCH(bool, darker);
    QFETCH(QColor, levels);
    ColourEditor editor;
    editor.setColour(start, false);
    darker ? editor.darken() : editor.lighten();
    const QColor edited = editor.editedColour();
    QCOMPARE(QColor(RgbEditor::levelOf(edited.red()), RgbEditor::levelOf(edited.green()),
                    RgbEditor::levelOf(edited.blue())),
             levels);
}

void TestPaletteWidgets::confirmedEditPaintsTheRangeAsOneStep()
{
    Palette palette;
    palette.loadStandard();
    QUndoStack stack;
    EditRecorder recorder([&stack](const QUuid&) { return &stack; });
    recorder.trackPalette(&palette);
    PaletteWindow window;
    window.setPalette(&palette);
    QVERIFY(window.isActive());

    QTest::mousePress(window.grid(), Qt::LeftButton, {}, centreOf(17));
    QTest::mouseMove(window.grid(), centreOf(20));
    QTest::mouseMove(window.grid(), QPoint(-40, 500)); // clamped onto the grid: entry 240
    QTest::mouseMove(window.grid(), centreOf(20));
    QTest::mouseRelease(window.grid(), Qt::LeftButton, {}, centreOf(20));
    QCOMPARE(window.grid()->first(), 17);
    QCOMPARE(window.grid()->last(), 20);
    QVERIFY(window.gradientButton()->isEnabled());

    const ushort before = palette.entry(18);
    window.colourEditor()->rgbEditor()->setColour(QColor(255, 0, 0));
    window.colourEditor()->rgbValueChanged(QColor(255, 0, 0));
    QCOMPARE(palette.entry(18), before); // nothing reaches the palette before OK
    window.colourEditor()->okClick();
    for (int i = 17; i <= 20; ++i)
        QCOMPARE(palette.colour(i), QColor(255, 0, 0));
    QCOMPARE(stack.count(), 1);
    stack.undo();
    QCOMPARE(palette.entry(18), before);
    QCOMPARE(palette.colour(17), Palette::decode(Palette::standardEntry(17)));
}

void TestPaletteWidgets::gradient_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<QList<int>>("reds"); // red channel from first to last afterwards
    QTest::newRow("adjacent entries: nothing") << 0 << 1 << QList<int> { 0, 255 };
    QTest::newRow("three entries: the middle one") << 0 << 2 << QList<int> { 0, 146, 255 };
    QTest::newRow("uneven last step") << 0 << 3 << QList<int> { 0, 73, 183, 255 };
}

void TestPaletteWidgets::gradient()
{
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(QList<int>, reds);
    Palette palette;
    palette.setColour(first, Qt::black, false);
    palette.setColour(last, QColor(255, 0, 0), false);
    for (int i = first + 1; i < last; ++i)
        palette.setColour(i, QColor(0, 0, 255), true);
    PaletteWindow window;
    window.setPalette(&palette);
    window.grid()->setSelection(first, last);
    QTest::mouseClick(window.gradientButton(), Qt::LeftButton);
    QList<int> found;
    for (int i = first; i <= last; ++i)
        found << palette.colour(i).red();
    QCOMPARE(found, reds);
    for (int i = first + 1; i < last; ++i)
        QVERIFY(palette.priority(i)); // each written entry keeps its flag
}

void TestPaletteWidgets::selectorPicksInkAndPaperInTheBank()
{
    Palette palette;
    palette.loadStandard();
    ColourSelector selector(ColourPalette::Bank16);
    selector.setPalette(&palette);
    selector.setOffset(3); // the third bank: entries 32 to 47
    QSignalSpy ink(&selector, &ColourSelector::foreColourChanged);
    QSignalSpy paper(&selector, &ColourSelector::backColourChanged);
    QSignalSpy edit(&selector, &ColourSelector::doubleClicked);
    ColourPalette* picker = selector.picker();
    const QPoint fifth = picker->cellRect(32 + 5).center();
    QTest::mouseClick(picker, Qt::LeftButton, {}, fifth);
    QTest::mouseClick(picker, Qt::RightButton, {}, picker->cellRect(32 + 9).center());
    QTest::mouseDClick(picker, Qt::LeftButton, {}, fifth);
    QCOMPARE(ink.at(0).at(0).toInt(), 37);
    QCOMPARE(paper.at(0).at(0).toInt(), 41);
    QCOMPARE(edit.last().at(0).toInt(), 37);
    selector.setOffset(1); // the marks move with the bank, as the canvas's ink does
    QCOMPARE(selector.foreIndex(), 5);
    QCOMPARE(selector.backIndex(), 9);
}

QTEST_MAIN(TestPaletteWidgets)
#include "tst_palettewidgets.moc"
