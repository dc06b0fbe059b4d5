#pragma once
#include <QImage>

// Test pictures whose right answer is known: cells drawn from random 8x8
// tile shapes whose eight orientations all differ, each cell in a random
// orientation and palette bank.
namespace PictureGenerator {

// `columns` x `rows` cells drawn from `shapes` shapes; with `shapes` 0 every
// cell is a shape of its own.
QImage tiles(int columns, int rows, int shapes, quint32 seed);

// The same picture as 8-bit indexed, for the second form of each case.
QImage indexed(const QImage& picture);

} // namespace PictureGenerator
