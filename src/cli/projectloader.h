#pragma once
#include <QString>

class ProjectStore;
class QTextStream;

// Opens a project file for a subcommand, reporting a failure in the
// system's own words on the error stream.
bool loadProject(ProjectStore& store, const QString& path, QTextStream& err);
