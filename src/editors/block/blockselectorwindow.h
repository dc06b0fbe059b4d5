#pragma once
#include "ui/dockwidget.h"

#include <QPointer>

class MapObjects;
class Project;
class QComboBox;
class QListWidget;
class TileAnimation;

// The Map Objects dock: the blocks of one block set, from which the map
// editor takes the block to place.
class BlockSelectorWindow : public DockWidget
{
    Q_OBJECT
public:
    explicit BlockSelectorWindow(QWidget* parent = nullptr);

    void setProject(QPointer<Project> project);
    // Shows this set; null shows none.
    void setBlocks(QPointer<MapObjects> blocks);
    QPointer<MapObjects> blocks() const { return mBlocks; }
    QPointer<TileAnimation> selectedBlock() const;
    QComboBox* setChooser() const { return mSets; }
    QListWidget* list() const { return mList; }

public slots:
    // Shows the set at this place of the chooser.
    void changeList(int index);

signals:
    void selectedItemChanged(QPointer<TileAnimation> item);

private:
    void fillSets();
    void fillList();

    QPointer<Project> mProject;
    QPointer<MapObjects> mBlocks;
    QComboBox* mSets;
    QListWidget* mList;
};
