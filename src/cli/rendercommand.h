#pragma once
#include "clicommand.h"

// `render PROJECT --map NAME --out FILE.png [--scale N]`: the map as the
// editor shows it, as a picture.
class RenderCommand : public CliCommand
{
public:
    QString name() const override { return QStringLiteral("render"); }
    QString usage() const override;
    QString help() const override;
    Status run(const QStringList& arguments, QTextStream& out, QTextStream& err) override;
};
