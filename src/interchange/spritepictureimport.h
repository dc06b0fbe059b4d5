#pragma once

class QImage;
class SpriteBank;

// Cuts a picture into 16x16 sprites for a bank: the first piece replaces
// sprite 0, each further piece is a new sprite, and the picture's colours
// become the first entries of the bank's palette. Returns the piece count.
int importSpritePicture(SpriteBank& bank, const QImage& picture);
