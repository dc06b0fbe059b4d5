#pragma once
#include "clicommand.h"

// `info PROJECT`: the project and each kind of asset as JSON.
class InfoCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("info"); }
    QString usage() const override;
    QString help() const override;
    Status run(const QStringList& arguments, QTextStream& out, QTextStream& err) override;
};
