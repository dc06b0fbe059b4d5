#include "importcommand.h"

#include "interchange/mapimport.h"
#include "project/project.h"
#include "project/projectstore.h"
#include "projectloader.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QTextStream>

QString ImportCommand::usage() const
{
    return QStringLiteral("import FILE --project PROJECT.tintorel");
}

QString ImportCommand::help() const
{
    return QStringLiteral("Imports a picture, or a NextTiles set (.nxp .nxt .nxm .nxb, naming any one of them), into\n"
                          "the project as a palette, a tile set and a map named after the file, then saves the\n"
                          "project, keeping the previous file as PROJECT.tintorel.bak. A project that does not\n"
                          "exist is created, named after the file. On failure the project file is left untouched.");
}

CliCommand::Status ImportCommand::run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    QCommandLineParser parser;
    parser.addOption({ "project", "", "PROJECT" });
    if (!parser.parse(QStringList { "tintorel-cli" } + arguments) || parser.positionalArguments().size() != 1
        || !parser.isSet("project"))
        return UsageError;
    const QString file = parser.positionalArguments().first();
    const QString path = parser.value("project");

    ProjectStore store;
    if (QFileInfo::exists(path)) {
        if (!loadProject(store, path, err))
            return Failure;
    } else {
        store.create(QFileInfo(file).baseName(), false);
        store.setFilePath(path);
    }
    const QString failure = importMap(*store.project(), file);
    if (!failure.isEmpty()) {
        err << file << ": " << failure << Qt::endl;
        return Failure;
    }
    QString saveFailure;
    QObject::connect(&store, &ProjectStore::saveError, [&saveFailure](const QString& text) { saveFailure = text; });
    if (!store.save(true)) {
        err << path << ": " << saveFailure << Qt::endl;
        return Failure;
    }
    out << QObject::tr("Imported %1 into %2").arg(file, path) << Qt::endl;
    return Success;
}
