#include "ui/themedicon.h"

#include "ui/themediconengine.h"

QIcon themedIcon(const QString& path)
{
    return QIcon(new ThemedIconEngine(path));
}
