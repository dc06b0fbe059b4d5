#pragma once
#include <QList>
#include <QString>

// What a placed block means to the game; the numbers are stored in projects.
enum class MapObjectType { Normal = 0, HorizontalPlatform = 1 };

// The text shown for a type; empty for a number outside the list.
QString mapObjectTypeText(MapObjectType type);
// Every type, in the order of their numbers.
QList<MapObjectType> mapObjectTypes();
