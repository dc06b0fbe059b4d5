#pragma once
#include <QImage>
#include <QString>

// The one orientation routine every tile and sprite drawing goes through:
// a quarter turn clockwise first, then the mirrors.
QImage transformed(const QImage& source, bool rotate, bool flip, bool mirror);

// Bit 2 rotates, bit 0 flips (vertical), bit 1 mirrors (horizontal); the
// values 0 to 7 reach all eight orientations of a square image.
QImage transformedByFlags(const QImage& source, int flags);

// Lower-case hex SHA-1 of the raw pixel bytes; the colour table takes no part.
QString imageHash(const QImage& source);
