#pragma once
#include "editors/animation/animationtoolbar.h"
#include "model/mapobjecttype.h"

class MapObjectTypeCombo;

// The name, game type, size in tiles and delay of the block being edited.
class BlockEditorToolBar : public AnimationEditor::AnimationToolBar
{
    Q_OBJECT
public:
    explicit BlockEditorToolBar(QWidget* parent = nullptr);

    MapObjectTypeCombo* typeCombo() const { return mType; }

signals:
    void blockTypeChanged(MapObjectType type);

protected:
    void load() override;

private:
    MapObjectTypeCombo* mType;
};
