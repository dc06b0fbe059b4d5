#include "ui/flowlayout.h"
#include "ui/themedicon.h"
#include "ui/themediconengine.h"
#include "ui/toolpalette.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QTemporaryDir>
#include <QtTest>

using Tintorel::Ui::ToolButton;

namespace {

const QColor kButtonText(0x10, 0x20, 0x30);
const QColor kDisabledText(0xa0, 0xb0, 0xc0);
const QColor kHighlightedText(0xe0, 0x10, 0x10);

QString keyFor(const QString& path, const QSize& device, const QColor& colour)
{
    return QStringLiteral("themed:%1:%2x%3:%4").arg(path).arg(device.width()).arg(device.height()).arg(colour.rgb());
}

bool isBlank(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) != 0)
                return false;
    return true;
}

struct Row
{
    ToolButton button;
    QString text;
    QString icon;
    bool checkable;
    QString toolTip;
};

const QList<Row>& expectedTable()
{
    static const QList<Row> rows = {
        {ToolButton::Draw, "Draw", ":/Paint", true, "Draw [D]"},
        {ToolButton::Line, "Line", ":/Line", true, "Line [L]"},
        {ToolButton::Rectangle, "Rectangle", ":/Rectangle", true, "Rectangle [R]"},
        {ToolButton::RectangleFill, "Filled Rectangle", ":/RectangleFill", true, "Filled Rectangle [Shift+R]"},
        {ToolButton::Circle, "Circle/Oval", ":/Circle", true, "Circle/Oval [C]"},
        {ToolButton::Fill, "Fill", ":/Fill", true, "Fill [F]"},
        {ToolButton::Erase, "Erase", ":/Erase", true, "Erase [E]"},
        {ToolButton::Pick, "Pick", ":/Picker", true, "Pick [P]"},
        {ToolButton::Select, "Select", ":/Select", true, "Select [S]"},
        {ToolButton::Resize, "Resize", ":/Resize", false, "Resize [Ctrl+Shift+R]"},
        {ToolButton::Grid, "Toggle Grid", ":/Grid", true, "Toggle Grid [G]"},
        {ToolButton::ZoomIn, "Increase Magnification", ":/ZoomIn", false, "Increase Magnification [=]"},
        {ToolButton::ZoomOut, "Decrease Magnification", ":/ZoomOut", false, "Decrease Magnification [-]"},
        {ToolButton::MoveUp, "Move Up", ":/Arrow/N", false, "Move Up [Shift+Up]"},
        {ToolButton::MoveDown, "Move Down", ":/Arrow/S", false, "Move Down [Shift+Down]"},
        {ToolButton::MoveLeft, "Move Left", ":/Arrow/W", false, "Move Left [Shift+Left]"},
        {ToolButton::MoveRight, "Move Right", ":/Arrow/E", false, "Move Right [Shift+Right]"},
        {ToolButton::Cut, "Cut", ":/Cut", false, "Cut"},
        {ToolButton::Copy, "Copy", ":/Copy", false, "Copy"},
        {ToolButton::Paste, "Paste", ":/Paste", false, "Paste"},
        {ToolButton::Crop, "Crop", ":/Crop", false, "Crop"},
        {ToolButton::Open, "Import Image", ":/OpenIcon", false, "Import Image"},
        {ToolButton::Save, "Export Image", ":/SaveIcon", false, "Export Image"},
        {ToolButton::RotateCW, "Rotate CW", ":/RotateCW", false, "Rotate CW"},
        {ToolButton::RotateCCW, "Rotate CCW", ":/RotateCCW", false, "Rotate CCW"},
        {ToolButton::Flip, "Flip", ":/Flip", false, "Flip"},
        {ToolButton::Mirror, "Mirror", ":/Mirror", false, "Mirror"},
        {ToolButton::PaintPalette, "Palette", ":/Palette", false, "Palette"},
    };
    return rows;
}

} // namespace

class TestThemedIcon : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init() { QPixmapCache::clear(); }

    void cacheKey_data();
    void cacheKey();
    void sizesAndModesAreSeparateEntries();
    void iconPixmapAtRatioTwoKeysOnDeviceSize();
    void currentColorFollowsMode_data();
    void currentColorFollowsMode();
    void ownColoursStayInEveryMode();
    void missingResourceIsEmpty();
    void resourceLoads_data();
    void resourceLoads();

    void tableInOrder();
    void toolRows_data();
    void toolRows();
    void togglesExcludeEachOther();
    void gridCheckedAfterAddTools();
    void unknownButtonsAreIgnored();

    void flowHeightForWidth_data();
    void flowHeightForWidth();
    void flowSpacingAtLeastOne();
};

