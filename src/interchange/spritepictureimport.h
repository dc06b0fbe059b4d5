#pragma once
#include "interchange/importreport.h"

#include <QUuid>

class Project;
class QImage;
class SpriteBank;

// Cuts a picture into 16x16 sprites for a bank: the first piece replaces
// sprite 0, each further piece is a new sprite, and the picture's colours
// become the first entries of the bank's palette. Returns the piece count.
int importSpritePicture(SpriteBank& bank, const QImage& picture);

// Sprites → Import of a picture: a new 8-bit bank named after the file, on a
// new palette of the picture's colours or, given its id, on one of the
// project's, to whose nearest colours the picture is mapped. A picture that
// can't be read or is smaller than one sprite is refused and creates
// nothing; margins that are not whole sprites and colours past the 256th
// are reported as warnings.
ImportReport importSpriteSheet(Project& project, const QString& filePath, SpriteBank** created = nullptr,
                               const QUuid& paletteId = QUuid());
