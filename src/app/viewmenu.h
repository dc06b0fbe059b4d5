#pragma once
#include <QMenu>

// "View": the scratch editor and status bar switches, the layout reset and
// the "Window" submenu of dock toggles.
class ViewMenu : public QMenu
{
    Q_OBJECT
public:
    enum CheckableItem { ScratchImageEditor, StatusBar };

    explicit ViewMenu(QWidget* parent = nullptr);

    QMenu* windowMenu() const { return mWindowMenu; }
    QAction* action(CheckableItem item) const;
    QAction* resetLayoutAction() const { return mResetLayout; }

public slots:
    void setScratchEnabled(bool enabled);
    void setChecked(ViewMenu::CheckableItem item, bool checked);

signals:
    void toggleScratch(bool visible);
    void toggleStatusBar(bool visible);
    void resetLayout();

private:
    QAction* mScratch = nullptr;
    QAction* mStatusBar = nullptr;
    QAction* mResetLayout = nullptr;
    QMenu* mWindowMenu = nullptr;
};
