#include "app/editmenu.h"

#include <QUndoGroup>

EditMenu::EditMenu(QWidget* parent)
    : QMenu(tr("Edit"), parent)
{
    addSeparator();
    mFirstClipboardAction = actions().constLast();
    const auto add = [this](const QString& text, QKeySequence::StandardKey key, void (EditMenu::*signal)()) {
        QAction* action = addAction(text);
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, signal);
    };
    add(tr("Cut"), QKeySequence::Cut, &EditMenu::cut);
    add(tr("Copy"), QKeySequence::Copy, &EditMenu::copy);
    add(tr("Paste"), QKeySequence::Paste, &EditMenu::paste);
    add(tr("Select All"), QKeySequence::SelectAll, &EditMenu::selectAll);
    add(tr("Clear Selection"), QKeySequence::Deselect, &EditMenu::selectNone);
}

void EditMenu::setUndoGroup(QUndoGroup* group)
{
    QAction* undo = group->createUndoAction(this);
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = group->createRedoAction(this);
    redo->setShortcut(QKeySequence::Redo);
    insertActions(mFirstClipboardAction, { undo, redo });
}
