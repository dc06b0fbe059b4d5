#pragma once
#include <QMenuBar>

class ViewMenu;

// The window's menu bar: one menu per family of commands.
class MenuBar : public QMenuBar
{
    Q_OBJECT
public:
    explicit MenuBar(QWidget* parent = nullptr);

    ViewMenu* viewMenu() const { return mViewMenu; }

private:
    ViewMenu* mViewMenu = nullptr;
};
