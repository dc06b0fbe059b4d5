#include "app/editrouter.h"

#include "app/editmenu.h"
#include "canvas/canvas.h"

#include <QApplication>

EditRouter::EditRouter(EditMenu* menu, QObject* parent)
    : QObject(parent)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { focusChanged(now); });
    const auto route = [this](void (Canvas::*command)()) {
        return [this, command] {
            if (mCanvas)
                (mCanvas->*command)();
        };
    };
    connect(menu, &EditMenu::cut, this, route(&Canvas::cut));
    connect(menu, &EditMenu::copy, this, route(&Canvas::copy));
    connect(menu, &EditMenu::paste, this, route(&Canvas::paste));
    connect(menu, &EditMenu::selectAll, this, route(&Canvas::selectAll));
    connect(menu, &EditMenu::selectNone, this, route(&Canvas::selectNone));
}

// Focus moving to a widget that is no canvas (a menu, a spin box) leaves the
// last canvas the target, so that the menu acts where the user painted.
void EditRouter::focusChanged(QWidget* now)
{
    for (QWidget* widget = now; widget; widget = widget->parentWidget())
        if (auto* canvas = qobject_cast<Canvas*>(widget)) {
            mCanvas = canvas;
            return;
        }
}
