#include "model/mapobjecttype.h"

QString mapObjectTypeText(MapObjectType type)
{
    switch (type) {
    case MapObjectType::Normal: return QStringLiteral("Normal");
    case MapObjectType::HorizontalPlatform: return QStringLiteral("Horizontal Platform");
    }
    return {};
}

QList<MapObjectType> mapObjectTypes()
{
    return { MapObjectType::Normal, MapObjectType::HorizontalPlatform };
}
