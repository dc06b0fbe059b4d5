#pragma once
#include <QMenu>

// "Help": the update check and the about box.
class HelpMenu : public QMenu
{
    Q_OBJECT
public:
    explicit HelpMenu(QWidget* parent = nullptr);

public slots:
    void displayAbout();

signals:
    void checkForUpdates();
};
