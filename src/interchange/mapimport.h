#pragma once
#include "interchange/importreport.h"

#include <QString>
#include <functional>

class Project;

// Reports how far a picture import has come: a value up to a maximum.
using ImportProgress = std::function<void(int value, int maximum)>;

// Imports a NextTiles set (.nxp .nxt .nxm .nxb, any one of them named) or a
// picture into the project as a palette, a tile set and a map named after
// the file. A set whose files hold nothing usable is refused before anything
// is created; a later failure leaves what was made in the project. An import
// that went through says in its warnings what it had to leave out.
ImportReport importMap(Project& project, const QString& filePath, const ImportProgress& progress = {});
