#pragma once
#include <QString>

// Why an asset may not be deleted: the box a user sees when a delete is
// refused because something still uses the asset.
struct DeletionRefusal
{
    QString title;
    QString message;

    static DeletionRefusal palette();
    static DeletionRefusal tileSet();
    static DeletionRefusal blocks();
};
