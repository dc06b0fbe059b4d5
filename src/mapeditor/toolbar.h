#pragma once
#include <QToolBar>

class QAction;
class QLabel;
class QSpinBox;

namespace MapEditor {

// The "Map" tool bar of the main window, shown while a map tab is current:
// the layers, the viewport's size, the background tile, the transparent
// colour, the snap and the map's size.
class ToolBar : public QToolBar
{
    Q_OBJECT
public:
    explicit ToolBar(QWidget* parent = nullptr);

    QAction* tilesAction() const { return mTiles; }
    QAction* objectsAction() const { return mObjects; }
    QAction* spritesAction() const { return mSprites; }
    QSpinBox* viewportWidth() const { return mViewportWidth; }
    QSpinBox* viewportHeight() const { return mViewportHeight; }
    QSpinBox* backgroundBox() const { return mBackground; }
    QSpinBox* transparencyBox() const { return mTransparency; }
    QSpinBox* snapBox() const { return mSnap; }
    QLabel* statusLabel() const { return mStatus; }
    // "%1x%2 (%3 bytes)".
    void setMapSize(const QSize& size, int bytes);

signals:
    void transparencyIndexChanged(int index);
    void snapToValueChanged(int value);
    void mapVisibilityChanged(bool visible);
    void objectVisibilityChanged(bool visible);
    void spriteVisibilityChanged(bool visible);
    void backgroundTileIndexChanged(int index);
    void viewPortChanged(QSize size);

private:
    QAction* mTiles;
    QAction* mObjects;
    QAction* mSprites;
    QSpinBox* mViewportWidth;
    QSpinBox* mViewportHeight;
    QSpinBox* mBackground;
    QSpinBox* mTransparency;
    QSpinBox* mSnap;
    QLabel* mStatus;
};

} // namespace MapEditor
