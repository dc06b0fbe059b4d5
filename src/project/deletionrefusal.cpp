#include "project/deletionrefusal.h"

#include <QCoreApplication>

DeletionRefusal DeletionRefusal::palette()
{
    return { QCoreApplication::translate("Project", "Palette In Use"),
             QCoreApplication::translate(
                 "Project", "You may not delete this palette; it is used by one or more sprites, tiles or images") };
}

DeletionRefusal DeletionRefusal::tileSet()
{
    return { QCoreApplication::translate("Project", "Tile Set In Use"),
             QCoreApplication::translate("Project",
                                         "You may not delete this Tile Set; it is used by one or more maps") };
}

DeletionRefusal DeletionRefusal::blocks()
{
    return { QCoreApplication::translate("Project", "Objects in use"),
             QCoreApplication::translate(
                 "Project", "You may not delete these objects; they are in use by one or more maps") };
}
