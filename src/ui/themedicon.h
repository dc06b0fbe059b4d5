#pragma once
#include <QIcon>

class QString;

// The icon of a monochrome SVG resource drawn in the palette's colours; every
// icon of the interface is made here so that it follows the theme.
QIcon themedIcon(const QString& path);
