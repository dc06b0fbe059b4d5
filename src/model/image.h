#pragma once
#include "model/tintorel.h"

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QUuid>

class Palette;

// A full-screen picture of palette indices at one of the machine's screen
// sizes (Layer 2 or LoRes), drawn in one palette.
class Image : public QObject
{
    Q_OBJECT
public:
    explicit Image(Tintorel::ImageMode mode, QObject* parent = nullptr);

    // The pixel size of a mode; an empty size for a value outside the table.
    static QSize sizeOf(Tintorel::ImageMode mode);
    // The colours a mode can show at once: 16 for the 640-wide mode, whose
    // pixels are four bits on the machine, 256 for the others.
    static int colourCount(Tintorel::ImageMode mode);

    QUuid id() const { return mId; }
    void setId(const QUuid& id) { mId = id; }
    QString name() const { return mName; }
    void setName(const QString& name) { mName = name; }

    QPointer<Palette> palette() const { return mPalette; }
    QUuid paletteId() const;
    void setPalette(QPointer<Palette> palette);

    QImage image() const { return mImage; }
    void setImage(const QImage& image);

    Tintorel::ImageMode mode() const { return mMode; }

private:
    QString mName;
    QUuid mId;
    QPointer<Palette> mPalette;
    QImage mImage;
    Tintorel::ImageMode mMode;
};
