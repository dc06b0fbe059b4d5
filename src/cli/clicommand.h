#pragma once
#include <QStringList>

class QTextStream;

// One subcommand of the command-line tool: parses its own arguments, runs
// on the core library alone, and answers with the process's exit status.
class CliCommand
{
public:
    enum Status { Success = 0, Failure = 1, UsageError = 2 };

    virtual ~CliCommand() = default;
    virtual QString name() const = 0;
    virtual QString usage() const = 0;
    virtual QString help() const = 0;
    virtual Status run(const QStringList& arguments, QTextStream& out, QTextStream& err) = 0;
};
