#pragma once
#include <QString>
#include <QStringList>

// What an import tells its user: why it was refused, or, when it went
// through, what it had to leave out. Nothing is ever dropped silently.
struct ImportReport
{
    QString error;
    QStringList warnings;

    bool ok() const { return error.isEmpty(); }
    static ImportReport failure(const QString& message) { return { message, {} }; }
};

// The wording shared by every import, so that the editor and the
// command-line tool name files and losses alike.
namespace ImportText {

// The file's name in quotes, without its folder.
QString file(const QString& path);
// "<what failed>: <why>", the first part being the program's own message.
QString because(const QString& message, const QString& reason);
// `"x" is empty` or `"x" is shorter than one <unit> (<size> bytes)`.
QString tooShort(const QString& path, qint64 size, const QString& unit, int unitBytes);
// `"x" ends with N bytes that are not a whole <unit>; they were left out`.
QString tail(const QString& path, qint64 bytes, const QString& unit);

// `"x" is N bytes long; a palette file holds 512` (513 for .npl), or empty
// when the file has the length its name asks for.
QString paletteLength(const QString& path);

} // namespace ImportText
