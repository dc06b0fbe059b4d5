#pragma once
#include <QHash>
#include <QImage>
#include <QList>

// Gives each colour met an index of an 8-bit picture, first come first
// served, for as long as 256 indices cover them: a rendered map in the
// machine's colours stays an indexed picture a quarter the size.
class ColourIndexer
{
public:
    // Writes the rows of `picture` (32-bit) as indices into `target` from
    // row `top` on; false, leaving the rest, once a 257th colour turns up.
    bool append(const QImage& picture, QImage& target, int top);
    QList<QRgb> table() const { return mTable; }

private:
    QHash<QRgb, uchar> mIndex;
    QList<QRgb> mTable;
};
