#include "interchange/spritefile.h"

#include "model/palette.h"
#include "model/spritebank.h"
#include "project/project.h"
#include "project/projectbudget.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <cstring>

namespace SpriteFile {

namespace {

constexpr int Size = SpriteBank::SpriteSize;
constexpr int SpriteBytes = Size * Size;

SpriteBank* newBank(Project& project, const QString& fileName, ImportActions actions, QUuid paletteId)
{
    if (actions.testFlag(CreatePalette)) {
        const QPointer<Palette> palette =
            project.createPalette(CreateAction::Standard, QStringLiteral("Default Next"));
        paletteId = palette ? palette->id() : QUuid();
    }
    return project.createSpriteBank(Tintorel::Sprite::EightBit, QFileInfo(fileName).baseName(), paletteId);
}

} // namespace

QByteArray content(const SpriteBank& bank)
{
    const QImage strip = bank.image();
    QByteArray bytes;
    bytes.reserve(qsizetype(strip.height()) * Size);
    for (int y = 0; y < strip.height(); ++y)
        bytes.append(reinterpret_cast<const char*>(strip.constScanLine(y)), Size);
    return bytes;
}

ImportReport import(Project& project, const QString& fileName, ImportActions actions, SpriteBank* openBank,
                    const QUuid& paletteId, SpriteBank** filled)
{
    const QString readError = QCoreApplication::translate("SpriteFile", "Read error");
    const bool append = actions.testFlag(Append);
    if (append && !openBank)
        return ImportReport::failure(
            ImportText::because(readError, QCoreApplication::translate("SpriteFile", "no sprite bank is open")));
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return ImportReport::failure(ImportText::because(
            readError, QCoreApplication::translate("SpriteFile", "%1 cannot be opened").arg(ImportText::file(fileName))));
    // Charged before the file is read: its size says how many sprites it holds.
    const qint64 count = file.size() / SpriteBytes;
    ProjectBudget budget(project);
    if (!budget.charge(ProjectBudget::pictureCost(QSize(Size, Size)) * count + ProjectBudget::recordsCost(count),
                       ImportText::file(fileName)))
        return ImportReport::failure(budget.problem());
    const QByteArray bytes = file.readAll();
    if (bytes.size() < SpriteBytes)
        return ImportReport::failure(ImportText::because(
            readError, ImportText::tooShort(fileName, bytes.size(), QCoreApplication::translate("SpriteFile", "sprite"),
                                            SpriteBytes)));

    ImportReport report;
    if (bytes.size() % SpriteBytes)
        report.warnings << ImportText::tail(fileName, bytes.size() % SpriteBytes,
                                            QCoreApplication::translate("SpriteFile", "sprite"));
    SpriteBank* bank = append ? openBank : newBank(project, fileName, actions, paletteId);
    const int sprites = int(bytes.size() / SpriteBytes);
    // A new bank's own blank sprite takes the file's first, so that a file
    // read into a new bank writes back byte for byte.
    const int first = append ? bank->spriteCount() : 0;
    bank->addSprites(append ? sprites : sprites - 1, true);
    for (int s = 0; s < sprites; ++s) {
        QImage sprite(Size, Size, QImage::Format_Indexed8);
        sprite.setColorCount(256);
        const char* source = bytes.constData() + s * SpriteBytes;
        for (int y = 0; y < Size; ++y)
            std::memcpy(sprite.scanLine(y), source + y * Size, Size);
        bank->setImage(first + s, sprite);
    }
    if (filled)
        *filled = bank;
    return report;
}

} // namespace SpriteFile
