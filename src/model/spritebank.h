#pragma once
#include "model/animation.h"
#include "model/tintorel.h"

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QUuid>

class Palette;
class SpriteAnim;

// A list of 16 x 16 sprites of one depth over one palette, with the
// animations made from them. All sprites live in one indexed image strip,
// sprite i in rows 16 i to 16 i + 15, so saving and undo are image copies.
class SpriteBank : public QObject
{
    Q_OBJECT
public:
    static constexpr int SpriteSize = 16;

    // The undo snapshot of a bank.
    struct State
    {
        QImage image;
        QByteArray offsets;
        QHash<QUuid, Animation::State> animations;

        bool operator==(const State& other) const;
        bool operator!=(const State& other) const { return !(*this == other); }
    };

    explicit SpriteBank(Tintorel::Sprite depth, QObject* parent = nullptr);
    ~SpriteBank() override;

    int transparency() const { return mTransparency; }
    void setTransparency(int value) { mTransparency = value; }
    QUuid id() const { return mId; }
    void setId(const QUuid& id) { mId = id; }
    QUuid paletteId() const { return mPaletteId; }
    void setPaletteId(const QUuid& id) { mPaletteId = id; }
    QString name() const { return mName; }
    void setName(const QString& name) { mName = name; }
    Tintorel::Sprite depth() const { return mDepth; }
    QPointer<Palette> palette() const { return mPalette; }
    void setPalette(Palette* palette);

    // One palette offset per sprite; 0 outside the list.
    QByteArray offsets() const { return mOffsets; }
    void setOffsets(const QByteArray& offsets);
    int offset(int index) const;
    void setOffset(int index, int offset);

    QImage image() const { return mImage; }
    // Takes a 16-pixel-wide indexed strip of whole sprites; anything else is ignored.
    void setBankImage(const QImage& image);

    int spriteCount() const { return mImage.height() / SpriteSize; }
    // Null outside the list.
    QImage sprite(int index, bool rotate = false, bool flip = false, bool mirror = false) const;
    void clearSprite(int index);
    void copySprite(int from, int to);
    void moveSprite(int from, int to);
    // Transparent pixels by the bank's own transparency value; null outside the list.
    QImage render(int index, int offset, bool rotate, bool flip, bool mirror) const;

    // Appends whole 16 x 16 pieces of a picture file; the new sprite count, or -1.
    int importImage(const QString& fileName);
    void importImage(int index, const QImage& image);

    QHash<QUuid, QSharedPointer<SpriteAnim>> animations() const { return mAnimations; }
    QSharedPointer<SpriteAnim> animation(const QUuid& id) const { return mAnimations.value(id); }
    SpriteAnim* createAnimation(const QString& name);
    // As createAnimation, under a known id (a file's); null if the id is null or taken.
    SpriteAnim* addAnimation(const QUuid& id, const QString& name);
    // Name plus " (copy)", with the source's delay, size and frames; null for an unknown id.
    SpriteAnim* cloneAnimation(const QUuid& id);
    void removeAnimation(const QUuid& id);

    State state() const;
    // Ends in restored(); none of the signals of an edit come.
    void restore(const State& state);

    // The .spr file: the whole strip, one byte a pixel.
    bool exportData(const QString& fileName) const;

public slots:
    void setImage(int index, const QImage& image);
    void addSprite(bool emitSignal);
    // Blank sprites at the end, the strip grown once: imports add thousands.
    void addSprites(int count, bool emitSignal);
    void addSprite();
    void deleteSprite(int index);
    void updateColour(int index, const QColor& colour, bool priority);

signals:
    void imageChanged(int index);
    void countChanged();
    void spriteSwapped(int first, int second);
    void spriteMoved(int from, int to);
    void spriteDeleted(int index);
    // The editor brackets each structural edit with these for the undo
    // history; the bank's own operations never emit them.
    void structureAboutToChange();
    void structureChanged(QString text);
    void animationsChanged();
    void restored();

private:
    bool isIndex(int index) const { return index >= 0 && index < spriteCount(); }
    SpriteAnim* adoptAnimation(SpriteAnim* animation);
    void releaseAnimation(const QSharedPointer<SpriteAnim>& animation);
    void applyPaletteTable();

    int mTransparency = 0xE3;
    QUuid mId;
    QUuid mPaletteId;
    QString mName;
    Tintorel::Sprite mDepth;
    QByteArray mOffsets;
    QImage mImage;
    QPointer<Palette> mPalette;
    QHash<QUuid, QSharedPointer<SpriteAnim>> mAnimations;
    QMetaObject::Connection mColourConnection;
};
