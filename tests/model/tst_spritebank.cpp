#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/spritebank.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using Tintorel::Sprite;

class TestSpriteBank : public QObject
{
    Q_OBJECT
private slots:
    void renderTransparency_data();
    void renderTransparency();
    void renderOutOfRangeIsNullAndSilent();
    void deleteSpriteShiftsSpritesOffsetsAndCells();
    void moveSpriteSignalOrder_data();
    void moveSpriteSignalOrder();
    void importCutsWholePiecesOrFails();
    void paletteConnectionMoves();
    void restoreGivesBackTheState();
    void sharedAnimationOutlivesBank();
};

namespace {

// Sprite i filled with i + 1 and given offset i + 1, so that moves can be followed.
void number(SpriteBank& bank, int count)
{
    while (bank.spriteCount() < count)
        bank.addSprite(false);
    for (int i = 0; i < count; ++i) {
        QImage picture(16, 16, QImage::Format_Indexed8);
        picture.setColorCount(256);
        picture.fill(uint(i + 1));
        bank.setImage(i, picture);
        bank.setOffset(i, i + 1);
    }
}

QList<int> firstPixels(const SpriteBank& bank)
{
    QList<int> result;
    for (int i = 0; i < bank.spriteCount(); ++i)
        result << bank.sprite(i).pixelIndex(0, 0);
    return result;
}

QList<int> offsetList(const SpriteBank& bank)
{
    QList<int> result;
    for (char byte : bank.offsets())
        result << uchar(byte);
    return result;
}

} // namespace

void TestSpriteBank::renderTransparency_data()
{
    QTest::addColumn<Sprite>("depth");
    QTest::addColumn<int>("transparency");
    QTest::addColumn<int>("pixel");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("colour"); // -1: transparent
    QTest::newRow("4-bit: 3 is 227's low nibble") << Sprite::FourBit << 227 << 3 << 0 << -1;
    QTest::newRow("4-bit: 19 too") << Sprite::FourBit << 227 << 19 << 5 << -1;
    QTest::newRow("4-bit: 227 itself") << Sprite::FourBit << 227 << 227 << 0 << -1;
    QTest::newRow("4-bit: high nibble gives way to the offset") << Sprite::FourBit << 227 << 0x54 << 2 << 0x24;
    QTest::newRow("4-bit: offset wraps at 16 banks") << Sprite::FourBit << 227 << 4 << 17 << 0x14;
    QTest::newRow("4-bit: negative offset is masked") << Sprite::FourBit << 227 << 4 << -1 << 0xF4;
    QTest::newRow("8-bit: only 227 itself") << Sprite::EightBit << 227 << 227 << 0 << -1;
    QTest::newRow("8-bit: 3 is drawn, offset ignored") << Sprite::EightBit << 227 << 3 << 4 << 3;
}

void TestSpriteBank::renderTransparency()
{
    QFETCH(Sprite, depth);
    QFETCH(int, transparency);
    QFETCH(int, pixel);
    QFETCH(int, offset);
    QFETCH(int, colour);
    Palette palette;
    palette.loadStandard();
    palette.setTransparencyIndex(qMax(colour, 0)); // must play no part
    SpriteBank bank(depth);
    QCOMPARE(bank.transparency(), 227);
    bank.setPalette(&palette);
    bank.setTransparency(transparency);
    QImage picture(16, 16, QImage::Format_Indexed8);
    picture.setColorCount(256);
    picture.fill(uint(pixel));
    bank.setImage(0, picture);

    const QImage drawn = bank.render(0, offset, false, false, false);
    QCOMPARE(drawn.pixel(7, 9), colour < 0 ? qRgba(0, 0, 0, 0) : palette.rgbTable().at(colour));
}

void TestSpriteBank::renderOutOfRangeIsNullAndSilent()
{
    static int messages = 0;
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) { ++messages; });
    SpriteBank bank(Sprite::FourBit);
    const bool nulls = bank.render(-1, 0, false, false, false).isNull()
        && bank.render(1, 0, false, false, false).isNull() && bank.sprite(1).isNull();
    qInstallMessageHandler(previous);
    QVERIFY(nulls);
    QCOMPARE(messages, 0);
}

void TestSpriteBank::deleteSpriteShiftsSpritesOffsetsAndCells()
{
    SpriteBank bank(Sprite::EightBit);
    number(bank, 4);
    SpriteAnim* animation = bank.createAnimation("walk");
    animation->setSize(QSize(3, 1));
    animation->addFrame();
    for (int cell = 0; cell < 3; ++cell)
        animation->setIndex(0, cell, cell + 1);

    QStringList order;
    connect(&bank, &SpriteBank::spriteDeleted, this, [&](int i) { order << QString("deleted %1").arg(i); });
    connect(&bank, &SpriteBank::countChanged, this, [&] { order << "count"; });
    bank.deleteSprite(2);
    bank.deleteSprite(3);

    QCOMPARE(order, (QStringList { "deleted 2", "count" }));
    QCOMPARE(firstPixels(bank), (QList<int> { 1, 2, 4 }));
    QCOMPARE(offsetList(bank), (QList<int> { 1, 2, 4 }));
    const AnimationFrame::Cells cells = animation->frame(0)->cells();
    QCOMPARE(cells.first().at(1).index, 0);
    QCOMPARE(cells.first().at(2).index, 2);

    // The last sprite is blanked, not removed, and silently.
    SpriteBank single(Sprite::EightBit);
    number(single, 1);
    QSignalSpy deleted(&single, &SpriteBank::spriteDeleted);
    QSignalSpy count(&single, &SpriteBank::countChanged);
    single.deleteSprite(0);
    single.deleteSprite(1);
    QCOMPARE(firstPixels(single), QList<int> { 0 });
    QCOMPARE(deleted.count() + count.count(), 0);
}

