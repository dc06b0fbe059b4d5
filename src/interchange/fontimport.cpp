#include "interchange/fontimport.h"

#include "model/tileset.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

constexpr int CharacterBytes = 8;

QString tr(const char* text)
{
    return QCoreApplication::translate("FontImport", text);
}

} // namespace

ImportReport importZXFont(TileSet& tiles, int index, int foreIndex, int backIndex, int offset,
                          const QString& filePath)
{
    const QString readError = tr("Read error");
    const QFileInfo info(filePath);
    if (!info.exists())
        return ImportReport::failure(
            ImportText::because(readError, tr("%1 does not exist").arg(ImportText::file(filePath))));
    if (info.size() < CharacterBytes)
        return ImportReport::failure(
            ImportText::because(readError, ImportText::tooShort(filePath, info.size(), tr("character"), CharacterBytes)));
    if (index < 0 || index >= tiles.count())
        return ImportReport::failure(
            ImportText::because(readError, tr("the tile set has no tile %1").arg(index + 1)));

    const qint64 characters = info.size() / CharacterBytes;
    const qint64 room = tiles.count() - index;
    // The set's reader stops with a failure at a tail shorter than a
    // character, having read every whole one before it.
    const bool read = tiles.importZXFont(index, foreIndex, backIndex, offset, filePath);
    if (!read && info.size() % CharacterBytes == 0)
        return ImportReport::failure(
            ImportText::because(readError, tr("%1 could not be read").arg(ImportText::file(filePath))));

    ImportReport report;
    if (characters > room)
        report.warnings << tr("%1 holds %2 characters; only %3 fitted from tile %4 to the end of the set")
                               .arg(ImportText::file(filePath))
                               .arg(characters)
                               .arg(room)
                               .arg(index + 1);
    else if (info.size() % CharacterBytes)
        report.warnings << ImportText::tail(filePath, info.size() % CharacterBytes, tr("character"));
    return report;
}