void TestThemedIcon::initTestCase()
{
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Active, QPalette::ButtonText, kButtonText);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, kDisabledText);
    palette.setColor(QPalette::Active, QPalette::HighlightedText, kHighlightedText);
    QApplication::setPalette(palette);
}

void TestThemedIcon::cacheKey_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QSize>("device");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("normal") << QSize(16, 16) << 1.0 << int(QIcon::Normal) << QSize(16, 16) << kButtonText;
    QTest::newRow("active takes the normal colour") << QSize(16, 16) << 1.0 << int(QIcon::Active) << QSize(16, 16)
                                                    << kButtonText;
    QTest::newRow("disabled") << QSize(16, 16) << 1.0 << int(QIcon::Disabled) << QSize(16, 16) << kDisabledText;
    QTest::newRow("selected") << QSize(16, 16) << 1.0 << int(QIcon::Selected) << QSize(16, 16) << kHighlightedText;
    QTest::newRow("ratio 2 doubles") << QSize(32, 32) << 2.0 << int(QIcon::Normal) << QSize(64, 64) << kButtonText;
    QTest::newRow("half rounds away from zero") << QSize(15, 21) << 1.5 << int(QIcon::Normal) << QSize(23, 32)
                                                << kButtonText;
}

void TestThemedIcon::cacheKey()
{
    QFETCH(QSize, size);
    QFETCH(qreal, scale);
    QFETCH(int, mode);
    QFETCH(QSize, device);
    QFETCH(QColor, colour);
    ThemedIconEngine engine(":/Grid");
    const QPixmap pixmap = engine.pixmap(size, QIcon::Mode(mode), QIcon::Off, scale);
    QCOMPARE(pixmap.size(), device);
    QCOMPARE(pixmap.devicePixelRatio(), scale);
    QPixmap cached;
    QVERIFY(QPixmapCache::find(keyFor(":/Grid", device, colour), &cached));
    QCOMPARE(cached.cacheKey(), pixmap.cacheKey());
}

void TestThemedIcon::sizesAndModesAreSeparateEntries()
{
    const QIcon icon = themedIcon(":/Grid");
    const qint64 small = icon.pixmap(16, QIcon::Normal).cacheKey();
    const qint64 large = icon.pixmap(24, QIcon::Normal).cacheKey();
    const qint64 disabled = icon.pixmap(16, QIcon::Disabled).cacheKey();
    QVERIFY(small != large && small != disabled && large != disabled);
    QCOMPARE(icon.pixmap(16, QIcon::Normal).cacheKey(), small);
    QVERIFY(QPixmapCache::find(keyFor(":/Grid", QSize(16, 16), kButtonText), static_cast<QPixmap*>(nullptr)));
    QVERIFY(QPixmapCache::find(keyFor(":/Grid", QSize(24, 24), kButtonText), static_cast<QPixmap*>(nullptr)));
    QVERIFY(QPixmapCache::find(keyFor(":/Grid", QSize(16, 16), kDisabledText), static_cast<QPixmap*>(nullptr)));
}

void TestThemedIcon::iconPixmapAtRatioTwoKeysOnDeviceSize()
{
    const QPixmap pixmap = themedIcon(":/Grid").pixmap(QSize(32, 32), 2.0);
    QCOMPARE(pixmap.size(), QSize(64, 64));
    QCOMPARE(pixmap.devicePixelRatio(), 2.0);
    QVERIFY(QPixmapCache::find(keyFor(":/Grid", QSize(64, 64), kButtonText), static_cast<QPixmap*>(nullptr)));
    QVERIFY(!QPixmapCache::find(keyFor(":/Grid", QSize(128, 128), kButtonText), static_cast<QPixmap*>(nullptr)));
}

void TestThemedIcon::currentColorFollowsMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("normal") << int(QIcon::Normal) << kButtonText;
    QTest::newRow("disabled") << int(QIcon::Disabled) << kDisabledText;
    QTest::newRow("selected") << int(QIcon::Selected) << kHighlightedText;
}

void TestThemedIcon::currentColorFollowsMode()
{
    QFETCH(int, mode);
    QFETCH(QColor, colour);
    const QImage pixmap = themedIcon(":/RectangleFill").pixmap(24, QIcon::Mode(mode)).toImage();
    QCOMPARE(pixmap.pixelColor(12, 12), colour);

    // Direct painting renders without the cache and gives the same colour.
    QImage painted(24, 24, QImage::Format_ARGB32_Premultiplied);
    painted.fill(Qt::transparent);
    QPainter painter(&painted);
    themedIcon(":/RectangleFill").paint(&painter, painted.rect(), Qt::AlignCenter, QIcon::Mode(mode));
    painter.end();
    QCOMPARE(painted.pixelColor(12, 12), colour);
}

