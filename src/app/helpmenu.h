#pragma once
#include <QMenu>

class About;

// "Help": the update check and the about box.
class HelpMenu : public QMenu
{
    Q_OBJECT
public:
    explicit HelpMenu(QWidget* parent = nullptr);

    About* about() const { return mAbout; }

public slots:
    void displayAbout();

signals:
    void checkForUpdates();

private:
    About* mAbout;
};
