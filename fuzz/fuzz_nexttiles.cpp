#include "fuzzsupport.h"
#include "interchange/mapimport.h"
#include "project/project.h"

#include <QtEndian>

namespace {

// Takes a part that a little-endian 16-bit length announces; a length past
// the end takes what is left.
QByteArray takePart(QByteArray& input)
{
    if (input.size() < 2) {
        input.clear();
        return {};
    }
    const qsizetype length = qFromLittleEndian<quint16>(input.constData());
    const QByteArray part = input.mid(2, length);
    input.remove(0, 2 + part.size());
    return part;
}

} // namespace

// A NextTiles set imported as a map: the tiles (.nxt), the block map (.nxm)
// and the block table (.nxb), each through its own reader. The input holds
// the .nxt and the .nxm, each after its length, then the .nxb. The palette
// (.nxp) has its own target; here it is always a valid black one.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QByteArray input = Fuzz::bytes(data, size);
    const QByteArray tiles = takePart(input);
    const QByteArray blocks = takePart(input);
    Fuzz::scratchFile(QStringLiteral("set.nxp"), QByteArray(512, '\0'));
    Fuzz::scratchFile(QStringLiteral("set.nxt"), tiles);
    Fuzz::scratchFile(QStringLiteral("set.nxb"), input);
    const QString map = Fuzz::scratchFile(QStringLiteral("set.nxm"), blocks);
    Project project;
    importMap(project, map);
    return 0;
}
