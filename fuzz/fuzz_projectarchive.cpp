#include "fuzzsupport.h"
#include "project/projectstore.h"

// A .tintorel file as the editor opens it: the archive, then everything in it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = Fuzz::scratchFile(QStringLiteral("project.tintorel"), Fuzz::bytes(data, size));
    ProjectStore store;
    store.load(path);
    return 0;
}
