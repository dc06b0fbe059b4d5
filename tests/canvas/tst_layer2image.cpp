#include "canvas/layer2image.h"
#include "model/palette.h"

#include <QDir>
#include <algorithm>
#include <QFile>
#include <QtTest>

namespace {

// A grid of hexadecimal digits, one per pixel, rows from the top.
QImage fromGrid(const QStringList& rows)
{
    if (rows.isEmpty())
        return QImage();
    QImage image(int(rows.first().size()), int(rows.size()), QImage::Format_Indexed8);
    image.setColorCount(256);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, QString(rows[y][x]).toUInt(nullptr, 16));
    return image;
}

QString toGrid(const QImage& image)
{
    QStringList rows;
    for (int y = 0; y < image.height(); ++y) {
        QString row;
        for (int x = 0; x < image.width(); ++x)
            row += QString::number(image.pixelIndex(x, y), 16);
        rows << row;
    }
    return rows.join('\n');
}

// A golden case: the operation on its first line, then the sections
// "given" (a blank image of the expected size when absent), "clip" and
// "expect" (the given image when absent: nothing changes).
struct Golden
{
    QStringList operation;
    QHash<QString, QStringList> sections;
};

Golden readGolden(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    Golden golden;
    QString section;
    for (const QString& raw : QString::fromUtf8(file.readAll()).split('\n')) {
        const QString line = raw.trimmed();
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        if (golden.operation.isEmpty())
            golden.operation = line.split(' ');
        else if (line == "given" || line == "clip" || line == "expect")
            section = line;
        else
            golden.sections[section] << line;
    }
    return golden;
}

void apply(Layer2Image& layer, const QStringList& op, const QImage& clip)
{
    auto n = [&op](int i) { return op.value(i).toInt(); };
    const QString& name = op.first();
    if (name == "line")
        layer.drawLine(QPoint(n(1), n(2)), QPoint(n(3), n(4)));
    else if (name == "rectangle")
        layer.drawRectangle(QRect(QPoint(n(1), n(2)), QPoint(n(3), n(4))));
    else if (name == "fill-rect")
        layer.fillRect(QRect(QPoint(n(1), n(2)), QPoint(n(3), n(4))), n(5));
    else if (name == "ellipse")
        layer.drawEllipse(QRect(QPoint(n(1), n(2)), QPoint(n(3), n(4))));
    else if (name == "flood")
        layer.floodFill(QPoint(n(1), n(2)), n(3));
    else if (name == "rotate")
        layer.rotate(n(1), n(2) != 0, n(3) != 0);
    else if (name == "paste")
        layer.paste(QRect(QPoint(n(1), n(2)), clip.size()), clip);
    else if (op == QStringList { "scroll", "up" })
        layer.scrollUp();
    else if (op == QStringList { "scroll", "down" })
        layer.scrollDown();
    else if (op == QStringList { "scroll", "left" })
        layer.scrollLeft();
    else if (op == QStringList { "scroll", "right" })
        layer.scrollRight();
    else
        QFAIL(qPrintable("unknown operation " + op.join(' ')));
}

} // namespace

class TestLayer2Image : public QObject
{
    Q_OBJECT
private slots:
    void golden_data();
    void golden();
    void startsBlackAndWhite();
    void inkAndPaperBounds_data();
    void inkAndPaperBounds();
    void indexOutsideTableIsRefused();
    void floodFillsLargeRegion();
    void remapMovesIntoBank_data();
    void remapMovesIntoBank();
    void paletteGivesTable();
};

void TestLayer2Image::golden_data()
{
    QTest::addColumn<QString>("path");
    const QDir dir(QFINDTESTDATA("../data/canvas"));
    const QStringList files = dir.entryList({ "*.txt" }, QDir::Files, QDir::Name);
    QVERIFY(!files.isEmpty());
    for (const QString& name : files)
        QTest::newRow(qPrintable(name.chopped(4))) << dir.filePath(name);
}

void TestLayer2Image::golden()
{
    QFETCH(QString, path);
    const Golden golden = readGolden(path);
    QVERIFY(!golden.operation.isEmpty());
    const QStringList given = golden.sections.value("given");
    const QStringList expect = golden.sections.value("expect", given);
    QImage start = fromGrid(given);
    if (given.isEmpty()) {
        start = fromGrid(expect);
        start.fill(0);
    }

    Layer2Image layer(start.size());
    layer.setImage(start);
    apply(layer, golden.operation, fromGrid(golden.sections.value("clip")));
    QCOMPARE(layer.image().size(), start.size());
    QCOMPARE(toGrid(layer.image()), expect.join('\n'));
}

