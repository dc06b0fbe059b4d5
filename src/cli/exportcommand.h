#pragma once
#include "clicommand.h"

// `export PROJECT --out DIR [--map NAME]`: the machine's files of every map
// (tile map, tiles, palette) and every sprite bank.
class ExportCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("export"); }
    QString usage() const override;
    QString help() const override;
    Status run(const QStringList& arguments, QTextStream& out, QTextStream& err) override;
};
