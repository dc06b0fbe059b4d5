#include "editors/block/blockeditortoolbar.h"

#include "model/tileanimation.h"
#include "ui/mapobjecttypecombo.h"

#include <QHBoxLayout>
#include <QSignalBlocker>

BlockEditorToolBar::BlockEditorToolBar(QWidget* parent)
    : AnimationEditor::AnimationToolBar(parent)
    , mType(new MapObjectTypeCombo(this))
{
    row()->insertWidget(1, mType);
    connect(mType, &MapObjectTypeCombo::typeChanged, this, [this](MapObjectType type) {
        emit blockTypeChanged(type);
        if (auto* block = qobject_cast<TileAnimation*>(animation().data()))
            block->setMapObjectType(type);
    });
}

void BlockEditorToolBar::load()
{
    AnimationEditor::AnimationToolBar::load();
    const QSignalBlocker blocker(mType);
    const auto* block = qobject_cast<const TileAnimation*>(animation().data());
    mType->setType(block ? block->mapObjectType() : MapObjectType::Normal);
}
