#pragma once
#include <QPointer>
#include <QString>

class Map;
class Project;
class ProjectStore;
class QTextStream;

// Opens a project file for a subcommand, reporting a failure in the
// system's own words on the error stream.
bool loadProject(ProjectStore& store, const QString& path, QTextStream& err);

// The map of that name (the last one, should names repeat), or null with
// "No map named %1" on the error stream.
QPointer<Map> findMap(const Project& project, const QString& name, QTextStream& err);
