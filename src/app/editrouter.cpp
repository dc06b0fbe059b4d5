#include "app/editrouter.h"

#include "app/editmenu.h"
#include "canvas/canvas.h"
#include "mapeditor/mapgrid.h"

#include <QApplication>

EditRouter::EditRouter(EditMenu* menu, QObject* parent)
    : QObject(parent)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { focusChanged(now); });
    connect(menu, &EditMenu::cut, this, &EditRouter::cut);
    connect(menu, &EditMenu::copy, this, &EditRouter::copy);
    connect(menu, &EditMenu::paste, this, &EditRouter::paste);
    connect(menu, &EditMenu::selectAll, this, &EditRouter::selectAll);
    connect(menu, &EditMenu::selectNone, this, &EditRouter::selectNone);
}

// Focus moving to a widget that is neither (a menu, a spin box) leaves the
// last one the target, so that the menu acts where the user worked.
void EditRouter::focusChanged(QWidget* now)
{
    for (QWidget* widget = now; widget; widget = widget->parentWidget()) {
        if (auto* canvas = qobject_cast<Canvas*>(widget)) {
            mCanvas = canvas;
            mGrid = nullptr;
            return;
        }
        if (auto* grid = qobject_cast<MapEditor::MapGrid*>(widget)) {
            mGrid = grid;
            mCanvas = nullptr;
            return;
        }
    }
}

void EditRouter::cut()
{
    if (mCanvas)
        mCanvas->cut();
    else if (mGrid)
        mGrid->cut();
}

void EditRouter::copy()
{
    if (mCanvas)
        mCanvas->copy();
    else if (mGrid)
        mGrid->copy();
}

void EditRouter::paste()
{
    if (mCanvas)
        mCanvas->paste();
    else if (mGrid)
        mGrid->setMode(Tintorel::Ui::Paste);
}

void EditRouter::selectAll()
{
    if (mCanvas)
        mCanvas->selectAll();
    else if (mGrid)
        mGrid->selectAll();
}

void EditRouter::selectNone()
{
    if (mCanvas) {
        mCanvas->selectNone();
    } else if (mGrid) {
        mGrid->setSelection(QRect());
        mGrid->hideRubberBand();
        mGrid->repaint();
    }
}
