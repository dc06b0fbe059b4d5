#include "app/menubar.h"

#include "app/viewmenu.h"

MenuBar::MenuBar(QWidget* parent)
    : QMenuBar(parent)
    , mViewMenu(new ViewMenu(this))
{
    addMenu(mViewMenu);
}
