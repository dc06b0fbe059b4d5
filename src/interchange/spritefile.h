#pragma once
#include "interchange/importreport.h"

#include <QByteArray>
#include <QFlags>
#include <QUuid>

class Project;
class QString;
class SpriteBank;

// The .spr file: every sprite of a bank as 256 bytes, one a pixel, rows from
// the top. Both depths are written unpacked, without their palette offsets.
namespace SpriteFile {

// The choices of the sprite data import, with the values its dialog uses.
enum ImportAction {
    Append = 1,
    CreatePalette = 2,
    UseExistingPalette = 4,
};
Q_DECLARE_FLAGS(ImportActions, ImportAction)

QByteArray content(const SpriteBank& bank);

// Appends each whole sprite of the file to `openBank` with Append, or else
// to a new 8-bit bank named after the file, on a new standard palette
// "Default Next" with CreatePalette and otherwise on `paletteId`. A tail of
// fewer than 256 bytes is left out with a warning. A file that can't be read
// or holds no whole sprite, or Append without a bank, is refused and creates
// nothing. `filled`, when given, receives the bank.
ImportReport import(Project& project, const QString& fileName, ImportActions actions, SpriteBank* openBank,
                    const QUuid& paletteId = QUuid(), SpriteBank** filled = nullptr);

} // namespace SpriteFile

Q_DECLARE_OPERATORS_FOR_FLAGS(SpriteFile::ImportActions)
