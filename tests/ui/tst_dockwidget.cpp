#include "ui/dockwidget.h"

#include <QLabel>
#include <QPointer>
#include <QtTest>

class TestDockWidget : public QObject
{
    Q_OBJECT
private slots:
    void identity();
    void placeholderUntilActiveWithContent_data();
    void placeholderUntilActiveWithContent();
    void replacingContentDeletesTheOld();
};

void TestDockWidget::identity()
{
    DockWidget dock("name", "Title", "Nothing here");
    QCOMPARE(dock.objectName(), QStringLiteral("name"));
    QCOMPARE(dock.windowTitle(), QStringLiteral("Title"));
    QCOMPARE(dock.placeholderText(), QStringLiteral("Nothing here"));
    dock.setPlaceholderText("Still nothing");
    QCOMPARE(dock.placeholderText(), QStringLiteral("Still nothing"));
}

void TestDockWidget::placeholderUntilActiveWithContent_data()
{
    QTest::addColumn<bool>("withContent");
    QTest::addColumn<bool>("active");
    QTest::addColumn<bool>("placeholder");
    QTest::newRow("empty and inactive") << false << false << true;
    QTest::newRow("empty but active") << false << true << true;
    QTest::newRow("content but inactive") << true << false << true;
    QTest::newRow("content and active") << true << true << false;
}

void TestDockWidget::placeholderUntilActiveWithContent()
{
    QFETCH(bool, withContent);
    QFETCH(bool, active);
    QFETCH(bool, placeholder);
    DockWidget dock("name", "Title", "Nothing here");
    QVERIFY(!dock.isActive());
    if (withContent)
        dock.setContent(new QLabel("content"));
    dock.setActive(active);
    QCOMPARE(dock.isActive(), active);
    QCOMPARE(dock.isShowingPlaceholder(), placeholder);
}

void TestDockWidget::replacingContentDeletesTheOld()
{
    DockWidget dock("name", "Title", "Nothing here");
    QPointer<QLabel> first = new QLabel("first");
    dock.setContent(first);
    dock.setActive(true);
    dock.setContent(new QLabel("second"));
    QVERIFY(first.isNull());
    QVERIFY(!dock.isShowingPlaceholder());
    dock.setContent(nullptr);
    QVERIFY(dock.isShowingPlaceholder());
}

QTEST_MAIN(TestDockWidget)
#include "tst_dockwidget.moc"
