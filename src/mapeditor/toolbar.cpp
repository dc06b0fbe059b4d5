#include "mapeditor/toolbar.h"

#include "ui/themedicon.h"

#include <QAction>
#include <QLabel>
#include <QSpinBox>

namespace MapEditor {

namespace {

QSpinBox* spinBox(int minimum, int maximum, int value, const QString& tip, const QString& special = {})
{
    auto* box = new QSpinBox;
    box->setRange(minimum, maximum);
    box->setValue(value);
    box->setToolTip(tip);
    box->setSpecialValueText(special);
    box->setKeyboardTracking(false);
    return box;
}

QAction* layer(QToolBar* bar, const QString& text, const QString& icon, const QString& tip)
{
    QAction* action = bar->addAction(themedIcon(icon), text);
    action->setCheckable(true);
    action->setChecked(true);
    action->setToolTip(tip);
    return action;
}

} // namespace

ToolBar::ToolBar(QWidget* parent)
    : QToolBar(tr("Map"), parent)
    , mViewportWidth(spinBox(1, 1000, 40, tr("Size in cells of the viewport")))
    , mViewportHeight(spinBox(1, 1000, 32, tr("Size in cells of the viewport")))
    , mBackground(spinBox(-1, 1024, -1, tr("Tile index to be used as a background"), tr("None")))
    , mTransparency(spinBox(-1, 15, -1, tr("Sets the transparency index of the tile set (0-15) or off"), tr("Off")))
    , mSnap(spinBox(1, 16, 1, tr("Sets the snap to grid size"), tr("Off")))
    , mStatus(new QLabel)
{
    setObjectName(QStringLiteral("MapToolBar"));
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    mTiles = layer(this, tr("Tiles"), QStringLiteral(":/LayerTiles"), tr("Show or hide the tile layer"));
    mObjects = layer(this, tr("Objects"), QStringLiteral(":/LayerObjects"), tr("Show or hide the object layer"));
    mSprites = layer(this, tr("Sprites"), QStringLiteral(":/LayerSprites"), tr("Show or hide the sprite layer"));
    addSeparator();
    addWidget(new QLabel(tr("Viewport")));
    addWidget(mViewportWidth);
    addWidget(new QLabel(tr("×")));
    addWidget(mViewportHeight);
    addSeparator();
    addWidget(new QLabel(tr("Background")));
    addWidget(mBackground);
    addWidget(new QLabel(tr("Transparency")));
    addWidget(mTransparency);
    addSeparator();
    addWidget(new QLabel(tr("Snap")));
    addWidget(mSnap);
    addSeparator();
    mStatus->setToolTip(tr("Map size in tiles and bytes"));
    addWidget(mStatus);

    connect(mTiles, &QAction::toggled, this, &ToolBar::mapVisibilityChanged);
    connect(mObjects, &QAction::toggled, this, &ToolBar::objectVisibilityChanged);
    connect(mSprites, &QAction::toggled, this, &ToolBar::spriteVisibilityChanged);
    const auto viewport = [this] { emit viewPortChanged(QSize(mViewportWidth->value(), mViewportHeight->value())); };
    connect(mViewportWidth, qOverload<int>(&QSpinBox::valueChanged), this, viewport);
    connect(mViewportHeight, qOverload<int>(&QSpinBox::valueChanged), this, viewport);
    connect(mBackground, qOverload<int>(&QSpinBox::valueChanged), this, &ToolBar::backgroundTileIndexChanged);
    connect(mTransparency, qOverload<int>(&QSpinBox::valueChanged), this, &ToolBar::transparencyIndexChanged);
    connect(mSnap, qOverload<int>(&QSpinBox::valueChanged), this, &ToolBar::snapToValueChanged);
}

void ToolBar::setMapSize(const QSize& size, int bytes)
{
    mStatus->setText(tr("%1x%2 (%3 bytes)").arg(size.width()).arg(size.height()).arg(bytes));
}

} // namespace MapEditor
