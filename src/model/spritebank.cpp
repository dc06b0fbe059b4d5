#include "model/spritebank.h"

#include "interchange/binaryfile.h"
#include "interchange/spritefile.h"
#include "model/indexedpixels.h"
#include "model/nximage.h"
#include "model/palette.h"
#include "model/spriteanim.h"
#include "model/transform.h"

#include <QDebug>
#include <cstring>

namespace {

constexpr int Size = SpriteBank::SpriteSize;

// What the bank can hold as its strip: indexed, one sprite wide, whole sprites.
bool isStrip(const QImage& image)
{
    return image.format() == QImage::Format_Indexed8 && image.width() == Size
        && image.height() >= Size && image.height() % Size == 0;
}

bool hasPixelIndices(const QImage& image)
{
    switch (image.format()) {
    case QImage::Format_Indexed8:
    case QImage::Format_Mono:
    case QImage::Format_MonoLSB:
        return true;
    default:
        return false;
    }
}

QImage blankStrip(int sprites, const QList<QRgb>& table)
{
    QImage strip(Size, Size * sprites, QImage::Format_Indexed8);
    strip.setColorTable(table);
    strip.fill(0);
    return strip;
}

void copyRow(const QImage& from, int fromRow, QImage& to, int toRow)
{
    std::memcpy(to.scanLine(toRow), from.constScanLine(fromRow), Size);
}

} // namespace

bool SpriteBank::State::operator==(const State& other) const
{
    return offsets == other.offsets && sameIndexedPixels(image, other.image) && animations == other.animations;
}

SpriteBank::SpriteBank(Tintorel::Sprite depth, QObject* parent)
    : QObject(parent)
    , mId(QUuid::createUuid())
    , mDepth(depth)
    , mOffsets(1, '\0')
    , mImage(blankStrip(1, QList<QRgb>(256, qRgb(0, 0, 0))))
{
}

SpriteBank::~SpriteBank()
{
    // Anyone still sharing an animation owns it from here on; as our child it
    // would be deleted twice.
    for (const QSharedPointer<SpriteAnim>& animation : std::as_const(mAnimations))
        animation->setParent(nullptr);
}

void SpriteBank::setPalette(Palette* palette)
{
    disconnect(mColourConnection);
    mPalette = palette;
    if (!mPalette)
        return;
    mPaletteId = mPalette->id();
    mColourConnection = connect(mPalette, &Palette::colourChanged, this, &SpriteBank::updateColour);
    applyPaletteTable();
}

void SpriteBank::setOffsets(const QByteArray& offsets)
{
    mOffsets = offsets;
    mOffsets.resize(spriteCount(), '\0');
}

int SpriteBank::offset(int index) const
{
    return isIndex(index) ? uchar(mOffsets.at(index)) : 0;
}

void SpriteBank::setOffset(int index, int offset)
{
    if (isIndex(index))
        mOffsets[index] = char(uchar(offset));
}

void SpriteBank::setBankImage(const QImage& image)
{
    if (!isStrip(image))
        return;
    mImage = image;
    applyPaletteTable();
    mOffsets.resize(spriteCount(), '\0');
}

QImage SpriteBank::sprite(int index, bool rotate, bool flip, bool mirror) const
{
    if (!isIndex(index))
        return {};
    return transformed(mImage.copy(0, index * Size, Size, Size), rotate, flip, mirror);
}

void SpriteBank::clearSprite(int index)
{
    if (!isIndex(index))
        return;
    for (int row = 0; row < Size; ++row)
        std::memset(mImage.scanLine(index * Size + row), 0, Size);
    emit imageChanged(index);
}

void SpriteBank::copySprite(int from, int to)
{
    if (!isIndex(from) || !isIndex(to))
        return;
    setImage(to, sprite(from));
    emit imageChanged(from);
}

void SpriteBank::moveSprite(int from, int to)
{
    if (from == to || !isIndex(from) || !isIndex(to))
        return;
    const QImage moving = sprite(from);
    const int step = from > to ? -1 : 1;
    for (int i = from; i != to; i += step) {
        setImage(i, sprite(i + step));
        emit spriteSwapped(i, i + step);
    }
    setImage(to, moving);
    const char offset = mOffsets.at(from);
    mOffsets.remove(from, 1);
    mOffsets.insert(to, offset);
    emit spriteSwapped(to, from);
    emit spriteMoved(from, to);
}

QImage SpriteBank::render(int index, int offset, bool rotate, bool flip, bool mirror) const
{
    if (!isIndex(index))
        return {};
    QImage result(Size, Size, QImage::Format_ARGB32);
    result.fill(Qt::transparent);
    const QList<QRgb> table = mImage.colorTable();
    const int bank = int((uint(offset) << 4) & 255);
    for (int y = 0; y < Size; ++y) {
        const uchar* source = mImage.constScanLine(index * Size + y);
        auto* target = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < Size; ++x) {
            const int p = source[x];
            int colour = p;
            if (mDepth == Tintorel::Sprite::FourBit) {
                if ((mTransparency & 15) == (p & 15))
                    continue;
                colour = (p & 15) | bank;
            } else if (mTransparency == p) {
                continue;
            }
            if (colour < table.size())
                target[x] = table.at(colour) | 0xFF000000u;
        }
    }
    return transformed(result, rotate, flip, mirror);
}

