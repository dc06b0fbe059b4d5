#include "canvas/layer2image.h"

#include <QDir>
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
    void inkUpToColourCount();
    void indexOutsideTableIsRefused();
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

void TestLayer2Image::inkUpToColourCount()
{
    // One past the table passes on purpose; drawing with it is refused below.
    Layer2Image layer(QSize(1, 1));
    for (int index : { -1, 256, 257 })
        layer.setInk(index);
    QCOMPARE(layer.ink(), 256);
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

QTEST_GUILESS_MAIN(TestLayer2Image)
#include "tst_layer2image.moc"