void TestLayer2Image::startsBlackAndWhite()
{
    Layer2Image layer(QSize(3, 2));
    QCOMPARE(layer.image().format(), QImage::Format_Indexed8);
    QCOMPARE(layer.image().colorCount(), 256);
    QCOMPARE(layer.image().color(0), qRgb(0, 0, 0));
    QCOMPARE(layer.image().color(1), qRgb(255, 255, 255));
    QCOMPARE(toGrid(layer.image()), QString("000\n000"));
    QCOMPARE(layer.ink(), 1);
    QCOMPARE(layer.paper(), 0);
    QCOMPARE(layer.pixel(QPoint(3, 0)), -1);
}

void TestLayer2Image::inkAndPaperBounds_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("stored");
    QTest::newRow("negative refused") << -1 << 7;
    QTest::newRow("last colour") << 255 << 255;
    QTest::newRow("one past the table passes") << 256 << 256;
    QTest::newRow("two past the table refused") << 257 << 7;
}

void TestLayer2Image::inkAndPaperBounds()
{
    QFETCH(int, index);
    QFETCH(int, stored);
    Layer2Image layer(QSize(1, 1));
    layer.setInk(7);
    layer.setPaper(7);
    layer.setInk(index);
    layer.setPaper(index);
    QCOMPARE(layer.ink(), stored);
    QCOMPARE(layer.paper(), stored);
}

void TestLayer2Image::indexOutsideTableIsRefused()
{
    Layer2Image layer(QSize(4, 4));
    layer.setInk(256);
    layer.plot(QPoint(1, 1));
    layer.drawLine(QPoint(0, 0), QPoint(3, 3));
    layer.fillRect(QRect(0, 0, 4, 4), 256);
    layer.floodFill(QPoint(0, 0), 256); // must return, not search for ever
    QCOMPARE(toGrid(layer.image()), QString("0000\n0000\n0000\n0000"));
}

void TestLayer2Image::floodFillsLargeRegion()
{
    // A comb of long teeth, so the stack holds many pending pixels.
    Layer2Image layer(QSize(640, 256));
    for (int x = 1; x < 640; x += 2)
        layer.fillRect(QRect(QPoint(x, x % 4 == 1 ? 0 : 1), QPoint(x, x % 4 == 1 ? 254 : 255)), 1);
    layer.floodFill(QPoint(0, 0), 2);
    const QImage image = layer.image();
    int zeros = 0;
    for (int y = 0; y < image.height(); ++y)
        zeros += int(std::count(image.constScanLine(y), image.constScanLine(y) + image.width(), 0));
    QCOMPARE(zeros, 0);
    QCOMPARE(layer.pixel(QPoint(638, 255)), 2);
}

void TestLayer2Image::remapMovesIntoBank_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("high");
    QTest::newRow("offset 1 is the first bank") << 1 << 0x00;
    QTest::newRow("offset 16 is the last bank") << 16 << 0xF0;
    QTest::newRow("offset 0 wraps to the last bank") << 0 << 0xF0;
    QTest::newRow("offset 17 wraps to the first") << 17 << 0x00;
}

void TestLayer2Image::remapMovesIntoBank()
{
    QFETCH(int, offset);
    QFETCH(int, high);
    Layer2Image layer(QSize(2, 1));
    QImage image = layer.image();
    image.setPixel(0, 0, 0x3A);
    image.setPixel(1, 0, 0x05);
    layer.setImage(image);
    layer.setInk(0x1F);
    layer.remap(offset);
    QCOMPARE(layer.pixel(QPoint(0, 0)), high | 0x0A);
    QCOMPARE(layer.pixel(QPoint(1, 0)), high | 0x05);
    QCOMPARE(layer.ink(), high | 0x0F);
    QCOMPARE(layer.paper(), high);
}

void TestLayer2Image::paletteGivesTable()
{
    Palette palette;
    palette.loadStandard();
    Layer2Image layer(QSize(1, 1));
    layer.setPalette(&palette);
    QCOMPARE(layer.image().colorTable(), palette.rgbTable());
    layer.setPalette(nullptr);
    QCOMPARE(layer.image().colorCount(), 0);
}

QTEST_GUILESS_MAIN(TestLayer2Image)
#include "tst_layer2image.moc"
