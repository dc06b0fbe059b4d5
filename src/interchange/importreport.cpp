#include "interchange/importreport.h"

#include "model/palette.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace ImportText {

namespace {
QString tr(const char* text)
{
    return QCoreApplication::translate("Import", text);
}
} // namespace

QString file(const QString& path)
{
    return QStringLiteral("\"%1\"").arg(QFileInfo(path).fileName());
}

QString because(const QString& message, const QString& reason)
{
    return QStringLiteral("%1: %2").arg(message, reason);
}

QString tooShort(const QString& path, qint64 size, const QString& unit, int unitBytes)
{
    if (size <= 0)
        return tr("%1 is empty").arg(file(path));
    return tr("%1 is shorter than one %2 (%3 bytes)").arg(file(path), unit).arg(unitBytes);
}

QString tail(const QString& path, qint64 bytes, const QString& unit)
{
    return tr("%1 ends with %2 bytes that are not a whole %3; they were left out").arg(file(path)).arg(bytes).arg(unit);
}

QString paletteLength(const QString& path)
{
    const qint64 size = QFileInfo(path).size();
    if (size == Palette::fileSize(path))
        return {};
    return tr("%1 is %2 bytes long; a palette file holds %3").arg(file(path)).arg(size).arg(Palette::fileSize(path));
}

} // namespace ImportText
