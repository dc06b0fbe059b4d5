#pragma once
#include <QImage>
#include <QList>
#include <QObject>
#include <QPointer>

class Palette;

// The working buffer of a picture import: the picture with every colour
// snapped onto the machine's grid, and its distinct colours in order of
// first appearance.
class NxImage : public QObject
{
    Q_OBJECT
public:
    explicit NxImage(QObject* parent = nullptr);

    bool load(const QImage& source);
    bool load(const QString& fileName);

    QImage image() const { return mImage; }
    QList<QRgb> colours() const { return mColours; }

    // Indexed against `palette`, one nearest-colour search per distinct
    // colour; a null image when a colour finds no entry.
    QImage remap(QPointer<Palette> palette) const;
    // Indexed against the picture's own colours.
    QImage toIndexed() const;
    // A copy renumbered by first use, unused and duplicate colours dropped.
    static QImage compacted(const QImage& indexed);

private:
    QImage mImage;
    QList<QRgb> mColours;
};
