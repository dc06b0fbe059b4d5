#pragma once
#include "ui/updatecontroller.h"

#include <QObject>
#include <QPointer>

class About;
class HelpMenu;
class QMessageBox;
class UpdateDialog;

// Turns the update check's answers into what the user sees: the about
// box's status line always, the update dialog unless the about box asked,
// and a message box only when the Help menu asked.
class UpdateWiring : public QObject
{
    Q_OBJECT
public:
    UpdateWiring(QWidget* window, UpdateController* updates, UpdateDialog* dialog, HelpMenu* help);

private:
    void checkFromMenu();
    void checkFromAbout();
    void showBox(bool warning, const QString& text);

    QWidget* mWindow;
    UpdateController* mUpdates;
    UpdateDialog* mDialog;
    About* mAbout;
    QPointer<QMessageBox> mBox;
};
