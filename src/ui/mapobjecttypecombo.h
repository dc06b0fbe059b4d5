#pragma once
#include "model/mapobjecttype.h"

#include <QComboBox>

// Chooses what a block means to the game: "Normal" or "Horizontal Platform".
class MapObjectTypeCombo : public QComboBox
{
    Q_OBJECT
public:
    explicit MapObjectTypeCombo(QWidget* parent = nullptr);

    MapObjectType type() const;
    void setType(MapObjectType type);

signals:
    void typeChanged(MapObjectType type);
};
