#pragma once
#include <QList>
#include <QObject>

class QDockWidget;
class QMainWindow;
class ViewMenu;

// Owns the arrangement of the seven docks: the default layout, and bringing
// it back however the user has floated, moved or closed them.
class LayoutController : public QObject
{
    Q_OBJECT
public:
    // The docks in the window's order of construction.
    struct Docks
    {
        QDockWidget* project;
        QDockWidget* palette;
        QDockWidget* tile;
        QDockWidget* sprite;
        QDockWidget* tilePicker;
        QDockWidget* blockSelector;
        QDockWidget* mapSprites;

        QList<QDockWidget*> all() const;
    };

    LayoutController(QMainWindow* window, const Docks& docks, ViewMenu* viewMenu, QObject* parent = nullptr);

    const Docks& docks() const { return mDocks; }

    // The window's arrangement as saved between runs; empty bytes keep the
    // default layout.
    void restoreWindow(const QByteArray& state, const QByteArray& geometry);
    QByteArray windowState() const;
    QByteArray windowGeometry() const;

public slots:
    void resetLayout();

private:
    QMainWindow* mWindow;
    Docks mDocks;
};
