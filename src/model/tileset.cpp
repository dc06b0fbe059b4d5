#include "model/tileset.h"

#include "interchange/binaryfile.h"
#include "interchange/tilesetfile.h"
#include "model/nximage.h"
#include "model/palette.h"
#include "model/tile.h"

#include <QBuffer>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <cstring>

TileSet::TileSet(int count, QObject* parent)
    : QObject(parent)
    , mId(QUuid::createUuid())
{
    for (int i = 0; i < count; ++i)
        mTiles.append(new Tile(0, this));
}

Tile* TileSet::tile(int index) const
{
    return isIndex(index) ? mTiles.at(index) : nullptr;
}

void TileSet::setTileImage(int index, const QImage& image)
{
    if (isIndex(index))
        mTiles.at(index)->setImage(image);
}

void TileSet::setTileOffset(int index, int offset)
{
    if (isIndex(index))
        mTiles.at(index)->setOffset(offset);
}

int TileSet::tileOffset(int index) const
{
    return isIndex(index) ? mTiles.at(index)->offset() : 0;
}

QImage TileSet::render(int index, bool rotate, bool flip, bool mirror, int offset) const
{
    if (!isIndex(index)) {
        qInfo() << "Image index out of range" << index;
        return Tile::blankImage();
    }
    return mTiles.at(index)->render(rotate, flip, mirror, offset);
}

void TileSet::copyTile(int from, int to)
{
    if (from == to || !isIndex(from) || !isIndex(to))
        return;
    emit structureAboutToChange();
    Tile* target = mTiles.at(to);
    target->setImage(mTiles.at(from)->image());
    target->setOffset(mTiles.at(from)->offset());
    emit tileChanged(to);
    emit structureChanged(QStringLiteral("Copy Tile"));
}

void TileSet::moveTile(int from, int to)
{
    if (from == to || !isIndex(from) || !isIndex(to))
        return;
    emit structureAboutToChange();
    // One neighbour swap per step, so that the list already matches each
    // tileSwapped as it is emitted; the last swap leaves the moved tile at `to`.
    const int step = from > to ? -1 : 1;
    for (int i = from; i != to; i += step) {
        mTiles.swapItemsAt(i, i + step);
        emit tileSwapped(i, i + step);
    }
    emit structureChanged(QStringLiteral("Move Tile"));
}

TileSetEdit TileSet::snapshot() const
{
    TileSetEdit edit;
    edit.reserve(mTiles.size());
    for (const Tile* tile : mTiles)
        edit.append({ tile->image(), tile->offset(), tile->attributes(), tile->value() });
    return edit;
}

void TileSet::restore(const TileSetEdit& edit)
{
    removeAllTiles();
    for (const TileRecord& record : edit) {
        auto* tile = new Tile(record.offset, this);
        tile->setImage(record.image);
        tile->setAttributes(record.attributes);
        tile->setValue(record.value);
        mTiles.append(tile);
    }
    emit restored();
}

void TileSet::assign(const TileSet* other)
{
    if (!other || other == this)
        return;
    removeAllTiles();
    for (const Tile* tile : other->mTiles) {
        Tile* copy = tile->clone();
        copy->setParent(this);
        mTiles.append(copy);
    }
}

QByteArray TileSet::toPng(const Palette* palette) const
{
    if (mTiles.isEmpty())
        return {};
    QImage sheet(Tile::Size, Tile::Size * count(), QImage::Format_Indexed8);
    sheet.setColorCount(256);
    if (palette)
        sheet.setColorTable(palette->rgbTable());
    for (int i = 0; i < count(); ++i) {
        const QImage image = mTiles.at(i)->image();
        for (int y = 0; y < Tile::Size; ++y)
            std::memcpy(sheet.scanLine(i * Tile::Size + y), image.constScanLine(y), Tile::Size);
    }
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    sheet.save(&buffer, "PNG");
    return data;
}

bool TileSet::fromPng(const QByteArray& data)
{
    return setSheet(QImage::fromData(data, "png"));
}

bool TileSet::setSheet(const QImage& sheet)
{
    if (sheet.format() != QImage::Format_Indexed8 || sheet.width() != Tile::Size
        || sheet.height() != Tile::Size * count())
        return false;
    for (int i = 0; i < count(); ++i)
        mTiles.at(i)->setImage(sheet.copy(0, i * Tile::Size, Tile::Size, Tile::Size));
    return true;
}

bool TileSet::exportNxt(const QString& fileName) const
{
    return BinaryFile::write(fileName, TileSetFile::packedTiles(*this));
}

bool TileSet::exportBin(const QString& fileName, int first, int last, bool rotate) const
{
    return BinaryFile::write(fileName, TileSetFile::eightBitTiles(*this, first, last, rotate));
}

