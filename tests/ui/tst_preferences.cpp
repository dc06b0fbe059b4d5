#include "ui/generalpage.h"
#include "ui/mapeditorpage.h"
#include "ui/preferencesdialog.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QtTest>

class TestPreferences : public QObject
{
    Q_OBJECT
private slots:
    void reading_data();
    void reading();
    void cancelRestoresAndSaveKeeps();
    void colourPickerServesTheButtonClicked();
};

namespace {

// A page state as one line, so that a table row can name it.
QString mapState(const MapEditorPage* page)
{
    return QStringLiteral("checker=%1 overlay=%2 size=%3 zoom=%4 colours=%5,%6")
        .arg(page->checkerBoard())
        .arg(page->overlayGrid())
        .arg(page->gridSize())
        .arg(page->defaultZoom())
        .arg(page->gridColour1().name(), page->gridColour2().name());
}

QString generalState(const GeneralPage* page)
{
    return QStringLiteral("backup=%1 check=%2 interval=%3")
        .arg(page->backupOnSave())
        .arg(page->versionCheckEnabled())
        .arg(page->updateInterval());
}

// On the box itself: the row is wider than what a click may hit.
void clickCheckBox(QCheckBox* box)
{
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
}

QImage swatch(const MapEditorPage* page, int index)
{
    return page->colourButton(index)->icon().pixmap(48, 16).toImage();
}

} // namespace

void TestPreferences::reading_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("general");
    QTest::addColumn<QString>("map");
    // Each row reads into a dialog that was first given this document.
    const QString before = "checker=0 overlay=0 size=16 zoom=2 colours=#102030,#405060";
    QTest::newRow("empty file: nothing changes") << QByteArray("") << "backup=0 check=0 interval=monthly"
                                                 << before;
    QTest::newRow("only general: the map page stays")
        << QByteArray(R"({"general":{"backupOnSave":true}})") << "backup=1 check=1 interval=monthly" << before;
    QTest::newRow("missing keys: check boxes to defaults, the rest stays")
        << QByteArray(R"({"general":{},"mapEditor":{}})") << "backup=1 check=1 interval=monthly"
        << "checker=1 overlay=1 size=16 zoom=2 colours=#102030,#405060";
    QTest::newRow("off the step: kept; out of range: clamped")
        << QByteArray(R"({"mapEditor":{"checkerBoard":false,"overlayGrid":false,"gridSize":12,"defaultZoom":0}})")
        << "backup=0 check=0 interval=monthly" << "checker=0 overlay=0 size=12 zoom=1 colours=#102030,#405060";
    QTest::newRow("unknown interval and colour keep what was there")
        << QByteArray(R"({"general":{"backupOnSave":false,"versionCheckEnabled":false,"updateInterval":"hourly"},)"
                      R"("mapEditor":{"checkerBoard":false,"overlayGrid":false,"gridColour1":"mauvish",)"
                      R"("gridColour2":"#ff8000"}})")
        << "backup=0 check=0 interval=monthly" << "checker=0 overlay=0 size=16 zoom=2 colours=#102030,#ff8000";
    QTest::newRow("values of the wrong type")
        << QByteArray(R"({"general":{"backupOnSave":"no","versionCheckEnabled":0,"updateInterval":"daily"},)"
                      R"("mapEditor":{"checkerBoard":false,"overlayGrid":false,"gridSize":"64","defaultZoom":3.5}})")
        << "backup=1 check=1 interval=daily" << "checker=0 overlay=0 size=16 zoom=2 colours=#102030,#405060";
}

void TestPreferences::reading()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, general);
    QFETCH(QString, map);
    PreferencesDialog dialog;
    dialog.fromJson(QJsonDocument::fromJson(
        R"({"general":{"backupOnSave":false,"versionCheckEnabled":false,"updateInterval":"monthly"},)"
        R"("mapEditor":{"checkerBoard":false,"overlayGrid":false,"gridSize":16,"defaultZoom":2,)"
        R"("gridColour1":"#102030","gridColour2":"#405060"}})"));
    dialog.fromJson(QJsonDocument::fromJson(file));
    QCOMPARE(generalState(dialog.general()), general);
    QCOMPARE(mapState(dialog.mapEditor()), map);
}

void TestPreferences::cancelRestoresAndSaveKeeps()
{
    PreferencesDialog dialog;
    MapEditorPage* map = dialog.mapEditor();
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.pages()->currentWidget(), dialog.general());
    const QJsonDocument shown = dialog.toJson();
    const QImage swatchShown = swatch(map, 0);

    QListWidget* list = dialog.pageList();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    QCOMPARE(dialog.pages()->currentWidget(), map);
    map->setFirstGridColour(QColor("#ff0000"));
    QVERIFY(swatch(map, 0) != swatchShown);
    clickCheckBox(map->checkerBox());
    QVERIFY(!map->checkerBoard());
    map->gridSizeBox()->selectAll();
    QTest::keyClicks(map->gridSizeBox(), "32");
    QCOMPARE(map->gridSize(), 32);
    QTest::mouseClick(dialog.buttons()->buttons().at(1), Qt::LeftButton); // Cancel
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.toJson(), shown);
    QCOMPARE(swatch(map, 0), swatchShown);

    dialog.show();
    clickCheckBox(map->checkerBox());
    QTest::mouseClick(dialog.buttons()->buttons().at(0), Qt::LeftButton); // Save
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!map->checkerBoard());

    // A second showing takes a new snapshot: Escape goes back to it.
    dialog.show();
    map->zoomBox()->setValue(7);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCOMPARE(map->defaultZoom(), 4);
    QVERIFY(!map->checkerBoard());
}

void TestPreferences::colourPickerServesTheButtonClicked()
{
    MapEditorPage page;
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    const QColor first = page.gridColour1();
    QTest::mouseClick(page.colourButton(1), Qt::LeftButton);
    QColorDialog* picker = page.colourPicker();
    QVERIFY(picker->isVisible());
    QCOMPARE(picker->currentColor(), page.gridColour2());
    picker->setCurrentColor(QColor("#00ff80"));
    picker->accept();
    QCOMPARE(page.gridColour2(), QColor("#00ff80"));
    QCOMPARE(page.gridColour1(), first);
    QCOMPARE(swatch(&page, 1).pixelColor(24, 8), QColor("#00ff80"));
}

QTEST_MAIN(TestPreferences)
#include "tst_preferences.moc"
