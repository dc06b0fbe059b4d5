#pragma once
#include <QObject>
#include <QPointer>

class Canvas;
class EditMenu;
class QWidget;
namespace MapEditor {
class MapGrid;
}

// Sends Edit → Cut, Copy, Paste, Select All and Clear Selection to the
// pixel canvas or the map that last had the keyboard focus.
class EditRouter : public QObject
{
    Q_OBJECT
public:
    explicit EditRouter(EditMenu* menu, QObject* parent = nullptr);

    QPointer<Canvas> canvas() const { return mCanvas; }
    QPointer<MapEditor::MapGrid> mapGrid() const { return mGrid; }

private:
    void focusChanged(QWidget* now);
    void cut();
    void copy();
    void paste();
    void selectAll();
    void selectNone();

    // The last one of the two to have had the focus; the other is null.
    QPointer<Canvas> mCanvas;
    QPointer<MapEditor::MapGrid> mGrid;
};
