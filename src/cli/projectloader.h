#pragma once
#include <QPointer>
#include <QString>

class Map;
class Project;
class ProjectStore;
class QTextStream;

// Opens a project file for a subcommand, reporting a failure in the
// system's own words on the error stream, once.
bool loadProject(ProjectStore& store, const QString& path, QTextStream& err);

// The map with this id, or else with this name; null with the reason on the
// error stream when none matches or several share the name (their ids are
// listed, so that the caller can name one).
QPointer<Map> findMap(const Project& project, const QString& nameOrId, QTextStream& err);
