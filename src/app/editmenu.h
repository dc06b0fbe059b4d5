#pragma once
#include <QMenu>

class QUndoGroup;

// "Edit": undo and redo of the active document, and the clipboard commands
// that the active editor carries out.
class EditMenu : public QMenu
{
    Q_OBJECT
public:
    explicit EditMenu(QWidget* parent = nullptr);

    // Undo and redo follow the group's active stack by themselves.
    void setUndoGroup(QUndoGroup* group);

signals:
    void cut();
    void copy();
    void paste();
    void selectAll();
    void selectNone();

private:
    QAction* mFirstClipboardAction = nullptr;
};
