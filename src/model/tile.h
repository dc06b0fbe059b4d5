#pragma once
#include <QImage>
#include <QList>
#include <QObject>

class QColor;

// One 8 x 8 tile: a picture of which only the low four bits of each pixel
// count, the 16-colour bank it is drawn in, and the game's flags and value.
class Tile : public QObject
{
    Q_OBJECT
public:
    static constexpr int Size = 8;
    static constexpr int PackedSize = 32;

    // The attribute bits, named as the assembler export names them.
    enum Attribute {
        TA_NONE = 0x00,
        TA_TOPSOLID = 0x01,
        TA_LEFTSOLID = 0x02,
        TA_RIGHTSOLID = 0x04,
        TA_BOTTOMSOLID = 0x08,
        TA_SOLID = 0x0F,
        TA_DEADLY = 0x10,
        TA_COLLECTIBLE = 0x20,
        TA_LADDER = 0x40,
        TA_DOOR = 0x80,
    };
    Q_ENUM(Attribute)

    explicit Tile(int offset, QObject* parent = nullptr);

    // An 8 x 8 Indexed8 picture of index 0; an empty table means 256 opaque blacks.
    static QImage blankImage(const QList<QRgb>& colourTable = {});
    // The picture with only the low four bits of each pixel, the part that a
    // tile keeps: an editor that shows a tile in its bank writes it back so,
    // and a stroke that changed no pixel writes back the very same bytes.
    static QImage fourBit(const QImage& image);

    QImage image() const { return mImage; }
    void setImage(const QImage& image);
    int offset() const { return mOffset; }
    void setOffset(int offset) { mOffset = offset; }
    int attributes() const { return mAttributes; }
    void setAttributes(int attributes) { mAttributes = attributes; }
    int value() const { return mValue; }

    void setColour(int index, const QColor& colour);
    // The picture in bank `offset` (not the tile's own), then turned and mirrored.
    QImage render(bool rotate, bool flip, bool mirror, int offset) const;
    // Four bits a pixel, the left one in the high nibble, rows from the top.
    QByteArray toPacked() const;
    // An unowned copy; the caller gives it a parent.
    Tile* clone() const;

public slots:
    void setValue(int value) { mValue = value; }

private:
    QImage mImage;
    int mOffset = 0;
    int mAttributes = 0;
    int mValue = 0;
};