int SpriteBank::importImage(const QString& fileName)
{
    NxImage picture;
    if (!picture.load(fileName) || mImage.format() != QImage::Format_Indexed8) {
        qInfo() << "Failed to load image";
        return -1;
    }
    const QImage indexed = picture.remap(mPalette);
    if (indexed.isNull()) {
        qInfo() << "Could not remap colours";
        return -1;
    }
    bool added = false;
    for (int y = 0; y + Size <= indexed.height(); y += Size) {
        for (int x = 0; x + Size <= indexed.width(); x += Size) {
            addSprite(false);
            setImage(spriteCount() - 1, indexed.copy(x, y, Size, Size));
            added = true;
        }
    }
    if (added)
        emit countChanged();
    return spriteCount();
}

void SpriteBank::importImage(int index, const QImage& image)
{
    NxImage picture;
    picture.load(image);
    setImage(index, picture.remap(mPalette));
}

SpriteAnim* SpriteBank::createAnimation(const QString& name)
{
    SpriteAnim* animation = adoptAnimation(new SpriteAnim(name, this));
    emit animationsChanged();
    return animation;
}

SpriteAnim* SpriteBank::cloneAnimation(const QUuid& id)
{
    const QSharedPointer<SpriteAnim> source = animation(id);
    if (!source)
        return nullptr;
    Animation::State copy = source->state();
    copy.id = QUuid::createUuid();
    copy.name = source->name() + QStringLiteral(" (copy)");
    for (AnimationFrame::State& frame : copy.frames)
        frame.id = QUuid::createUuid();
    auto* clone = new SpriteAnim(copy.name, this);
    clone->restore(copy);
    adoptAnimation(clone);
    emit animationsChanged();
    return clone;
}

SpriteAnim* SpriteBank::addAnimation(const QUuid& id, const QString& name)
{
    if (id.isNull() || mAnimations.contains(id))
        return nullptr;
    auto* animation = new SpriteAnim(name, this);
    Animation::State named = animation->state();
    named.id = id;
    animation->restore(named);
    adoptAnimation(animation);
    emit animationsChanged();
    return animation;
}

void SpriteBank::removeAnimation(const QUuid& id)
{
    const QSharedPointer<SpriteAnim> gone = mAnimations.take(id);
    if (!gone)
        return;
    releaseAnimation(gone);
    emit animationsChanged();
}

SpriteBank::State SpriteBank::state() const
{
    State state { mImage, mOffsets, {} };
    for (const QSharedPointer<SpriteAnim>& animation : mAnimations)
        state.animations.insert(animation->id(), animation->state());
    return state;
}

void SpriteBank::restore(const State& state)
{
    if (isStrip(state.image)) {
        mImage = state.image;
        applyPaletteTable();
    }
    setOffsets(state.offsets);

    const QList<QUuid> ids = mAnimations.keys();
    for (const QUuid& id : ids) {
        if (!state.animations.contains(id))
            releaseAnimation(mAnimations.take(id));
    }
    // Animations that stay are restored in place, so views keep their pointers.
    for (auto it = state.animations.cbegin(); it != state.animations.cend(); ++it) {
        if (SpriteAnim* animation = mAnimations.value(it.key()).data()) {
            animation->restore(*it);
            continue;
        }
        auto* animation = new SpriteAnim(it->name, this);
        animation->restore(*it);
        adoptAnimation(animation);
    }
    emit restored();
}

void SpriteBank::setImage(int index, const QImage& image)
{
    if (!isIndex(index) || !hasPixelIndices(image))
        return;
    for (int y = 0; y < Size; ++y) {
        uchar* row = mImage.scanLine(index * Size + y);
        for (int x = 0; x < Size; ++x)
            row[x] = x < image.width() && y < image.height() ? uchar(image.pixelIndex(x, y)) : 0;
    }
    emit imageChanged(index);
}

bool SpriteBank::exportData(const QString& fileName) const
{
    return BinaryFile::write(fileName, SpriteFile::content(*this), QIODevice::Truncate);
}

void SpriteBank::addSprite(bool emitSignal)
{
    addSprites(1, emitSignal);
}

void SpriteBank::addSprites(int count, bool emitSignal)
{
    if (count < 1)
        return;
    QImage strip = blankStrip(spriteCount() + count, mImage.colorTable());
    for (int row = 0; row < mImage.height(); ++row)
        copyRow(mImage, row, strip, row);
    mImage = strip;
    mOffsets.append(QByteArray(count, '\0'));
    if (emitSignal)
        emit countChanged();
}

void SpriteBank::addSprite()
{
    addSprite(true);
}

void SpriteBank::deleteSprite(int index)
{
    if (spriteCount() == 1 && index == 0) {
        mImage.fill(0);
        return;
    }
    if (!isIndex(index))
        return;
    QImage strip = blankStrip(spriteCount() - 1, mImage.colorTable());
    int target = 0;
    for (int row = 0; row < mImage.height(); ++row) {
        if (row / Size != index)
            copyRow(mImage, row, strip, target++);
    }
    for (const QSharedPointer<SpriteAnim>& animation : std::as_const(mAnimations))
        animation->deleteIndex(index);
    mImage = strip;
    mOffsets.remove(index, 1);
    emit spriteDeleted(index);
    emit countChanged();
}

void SpriteBank::updateColour(int, const QColor&, bool)
{
    applyPaletteTable();
}

SpriteAnim* SpriteBank::adoptAnimation(SpriteAnim* animation)
{
    mAnimations.insert(animation->id(), QSharedPointer<SpriteAnim>(animation));
    return animation;
}

void SpriteBank::releaseAnimation(const QSharedPointer<SpriteAnim>& animation)
{
    // A view may share it beyond this point; it is no longer ours to delete.
    if (animation)
        animation->setParent(nullptr);
}

void SpriteBank::applyPaletteTable()
{
    if (mPalette)
        mImage.setColorTable(mPalette->rgbTable());
}
