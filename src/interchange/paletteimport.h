#pragma once
#include "interchange/importreport.h"

#include <QPointer>

class Palette;
class Project;

// Palette → Import: a palette file (.pal, .nxp, .npl) or the colours of a
// picture (.png, .bmp) become a new palette named after the file. A file of
// the wrong length or an unreadable picture is refused and creates nothing.
ImportReport importPalette(Project& project, const QString& filePath, QPointer<Palette>* created = nullptr);