bool TileSet::exportBinary(const QString& directory) const
{
    return exportNxt(QDir(directory).filePath(QStringLiteral("%1_tiles.nxt").arg(mName)));
}

bool TileSet::exportAttributes(const QString& fileName) const
{
    return BinaryFile::write(fileName, TileSetFile::attributes(*this), QIODevice::Truncate);
}

bool TileSet::exportAttributesAsm(const QString& fileName) const
{
    return BinaryFile::write(fileName, TileSetFile::attributesAsm(*this), QIODevice::Truncate);
}

void TileSet::setName(const QString& name)
{
    if (name == mName)
        return;
    mName = name;
    emit nameChanged(mName);
}

void TileSet::setPalette(QPointer<Palette> palette)
{
    disconnect(mColourConnection);
    mPalette = palette;
    if (!mPalette)
        return;
    // Kept in step so that a set given a new palette is saved with it.
    mPaletteId = mPalette->id();
    mColourConnection = connect(mPalette.data(), &Palette::colourChanged, this, &TileSet::updateColour);
}

void TileSet::notifyImageChanged(int index)
{
    if (isIndex(index))
        emit tileChanged(index);
}

bool TileSet::importZXFont(int index, int foreIndex, int backIndex, int offset, const QString& filename)
{
    const auto isColour = [](int colour) { return colour >= 0 && colour < 256; };
    if (index < 0 || !isColour(foreIndex) || !isColour(backIndex))
        return false;
    QFile file(filename);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QList<QRgb> table = colourTable();
    for (int t = index; t < count() && !file.atEnd(); ++t) {
        const QByteArray glyph = file.read(Tile::Size);
        if (glyph.size() < Tile::Size)
            return false;
        Tile* tile = mTiles.at(t);
        tile->setOffset(offset);
        QImage image = Tile::blankImage(table);
        for (int y = 0; y < Tile::Size; ++y) {
            const uchar bits = uchar(glyph.at(y));
            uchar* row = image.scanLine(y);
            // A font byte has its most significant bit on the left.
            for (int x = 0; x < Tile::Size; ++x)
                row[x] = uchar((bits & (0x80 >> x)) ? foreIndex : backIndex);
        }
        tile->setImage(image);
        emit tileChanged(t);
    }
    return true;
}

void TileSet::importImage(int index, const QImage& image, int offset)
{
    if (!isIndex(index))
        return;
    Tile* tile = mTiles.at(index);
    tile->setOffset(offset);
    NxImage buffer;
    buffer.load(image);
    tile->setImage(buffer.remap(mPalette));
    emit tileChanged(index);
}

bool TileSet::importNxt(const QString& filename)
{
    QFile file(filename);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray data = file.readAll();
    const auto* bytes = reinterpret_cast<const uchar*>(data.constData());
    const QList<QRgb> table = colourTable();
    const qsizetype whole = data.size() / Tile::PackedSize;
    for (int t = 0; t < count() && t < whole; ++t) {
        const uchar* packed = bytes + qsizetype(t) * Tile::PackedSize;
        QImage image = Tile::blankImage(table);
        for (int y = 0; y < Tile::Size; ++y) {
            uchar* row = image.scanLine(y);
            for (int k = 0; k < Tile::Size / 2; ++k) {
                const uchar pair = packed[4 * y + k];
                row[2 * k] = pair >> 4;
                row[2 * k + 1] = pair & 0x0F;
            }
        }
        mTiles.at(t)->setOffset(0);
        mTiles.at(t)->setImage(image);
    }
    return true;
}

void TileSet::clearImage(int index)
{
    if (!isIndex(index))
        return;
    mTiles.at(index)->setImage(Tile::blankImage(colourTable()));
    emit tileChanged(index);
}

void TileSet::deleteTile(int index)
{
    if (!isIndex(index))
        return;
    emit structureAboutToChange();
    delete mTiles.takeAt(index);
    emit tileDeleted(index);
    emit structureChanged(QStringLiteral("Delete Tile"));
}

void TileSet::insertTile(int index)
{
    if (index < 0 || index > mTiles.size())
        return;
    emit structureAboutToChange();
    // Bank 1 on purpose, though the tiles of a new set start in bank 0.
    mTiles.insert(index, new Tile(1, this));
    emit tileInserted(index);
    emit structureChanged(QStringLiteral("Insert Tile"));
}

void TileSet::updateColour(int index, const QColor& colour)
{
    if (index < 0 || index >= Palette::Size)
        return;
    for (Tile* tile : std::as_const(mTiles))
        tile->setColour(index, colour);
    // One notice for the whole set: every tile changed at once.
    emit tileChanged(0);
}

QList<QRgb> TileSet::colourTable() const
{
    return mPalette ? mPalette->rgbTable() : QList<QRgb>();
}

void TileSet::removeAllTiles()
{
    qDeleteAll(mTiles);
    mTiles.clear();
}
