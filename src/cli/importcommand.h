#pragma once
#include "clicommand.h"

// `import FILE --project PROJECT`: a picture or a NextTiles set becomes a
// palette, a tile set and a map of the project, which is then saved.
class ImportCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("import"); }
    QString usage() const override;
    QString help() const override;
    Status run(const QStringList& arguments, QTextStream& out, QTextStream& err) override;
};
