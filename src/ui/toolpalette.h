#pragma once
#include "model/tintorelui.h"

#include <QHash>
#include <QKeySequence>
#include <QList>
#include <QWidget>

class FlowLayout;
class QAction;
class QActionGroup;

// The tool strip of the pixel editors: each editor picks its subset of one
// shared table of tools; the drawing tools exclude each other.
class ToolPalette : public QWidget
{
    Q_OBJECT
public:
    explicit ToolPalette(QWidget* parent = nullptr);

    // Every tool that has a row, in the table's order.
    static QList<Tintorel::Ui::ToolButton> tools();

    void addTool(Tintorel::Ui::ToolButton button);
    void addTools(const QList<Tintorel::Ui::ToolButton>& buttons);
    // Null while that tool has not been added.
    QAction* action(Tintorel::Ui::ToolButton button) const;

public slots:
    void setState(Tintorel::Ui::ToolButton mode);
    void setButtonEnabled(Tintorel::Ui::ToolButton button, bool enabled);

signals:
    void actionActivated(Tintorel::Ui::ToolButton action, bool checked);

private:
    struct Tool
    {
        QString text;
        QString icon;
        bool checkable = false;
        QKeySequence shortcut;
    };

    QActionGroup* mGroup = nullptr;
    FlowLayout* mLayout = nullptr;
    QHash<Tintorel::Ui::ToolButton, Tool> mTable;
    QHash<Tintorel::Ui::ToolButton, QAction*> mActions;
};