void TestThemedIcon::ownColoursStayInEveryMode()
{
    QTemporaryDir dir;
    const QString path = dir.filePath("red.svg");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 8 8"><rect width="8" height="8" fill="#ff0000"/></svg>)");
    file.close();
    const QIcon icon = themedIcon(path);
    for (QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled, QIcon::Selected})
        QCOMPARE(icon.pixmap(16, mode).toImage().pixelColor(8, 8), QColor(Qt::red));
}

void TestThemedIcon::missingResourceIsEmpty()
{
    const QIcon icon = themedIcon(":/NoSuchIcon");
    QVERIFY(icon.isNull());
    QVERIFY(isBlank(icon.pixmap(16).toImage()));
    QImage painted(16, 16, QImage::Format_ARGB32_Premultiplied);
    painted.fill(Qt::transparent);
    QPainter painter(&painted);
    icon.paint(&painter, painted.rect());
    painter.end();
    QVERIFY(isBlank(painted));
}

void TestThemedIcon::resourceLoads_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("themed");
    const QStringList themed = {
        ":/Paint", ":/Draw", ":/Line", ":/Rectangle", ":/RectangleFill", ":/Circle", ":/Fill", ":/Erase",
        ":/Picker", ":/Select", ":/Resize", ":/Grid", ":/ZoomIn", ":/ZoomOut", ":/Cut", ":/Copy", ":/Paste",
        ":/Crop", ":/OpenIcon", ":/SaveIcon", ":/RotateCW", ":/RotateCCW", ":/Flip", ":/Mirror", ":/Palette",
        ":/Arrow/N", ":/Arrow/S", ":/Arrow/W", ":/Arrow/E", ":Arrow/N", ":Arrow/NE", ":Arrow/E", ":Arrow/SE",
        ":Arrow/S", ":Arrow/SW", ":Arrow/W", ":Arrow/NW", ":Arrow/Centre", ":/PlaceAnim", ":/PlaceSprite",
        ":/ExpandToFit", ":/ToggleViewport", ":/AnimPlay", ":/AnimStop", ":/LayerTiles", ":/LayerObjects",
        ":/LayerSprites", ":Media/Start", ":Media/Play", ":Media/Pause", ":Media/Stop", ":Media/End",
        ":Media/Loop", ":Media/PingPong", ":NewIcon", ":Trashcan", ":/AddDoc", ":/Darken", ":/Lighten",
        ":/Gradient", ":tb-new-file", ":tb-open-file", ":tb-save-file", ":tb-save-file-as", ":tb-close-document",
        ":tb-exit-application", ":/tb-new-file",
    };
    for (const QString& path : themed)
        QTest::newRow(qPrintable(path)) << path << true;
    for (const char* path : {":Application", ":/Application", ":/Logo/", ":/FillCursor", ":/PickerCursor"})
        QTest::newRow(path) << QString::fromLatin1(path) << false;
}

void TestThemedIcon::resourceLoads()
{
    QFETCH(QString, path);
    QFETCH(bool, themed);
    QVERIFY(QFile::exists(path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().contains("currentColor"), themed);
    const QImage image = themedIcon(path).pixmap(24).toImage();
    QCOMPARE(image.size(), QSize(24, 24));
    QVERIFY2(!isBlank(image), "renders nothing");
}

void TestThemedIcon::tableInOrder()
{
    QList<ToolButton> expected;
    for (const Row& row : expectedTable())
        expected.append(row.button);
    QCOMPARE(ToolPalette::tools(), expected);
    QVERIFY(!ToolPalette::tools().contains(ToolButton::CircleFill));
}

void TestThemedIcon::toolRows_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < expectedTable().size(); ++i)
        QTest::newRow(qPrintable(expectedTable().at(i).text)) << i;
}

void TestThemedIcon::toolRows()
{
    QFETCH(int, index);
    const Row& row = expectedTable().at(index);
    ToolPalette palette;
    palette.addTools(ToolPalette::tools());
    QAction* action = palette.action(row.button);
    QVERIFY(action);
    QCOMPARE(action->text(), row.text);
    QCOMPARE(action->icon().pixmap(24).toImage(), themedIcon(row.icon).pixmap(24).toImage());
    QCOMPARE(action->isCheckable(), row.checkable);
    QCOMPARE(action->toolTip(), row.toolTip);
    QCOMPARE(action->shortcutContext(), Qt::WidgetWithChildrenShortcut);
    QCOMPARE(action->actionGroup() != nullptr, row.button < ToolButton::_end_toggles);

    QSignalSpy activated(&palette, &ToolPalette::actionActivated);
    action->trigger();
    QCOMPARE(activated.count(), 1);
    QCOMPARE(activated.at(0).at(0).value<ToolButton>(), row.button);
    QCOMPARE(activated.at(0).at(1).toBool(), action->isChecked());
}

