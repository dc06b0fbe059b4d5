#include "fuzzsupport.h"
#include "interchange/spritefile.h"
#include "model/spritebank.h"
#include "project/project.h"

// Sprites → Import of a .spr file. The first byte picks where the sprites
// go: a new bank, or appended to an open bank of either depth.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QByteArray content = Fuzz::bytes(data, size);
    const int choice = Fuzz::takeChoice(content, 3);
    const QString path = Fuzz::scratchFile(QStringLiteral("sprites.spr"), content);
    Project project;
    if (choice == 0) {
        SpriteFile::import(project, path, SpriteFile::CreatePalette, nullptr);
        return 0;
    }
    const auto depth = choice == 1 ? Tintorel::Sprite::FourBit : Tintorel::Sprite::EightBit;
    const QPointer<SpriteBank> open = project.createSpriteBank(depth, QStringLiteral("open"), QUuid());
    SpriteFile::import(project, path, SpriteFile::Append, open.data());
    return 0;
}
