#include "canvas/canvas.h"
#include "canvas/canvasclipboard.h"
#include "model/indexedpixels.h"
#include "model/palette.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest>

using Tintorel::Ui::ToolButton;

namespace {

// A picture whose indices count up from `first`, row by row.
QImage counting(const QSize& size, int first)
{
    QImage image(size, QImage::Format_Indexed8);
    image.setColorCount(256);
    for (int i = 0; i < size.width() * size.height(); ++i)
        image.setPixel(i % size.width(), i / size.width(), first + i);
    return image;
}

void setClipboard(QMimeData* data)
{
    QGuiApplication::clipboard()->setMimeData(data, QClipboard::Clipboard);
}

} // namespace

class TestCanvasClipboard : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void payloadReadsBackFieldByField();
    void pasteRefused_data();
    void pasteRefused();
    void pasteWiderThanImageKeepsCentre();

private:
    Palette mSource;
    Palette mTarget;
};

void TestCanvasClipboard::initTestCase()
{
    mSource.fill(Qt::red, false);
    mTarget.loadStandard();
}

void TestCanvasClipboard::payloadReadsBackFieldByField()
{
    Canvas canvas(QSize(4, 3));
    canvas.setPalette(&mSource);
    canvas.setImageType(int(Tintorel::Ui::ImageType::Offset16));
    const QImage picture = counting(QSize(4, 3), 1); // indices of one colour, all red
    canvas.setImage(picture);
    QSignalSpy copies(canvas.clipboard(), &CanvasClipboard::copied);
    canvas.copy();
    QCOMPARE(copies.count(), 1);
    QCOMPARE(copies.first().first().toBool(), false);

    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data->hasImage());
    QByteArray payload = data->data("tintorel/canvas-anim");
    QBuffer buffer(&payload);
    buffer.open(QIODevice::ReadOnly);
    QDataStream stream(&buffer);
    qint32 reserved = -1;
    qint32 imageType = -1;
    QUuid paletteId;
    stream >> reserved >> imageType >> paletteId;
    QCOMPARE(reserved, 0);
    QCOMPARE(imageType, 2);
    QCOMPARE(paletteId, mSource.id());
    QCOMPARE(buffer.peek(8), QByteArray("\x89PNG\r\n\x1a\n"));
    QImage png;
    QVERIFY(png.load(&buffer, "png"));
    QVERIFY(sameIndexedPixels(png, picture));
}

void TestCanvasClipboard::pasteRefused_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain text") << QString() << QByteArray() << "hello";
    QByteArray broken;
    QDataStream(&broken, QIODevice::WriteOnly) << qint32(0) << qint32(3) << QUuid::createUuid() << qint32(7);
    QTest::newRow("canvas format, no picture") << "tintorel/canvas-anim" << broken << QString();
}

void TestCanvasClipboard::pasteRefused()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    auto* data = new QMimeData;
    if (!format.isEmpty())
        data->setData(format, bytes);
    if (!text.isEmpty())
        data->setText(text);
    setClipboard(data);

    Canvas canvas(QSize(4, 4));
    canvas.setMode(ToolButton::Line, true);
    QSignalSpy pastes(canvas.clipboard(), &CanvasClipboard::pasted);
    canvas.setMode(ToolButton::Paste, false);
    QCOMPARE(pastes.count(), 0);
    QCOMPARE(canvas.mode(), ToolButton::Line);
    QCOMPARE(canvas.clipboard()->imageType(), int(Tintorel::Ui::ImageType::Undefined));
}

void TestCanvasClipboard::pasteWiderThanImageKeepsCentre()
{
    Canvas from(QSize(12, 1));
    from.setImage(counting(QSize(12, 1), 1)); // 1 to 12; the centre, x = 6, holds 7
    from.copy();

    Canvas to(QSize(8, 6));
    to.setPalette(&mTarget);
    to.resize(8 * 16, 6 * 16);
    to.show();
    QVERIFY(QTest::qWaitForWindowExposed(&to));
    QTest::ignoreMessage(QtInfoMsg, "Pasting to image with different palette");
    to.setMode(ToolButton::Paste, false);
    QSignalSpy edits(&to, &Canvas::edited);
    const QPoint at(4 * 16 + 8, 2 * 16 + 8);
    QMouseEvent hover(QEvent::MouseMove, at, to.mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&to, &hover);

    // Shown at the cursor before the click, in the target's colours.
    QCOMPARE(QColor(to.grab().toImage().pixel(at)), mTarget.colour(7));
    QTest::mouseClick(&to, Qt::LeftButton, {}, at);

    QCOMPARE(edits.count(), 1);
    QCOMPARE(edits.first().first().toString(), QString("Paste"));
    QCOMPARE(to.image().pixelIndex(4, 2), 7);
    QCOMPARE(to.image().pixelIndex(0, 2), 3);
    QCOMPARE(to.image().pixelIndex(7, 2), 10);
    QCOMPARE(to.image().pixelIndex(4, 1), 0);
    QCOMPARE(to.mode(), ToolButton::Paste); // ready to stamp again
}

QTEST_MAIN(TestCanvasClipboard)
#include "tst_canvasclipboard.moc"
