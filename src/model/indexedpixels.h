#pragma once

class QImage;

// True when two pictures hold the same pixels. Indexed pictures compare by
// their index bytes: QImage::operator== resolves indices to colours, so two
// indices that share a colour would look equal and an edit would be lost.
// Other formats, whose bytes are the colours, fall back to QImage::operator==.
bool sameIndexedPixels(const QImage& a, const QImage& b);

// A copy of an indexed picture with only the low four bits of each pixel:
// what a 4-bit tile or sprite keeps of a picture drawn in one of its banks.
QImage lowNibbles(const QImage& image);