void TestSpriteBank::moveSpriteSignalOrder_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<QList<int>>("sprites");
    QTest::newRow("up the list") << 3 << 1
        << QStringList { "image 3", "swap 3 2", "image 2", "swap 2 1", "image 1", "swap 1 3", "moved 3 1" }
        << QList<int> { 1, 4, 2, 3, 5 };
    QTest::newRow("down the list") << 0 << 2
        << QStringList { "image 0", "swap 0 1", "image 1", "swap 1 2", "image 2", "swap 2 0", "moved 0 2" }
        << QList<int> { 2, 3, 1, 4, 5 };
    QTest::newRow("to itself") << 2 << 2 << QStringList() << QList<int> { 1, 2, 3, 4, 5 };
    QTest::newRow("past the end") << 1 << 5 << QStringList() << QList<int> { 1, 2, 3, 4, 5 };
}

void TestSpriteBank::moveSpriteSignalOrder()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QStringList, expected);
    QFETCH(QList<int>, sprites);
    SpriteBank bank(Sprite::EightBit);
    number(bank, 5);
    QStringList order;
    connect(&bank, &SpriteBank::imageChanged, this, [&](int i) { order << QString("image %1").arg(i); });
    connect(&bank, &SpriteBank::spriteSwapped, this,
        [&](int a, int b) { order << QString("swap %1 %2").arg(a).arg(b); });
    connect(&bank, &SpriteBank::spriteMoved, this,
        [&](int a, int b) { order << QString("moved %1 %2").arg(a).arg(b); });

    bank.moveSprite(from, to);

    QCOMPARE(order, expected);
    QCOMPARE(firstPixels(bank), sprites);
    QCOMPARE(offsetList(bank), sprites);
}

void TestSpriteBank::importCutsWholePiecesOrFails()
{
    Palette palette;
    palette.loadStandard();
    QTemporaryDir dir;
    const QString file = dir.filePath("two.png");
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(palette.colour(0));
    picture.setPixelColor(16, 0, palette.colour(0xE0)); // top left of the second piece
    picture.setPixelColor(39, 19, palette.colour(0x1C)); // in the margin
    QVERIFY(picture.save(file));

    SpriteBank bank(Sprite::EightBit);
    QTest::ignoreMessage(QtInfoMsg, "Failed to load image");
    QCOMPARE(bank.importImage(dir.filePath("missing.png")), -1);
    QTest::ignoreMessage(QtInfoMsg, "Could not remap colours");
    QCOMPARE(bank.importImage(file), -1); // no palette to map onto yet
    QCOMPARE(bank.spriteCount(), 1);

    bank.setPalette(&palette);
    QSignalSpy count(&bank, &SpriteBank::countChanged);
    QCOMPARE(bank.importImage(file), 3); // appended to the bank's first sprite
    QCOMPARE(count.count(), 1);
    QCOMPARE(offsetList(bank).size(), 3);
    QCOMPARE(bank.sprite(1).pixelIndex(0, 0), 0);
    QCOMPARE(bank.sprite(2).pixelIndex(0, 0), 0xE0);
}

void TestSpriteBank::paletteConnectionMoves()
{
    Palette first;
    Palette second;
    second.loadStandard();
    SpriteBank bank(Sprite::FourBit);
    bank.setPalette(&first);
    bank.setPalette(&second);
    QCOMPARE(bank.image().colorTable(), second.rgbTable());

    first.setColour(1, Qt::white, false);
    QCOMPARE(bank.image().color(1), second.rgbTable().at(1));
    second.setColour(1, Qt::white, false);
    QCOMPARE(bank.image().color(1), qRgb(255, 255, 255));
}

void TestSpriteBank::restoreGivesBackTheState()
{
    SpriteBank bank(Sprite::EightBit);
    number(bank, 3);
    SpriteAnim* kept = bank.createAnimation("kept");
    kept->addFrame();
    kept->setIndex(0, 0, 2);
    const QUuid goneId = bank.createAnimation("gone")->id();
    const SpriteBank::State before = bank.state();

    bank.deleteSprite(1);
    bank.removeAnimation(goneId);
    const QUuid newId = bank.createAnimation("new")->id();
    bank.setOffset(0, 9);
    QVERIFY(bank.state() != before);

    QSignalSpy restored(&bank, &SpriteBank::restored);
    QSignalSpy count(&bank, &SpriteBank::countChanged);
    QSignalSpy animations(&bank, &SpriteBank::animationsChanged);
    bank.restore(before);

    QCOMPARE(bank.state(), before);
    QCOMPARE(restored.count(), 1);
    QCOMPARE(count.count() + animations.count(), 0);
    QCOMPARE(bank.animation(kept->id()).data(), kept); // views keep their pointer
    QVERIFY(bank.animation(newId).isNull());
    QCOMPARE(bank.animation(goneId)->bank(), &bank);
}

void TestSpriteBank::sharedAnimationOutlivesBank()
{
    QSharedPointer<SpriteAnim> held;
    QSharedPointer<SpriteAnim> removed;
    {
        SpriteBank bank(Sprite::FourBit);
        held = bank.animation(bank.createAnimation("a")->id());
        removed = bank.animation(bank.createAnimation("b")->id());
        bank.removeAnimation(removed->id());
        QVERIFY(!removed->bank());
        QCOMPARE(held->bank(), &bank);
    }
    QVERIFY(!held->bank());
}

QTEST_MAIN(TestSpriteBank)
#include "tst_spritebank.moc"
