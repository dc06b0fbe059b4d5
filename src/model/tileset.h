#pragma once
#include "model/tilesetedit.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QUuid>

class Palette;
class QColor;
class Tile;

// An ordered list of 8 x 8 tiles sharing one palette. Maps refer to tiles by
// position, so every change of the order is announced; structural changes are
// bracketed for the undo history, which restores them by whole snapshots.
class TileSet : public QObject
{
    Q_OBJECT
public:
    explicit TileSet(int count, QObject* parent = nullptr);

    QUuid id() const { return mId; }
    void setId(const QUuid& id) { mId = id; }
    QUuid paletteId() const { return mPaletteId; }
    void setPaletteId(const QUuid& id) { mPaletteId = id; }
    QString name() const { return mName; }
    bool hiRes() const { return mHiRes; }
    QPointer<Palette> palette() const { return mPalette; }

    int count() const { return int(mTiles.size()); }
    // Null for an index outside the list.
    Tile* tile(int index) const;
    void setTileImage(int index, const QImage& image);
    void setTileOffset(int index, int offset);
    int tileOffset(int index) const;
    QImage render(int index, bool rotate, bool flip, bool mirror, int offset) const;

    void copyTile(int from, int to);
    void moveTile(int from, int to);

    TileSetEdit snapshot() const;
    void restore(const TileSetEdit& edit);
    void assign(const TileSet* other);

    QByteArray toPng(const Palette* palette) const;
    bool fromPng(const QByteArray& data);
    // The tiles from one 8-bit picture of them all, one below the other.
    bool setSheet(const QImage& sheet);

    // The hardware files; each is written whole, and true only if all of it was.
    bool exportNxt(const QString& fileName) const;
    // Tiles `first` to `last`, counted from 1 and inclusive, 64 bytes each.
    bool exportBin(const QString& fileName, int first, int last, bool rotate) const;
    // "<name>_tiles.nxt" in `directory`.
    bool exportBinary(const QString& directory) const;
    bool exportAttributes(const QString& fileName) const;
    bool exportAttributesAsm(const QString& fileName) const;

public slots:
    void setName(const QString& name);
    void setHiRes(bool hiRes) { mHiRes = hiRes; }
    void setPalette(QPointer<Palette> palette);
    void notifyImageChanged(int index);
    bool importZXFont(int index, int foreIndex, int backIndex, int offset, const QString& filename);
    void importImage(int index, const QImage& image, int offset);
    bool importNxt(const QString& filename);
    void clearImage(int index);
    void deleteTile(int index);
    void insertTile(int index);
    void updateColour(int index, const QColor& colour);

signals:
    void nameChanged(QString name);
    void tileChanged(int index);
    void tileDeleted(int index);
    void tileInserted(int index);
    void tileSwapped(int first, int second);
    void structureAboutToChange();
    void structureChanged(QString text);
    void restored();

private:
    bool isIndex(int index) const { return index >= 0 && index < mTiles.size(); }
    // The palette's table; empty without one, which Tile::blankImage reads as black.
    QList<QRgb> colourTable() const;
    void removeAllTiles();

    QUuid mId;
    QUuid mPaletteId;
    QString mName;
    bool mHiRes = false;
    QList<Tile*> mTiles;
    QPointer<Palette> mPalette;
    QMetaObject::Connection mColourConnection;
};
