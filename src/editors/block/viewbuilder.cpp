#include "editors/block/viewbuilder.h"

#include "editors/animation/animationlistwidget.h"
#include "editors/block/animationeditorwidget.h"
#include "editors/block/view.h"
#include "model/mapobjects.h"
#include "model/tileanimation.h"

#include <QMessageBox>

namespace BlockEditor {

ViewBuilder::ViewBuilder(View* view)
    : mView(view)
{
}

void ViewBuilder::build()
{
    View* view = mView;
    view->mList = new AnimationEditor::AnimationListWidget(AnimationEditor::AnimationListWidget::Details);
    view->mEditor = new AnimationEditorWidget;
    view->addWidget(view->mList);
    view->addWidget(view->mEditor);
    view->setStretchFactor(1, 1);
    view->setSizes({ 220, 600 });

    connect(view->mList, &AnimationEditor::AnimationListWidget::addRequested, view, &View::addNewAnimation);
    connect(view->mList, &AnimationEditor::AnimationListWidget::removeRequested, view, &View::deleteAnimation);
    connect(view->mList, &AnimationEditor::AnimationListWidget::cloneRequested, view, &View::cloneAnimation);
    connect(view->mList, &AnimationEditor::AnimationListWidget::selectedItemChanged, view->mEditor,
            [editor = view->mEditor](Animation* animation) {
                if (editor)
                    editor->setAnimation(qobject_cast<TileAnimation*>(animation));
            });
    connect(view->mEditor, &AnimationEditorWidget::blockEdited, view, [view](TileAnimation* block) {
        if (view->recordBlock)
            view->recordBlock(block);
    });
    view->confirmDelete = [view] {
        return QMessageBox::question(view, View::tr("Delete?"), View::tr("Are you sure you want to remove this animation?"),
                                     QMessageBox::Yes | QMessageBox::No)
               == QMessageBox::Yes;
    };
    if (MapObjects* blocks = view->mBlocks) {
        view->fillList();
        connect(blocks, &MapObjects::animationsChanged, view, &View::fillList);
    }
}

} // namespace BlockEditor
