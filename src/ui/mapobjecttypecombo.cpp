#include "ui/mapobjecttypecombo.h"

MapObjectTypeCombo::MapObjectTypeCombo(QWidget* parent)
    : QComboBox(parent)
{
    for (MapObjectType type : mapObjectTypes())
        addItem(mapObjectTypeText(type), int(type));
    connect(this, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] { emit typeChanged(type()); });
}

MapObjectType MapObjectTypeCombo::type() const
{
    return MapObjectType(currentData().toInt());
}

void MapObjectTypeCombo::setType(MapObjectType type)
{
    setCurrentIndex(findData(int(type)));
}