void TestThemedIcon::togglesExcludeEachOther()
{
    ToolPalette palette;
    palette.addTools({ToolButton::Draw, ToolButton::Line, ToolButton::Grid, ToolButton::Erase});
    palette.action(ToolButton::Draw)->trigger();
    palette.action(ToolButton::Line)->trigger();
    QVERIFY(!palette.action(ToolButton::Draw)->isChecked());
    QVERIFY(palette.action(ToolButton::Line)->isChecked());
    QVERIFY(palette.action(ToolButton::Grid)->isChecked());
    palette.action(ToolButton::Erase)->trigger();
    QVERIFY(palette.action(ToolButton::Line)->isChecked());
    palette.setState(ToolButton::Draw);
    QVERIFY(palette.action(ToolButton::Draw)->isChecked());
    QVERIFY(!palette.action(ToolButton::Line)->isChecked());
    palette.setButtonEnabled(ToolButton::Draw, false);
    QVERIFY(!palette.action(ToolButton::Draw)->isEnabled());
}

void TestThemedIcon::gridCheckedAfterAddTools()
{
    ToolPalette palette;
    palette.addTool(ToolButton::Grid);
    QVERIFY(!palette.action(ToolButton::Grid)->isChecked());
    palette.addTools({ToolButton::Draw});
    QVERIFY(palette.action(ToolButton::Grid)->isChecked());
}

void TestThemedIcon::unknownButtonsAreIgnored()
{
    ToolPalette palette;
    palette.addTools({ToolButton::Draw, ToolButton::Line, ToolButton::Draw, ToolButton::CircleFill,
                      ToolButton::_end_toggles, ToolButton::ShrinkToFit});
    QCOMPARE(palette.layout()->count(), 2);
    QCOMPARE(palette.actions().size(), 2);
    QVERIFY(!palette.action(ToolButton::CircleFill));
    palette.setState(ToolButton::Line);
    QSignalSpy activated(&palette, &ToolPalette::actionActivated);
    palette.setState(ToolButton::Paste);
    palette.setState(ToolButton::CircleFill);
    palette.setButtonEnabled(ToolButton::Paste, false);
    QVERIFY(palette.action(ToolButton::Line)->isChecked());
    QVERIFY(!palette.action(ToolButton::Draw)->isChecked());
    QCOMPARE(activated.count(), 0);
}

void TestThemedIcon::flowHeightForWidth_data()
{
    // Five items of 30x20 with a spacing of 4.
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("hidden");
    QTest::addColumn<QMargins>("margins");
    QTest::addColumn<int>("height");
    QTest::newRow("one row") << 200 << -1 << QMargins() << 20;
    QTest::newRow("three fit exactly") << 98 << -1 << QMargins() << 44;
    QTest::newRow("one pixel short wraps") << 97 << -1 << QMargins() << 68;
    QTest::newRow("narrower than an item") << 10 << -1 << QMargins() << 116;
    QTest::newRow("hidden item skipped") << 97 << 2 << QMargins() << 44;
    QTest::newRow("margins") << 104 << -1 << QMargins(2, 3, 4, 5) << 52;
}

void TestThemedIcon::flowHeightForWidth()
{
    QFETCH(int, width);
    QFETCH(int, hidden);
    QFETCH(QMargins, margins);
    QFETCH(int, height);
    QWidget host;
    auto* layout = new FlowLayout(&host, 4);
    layout->setContentsMargins(margins);
    QList<QWidget*> items;
    for (int i = 0; i < 5; ++i) {
        items.append(new QWidget(&host));
        items.last()->setFixedSize(30, 20);
        items.last()->setVisible(i != hidden);
        layout->addWidget(items.last());
    }
    QVERIFY(layout->hasHeightForWidth());
    QCOMPARE(layout->heightForWidth(width), height);

    // Placing for real puts the lowest visible item on the height reported.
    layout->setGeometry(QRect(0, 0, width, 1000));
    int bottom = 0;
    for (QWidget* item : items) {
        if (item->isVisibleTo(&host))
            bottom = std::max(bottom, item->geometry().bottom() + 1);
    }
    QCOMPARE(bottom + margins.bottom(), height);
}

void TestThemedIcon::flowSpacingAtLeastOne()
{
    QCOMPARE(FlowLayout(nullptr, 0).spacing(), 1);
    QCOMPARE(FlowLayout(nullptr, -5).spacing(), 1);
    QCOMPARE(FlowLayout(nullptr, 6).spacing(), 6);
}

QTEST_MAIN(TestThemedIcon)
#include "tst_themedicon.moc"
