#pragma once
#include <QString>
#include <functional>

class Project;

// Reports how far a picture import has come: a value up to a maximum.
using ImportProgress = std::function<void(int value, int maximum)>;

// Imports a NextTiles set (.nxp .nxt .nxm .nxb, any one of them named) or a
// picture into the project as a palette, a tile set and a map named after
// the file. Returns an empty string on success, otherwise the message for
// the user; what was created before a failure stays in the project.
QString importMap(Project& project, const QString& filePath, const ImportProgress& progress = {});
