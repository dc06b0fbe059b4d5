#include "exportcommand.h"
#include "importcommand.h"
#include "infocommand.h"
#include "rendercommand.h"
#include "project/version.h"

#include <QCoreApplication>
#include <QTextStream>
#include <memory>
#include <vector>

namespace {

void printUsage(const std::vector<std::unique_ptr<CliCommand>>& commands, QTextStream& stream)
{
    stream << "Usage:\n";
    for (const auto& command : commands)
        stream << "  tintorel-cli " << command->usage() << "\n";
    stream << "  tintorel-cli --help\n";
}

void printHelp(const std::vector<std::unique_ptr<CliCommand>>& commands, QTextStream& stream)
{
    stream << displayName() << " - command-line tool for project files\n\n";
    printUsage(commands, stream);
    for (const auto& command : commands)
        stream << "\n" << command->usage() << "\n" << command->help() << "\n";
    stream << "\nExit status: 0 on success, 1 on failure (message on standard error), 2 on a usage error.\n";
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(applicationName());
    QCoreApplication::setApplicationVersion(version());
    QTextStream out(stdout);
    QTextStream err(stderr);

    std::vector<std::unique_ptr<CliCommand>> commands;
    commands.push_back(std::make_unique<InfoCommand>());
    commands.push_back(std::make_unique<ExportCommand>());
    commands.push_back(std::make_unique<ImportCommand>());
    commands.push_back(std::make_unique<RenderCommand>());

    QStringList arguments = application.arguments().mid(1);
    if (arguments.isEmpty()) {
        err << "tintorel-cli: no command given\n";
        printUsage(commands, err);
        return CliCommand::UsageError;
    }
    const QString name = arguments.takeFirst();
    if (name == "--help" || name == "-h" || name == "help") {
        printHelp(commands, out);
        return CliCommand::Success;
    }
    if (name == "--version") {
        out << displayName() << "\n";
        return CliCommand::Success;
    }
    for (const auto& command : commands) {
        if (command->name() != name)
            continue;
        const CliCommand::Status status = command->run(arguments, out, err);
        if (status == CliCommand::UsageError)
            err << "Usage: tintorel-cli " << command->usage() << "\n";
        return status;
    }
    err << "tintorel-cli: unknown command '" << name << "'\n";
    printUsage(commands, err);
    return CliCommand::UsageError;
}
