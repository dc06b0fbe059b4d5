#pragma once
#include <QObject>
#include <QPointer>

class Canvas;
class EditMenu;
class QWidget;

// Sends Edit → Cut, Copy, Paste, Select All and Clear Selection to the
// pixel canvas that last had the keyboard focus, wherever it stands.
class EditRouter : public QObject
{
    Q_OBJECT
public:
    explicit EditRouter(EditMenu* menu, QObject* parent = nullptr);

    QPointer<Canvas> canvas() const { return mCanvas; }

private:
    void focusChanged(QWidget* now);

    QPointer<Canvas> mCanvas;
};
