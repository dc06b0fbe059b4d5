#include "model/palette.h"

#include "interchange/binaryfile.h"

#include <QDir>

namespace {

// The grid every colour is snapped to on its way to the machine.
const std::array<int, 17> colourStepList = {
    0, 16, 32, 48, 64, 80, 96, 112, 128, 144, 160, 176, 192, 208, 224, 240, 255,
};

// level / 7 * 255 rounded up, not to nearest: level 1 is 37 and level 5 is 183.
constexpr std::array<int, 8> levelChannel = { 0, 37, 73, 110, 146, 183, 219, 255 };

} // namespace

qint64 Palette::fileSize(const QString& fileName)
{
    // The .npl form carries one trailing byte; the rule is by name only.
    return BinaryFile::hasSuffix(fileName, QStringLiteral(".npl")) ? 513 : 512;
}

Palette::Palette(QObject* parent)
    : QObject(parent)
    , mId(QUuid::createUuid())
{
}

int Palette::snapChannel(int c)
{
    c = qBound(0, c, 255);
    const int i = c / 16;
    const int lo = colourStepList[i];
    const int hi = colourStepList[qMin(i + 1, 16)];
    return (c - lo) > (hi - c) ? hi : lo; // a tie goes down
}

int Palette::channelForLevel(int level)
{
    return levelChannel[level & 7];
}

QColor Palette::decode(ushort raw)
{
    const int red = (raw >> 13) & 7;
    const int green = (raw >> 10) & 7;
    const int blue = ((raw >> 7) & 6) | (raw & 1);
    return QColor(levelChannel[red], levelChannel[green], levelChannel[blue]);
}

ushort Palette::encode(const QColor& colour, bool priority)
{
    const int r = snapChannel(colour.red());
    const int g = snapChannel(colour.green());
    const int b = snapChannel(colour.blue());
    const int high = (r & 0xE0) | ((g >> 5) << 2) | (b >> 6);
    const int low = (priority ? 0x80 : 0) | ((b >> 5) & 1);
    return ushort((high << 8) | low);
}

ushort Palette::standardEntry(int index)
{
    return ushort(((index & 0xFF) << 8) | ((index & 3) != 0 ? 1 : 0));
}

QColor Palette::snapColour(const QColor& colour)
{
    return QColor(snapChannel(colour.red()), snapChannel(colour.green()), snapChannel(colour.blue()));
}

QColor Palette::colour(int index) const
{
    if (!isIndex(index))
        return QColor();
    QColor result = decode(mEntries[index]);
    if (index == mTransparencyIndex)
        result.setAlpha(0);
    return result;
}

bool Palette::priority(int index) const
{
    return isIndex(index) && (mEntries[index] & 0x80) != 0;
}

ushort Palette::entry(int index) const
{
    return isIndex(index) ? mEntries[index] : 0;
}

void Palette::setEntry(int index, ushort raw)
{
    if (isIndex(index))
        mEntries[index] = raw;
}

void Palette::restoreEntry(int index, ushort raw)
{
    if (!isIndex(index) || mEntries[index] == raw)
        return;
    mEntries[index] = raw;
    emit colourChanged(index, colour(index), priority(index));
}

void Palette::setName(const QString& name)
{
    if (name == mName)
        return;
    mName = name;
    emit nameChanged(mName);
}

void Palette::setColour(int index, const QColor& colour, bool priority)
{
    if (!isIndex(index))
        return;
    const ushort after = encode(colour, priority);
    const ushort before = mEntries[index];
    if (after == before)
        return;
    mEntries[index] = after;
    emit colourChanged(index, snapColour(colour), priority);
    emit colourEdited(index, before, after);
}

int Palette::nearestIndex(const QColor& colour) const
{
    int best = -1;
    int bestDistance = 0x7FFFFFFF;
    for (int i = 0; i < Size; ++i) {
        const QColor candidate = this->colour(i);
        if (candidate == colour)
            return i;
        const int dr = candidate.red() - colour.red();
        const int dg = candidate.green() - colour.green();
        const int db = candidate.blue() - colour.blue();
        const int distance = dr * dr + dg * dg + db * db;
        if (distance < bestDistance) {
            best = i;
            bestDistance = distance;
        }
    }
    return best;
}

void Palette::fill(const QColor& colour, bool priority)
{
    for (int i = 0; i < Size; ++i)
        setColour(i, colour, priority);
}

void Palette::setColours(const QList<QRgb>& colours)
{
    for (int i = 0; i < colours.size() && i < Size; ++i)
        setColour(i, QColor::fromRgb(colours.at(i)), false);
}

void Palette::loadStandard()
{
    for (int i = 0; i < Size; ++i)
        mEntries[i] = standardEntry(i);
}

void Palette::copyEntries(const Palette* other)
{
    if (other)
        mEntries = other->mEntries;
}

QList<QColor> Palette::colours() const
{
    QList<QColor> result;
    result.reserve(Size);
    for (int i = 0; i < Size; ++i)
        result.append(colour(i));
    return result;
}

QList<QRgb> Palette::rgbTable() const
{
    QList<QRgb> result;
    result.reserve(Size);
    for (ushort raw : mEntries)
        result.append(decode(raw).rgb());
    return result;
}

bool Palette::exportData(const QString& fileName) const
{
    QByteArray content(fileSize(fileName), '\0');
    for (int i = 0; i < Size; ++i) {
        content[2 * i] = char(mEntries[i] >> 8);
        content[2 * i + 1] = char(mEntries[i] & 0xFF);
    }
    return BinaryFile::write(fileName, content);
}

bool Palette::importData(const QString& fileName)
{
    bool ok = false;
    const QByteArray content = BinaryFile::readExact(fileName, fileSize(fileName), &ok);
    if (!ok)
        return false;
    const auto* bytes = reinterpret_cast<const uchar*>(content.constData());
    for (int i = 0; i < Size; ++i)
        mEntries[i] = ushort((bytes[2 * i] << 8) | bytes[2 * i + 1]);
    return true;
}

bool Palette::exportBinary(const QString& directory) const
{
    return exportData(QDir(directory).filePath(QStringLiteral("%1_palette.bin").arg(mName)));
}
