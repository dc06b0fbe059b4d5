#include "interchange/tilesetfile.h"

#include "model/tile.h"
#include "model/tileset.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImage>

namespace TileSetFile {

namespace {

constexpr int ValuesPerLine = 16;

// The spacing lines the values up in a fixed-width editor; it is part of the format.
constexpr char AsmHeader[] = "\tTA_NONE        = $00\n"
                             "\tTA_TOPSOLID    = $01\n"
                             "\tTA_LEFTSOLID   = $02\n"
                             "\tTA_RIGHTSOLID  = $04\n"
                             "\tTA_BOTTOMSOLID = $08\n"
                             "\tTA_SOLID       = $0F\n"
                             "\tTA_DEADLY      = $10\n"
                             "\tTA_COLLECTIBLE = $20\n"
                             "\tTA_LADDER      = $40\n"
                             "\tTA_DOOR        = $80\n";

} // namespace

QByteArray packedTiles(const TileSet& tiles)
{
    QByteArray content;
    content.reserve(qsizetype(tiles.count()) * Tile::PackedSize);
    for (int i = 0; i < tiles.count(); ++i)
        content += tiles.tile(i)->toPacked();
    return content;
}

QByteArray eightBitTiles(const TileSet& tiles, int first, int last, bool rotate)
{
    first = qMax(first, 1);
    last = qMin(last, tiles.count());
    QByteArray content;
    for (int index = first - 1; index < last; ++index) {
        // Rotating and then mirroring transposes the tile.
        const QImage image = tiles.render(index, rotate, false, rotate, tiles.tileOffset(index));
        for (int y = 0; y < Tile::Size; ++y)
            content.append(reinterpret_cast<const char*>(image.constScanLine(y)), Tile::Size);
    }
    return content;
}

QByteArray attributes(const TileSet& tiles)
{
    QByteArray content(tiles.count(), '\0');
    for (int i = 0; i < tiles.count(); ++i)
        content[i] = char(tiles.tile(i)->attributes() & 0xFF);
    return content;
}

QByteArray attributesAsm(const TileSet& tiles)
{
    QString text = QString::fromLatin1(AsmHeader);
    for (int i = 0; i < tiles.count(); ++i) {
        const int column = i % ValuesPerLine;
        text += column == 0 ? QStringLiteral("\tdb\t") : QStringLiteral(",");
        text += QStringLiteral("$%1").arg(tiles.tile(i)->attributes() & 0xFF, 2, 16, QLatin1Char('0'));
        if (column == ValuesPerLine - 1 || i == tiles.count() - 1)
            text += QLatin1Char('\n');
    }
    return text.toLatin1();
}

QString nxtProblem(const QString& path)
{
    const qint64 size = QFileInfo(path).size();
    if (size >= Tile::PackedSize)
        return {};
    return ImportText::tooShort(path, size, QCoreApplication::translate("TileSetFile", "tile"), Tile::PackedSize);
}

ImportReport readNxt(TileSet& tiles, const QString& path)
{
    const QString message = QCoreApplication::translate("TileSetFile", "Could not import the tile data");
    const QString problem = nxtProblem(path);
    if (!problem.isEmpty())
        return ImportReport::failure(ImportText::because(message, problem));
    if (!tiles.importNxt(path))
        return ImportReport::failure(message);
    ImportReport report;
    const qint64 size = QFileInfo(path).size();
    if (size % Tile::PackedSize)
        report.warnings << ImportText::tail(path, size % Tile::PackedSize,
                                            QCoreApplication::translate("TileSetFile", "tile"));
    if (size / Tile::PackedSize > tiles.count())
        report.warnings << QCoreApplication::translate("TileSetFile", "%1 holds %2 tiles; the tile set took the first %3")
                               .arg(ImportText::file(path))
                               .arg(size / Tile::PackedSize)
                               .arg(tiles.count());
    return report;
}

} // namespace TileSetFile
