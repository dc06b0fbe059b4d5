#pragma once
#include "model/tintorelui.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

class QAction;
class QActionGroup;
class QGridLayout;

namespace MapEditor {

// The tool buttons of a map tab: the five modes, the attributes a painted
// tile gets, grid, scrolling, zoom, fit, viewport, play, palette offsets,
// resize and export.
class MapToolPalette : public QWidget
{
    Q_OBJECT
public:
    explicit MapToolPalette(QWidget* parent = nullptr);

    QAction* action(Tintorel::Ui::ToolButton button) const { return mActions.value(button); }

public slots:
    void setShowGridChecked(bool checked);
    void setMode(Tintorel::Ui::ToolButton mode);
    void toggleAction(Tintorel::Ui::ToolButton mode);
    void setActionChecked(Tintorel::Ui::ToolButton mode, bool checked);
    void setToolEnabled(Tintorel::Ui::ToolButton mode, bool enabled);

signals:
    void actionActivated(Tintorel::Ui::ToolButton action, bool checked);

private:
    QGridLayout* mLayout;
    QActionGroup* mGroup;
    QHash<Tintorel::Ui::ToolButton, QPointer<QAction>> mActions;
};

} // namespace MapEditor
