#pragma once
#include <QColor>
#include <QList>
#include <QObject>
#include <QUuid>
#include <array>

// The machine's colour table: 256 nine-bit colours with a priority flag each.
// Every conversion between the machine's form and QColor happens here; it is
// lossy on purpose and the numbers are part of the file formats.
class Palette : public QObject
{
    Q_OBJECT
public:
    static constexpr int Size = 256;

    explicit Palette(QObject* parent = nullptr);

    QUuid id() const { return mId; }
    void setId(const QUuid& id) { mId = id; }
    QString name() const { return mName; }

    QColor colour(int index) const;
    bool priority(int index) const;
    ushort entry(int index) const;
    void setEntry(int index, ushort raw);
    void restoreEntry(int index, ushort raw);
    int nearestIndex(const QColor& colour) const;

    void fill(const QColor& colour, bool priority);
    // setColour from index 0 on, without priority, for the colours of an
    // imported picture; colours past the last entry are dropped.
    void setColours(const QList<QRgb>& colours);
    void loadStandard();
    void copyEntries(const Palette* other);
    QList<QColor> colours() const;
    QList<QRgb> rgbTable() const;

    int transparencyIndex() const { return mTransparencyIndex; }
    void setTransparencyIndex(int index) { mTransparencyIndex = index; }

    bool exportBinary(const QString& directory) const;

    static QColor snapColour(const QColor& colour);
    // One 8-bit channel onto the 17-step grid; a tie goes down.
    static int snapChannel(int channel);
    static ushort encode(const QColor& colour, bool priority);
    static QColor decode(ushort raw);
    static int channelForLevel(int level);
    static ushort standardEntry(int index);
    // 512 bytes, or 513 for a file named .npl.
    static qint64 fileSize(const QString& fileName);

public slots:
    void setName(const QString& name);
    void setColour(int index, const QColor& colour, bool priority);
    bool exportData(const QString& fileName) const;
    bool importData(const QString& fileName);

signals:
    void colourChanged(int index, QColor colour, bool priority);
    void colourEdited(int index, ushort before, ushort after);
    void nameChanged(QString name);

private:
    static bool isIndex(int index) { return index >= 0 && index < Size; }

    QUuid mId;
    QString mName = QStringLiteral("untitled");
    std::array<ushort, Size> mEntries {};
    int mTransparencyIndex = -1;
};
