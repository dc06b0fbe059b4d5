#include "mapeditor/spritepropertiespopover.h"

#include "mapeditor/spriteproperties.h"

#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

namespace MapEditor {

SpritePropertiesPopover::SpritePropertiesPopover(QWidget* parent)
    : QFrame(parent, Qt::Popup)
    , mProperties(new SpriteProperties(this))
{
    setFrameShape(QFrame::StyledPanel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mProperties);
    connect(mProperties, &SpriteProperties::spriteEdited, this, &SpritePropertiesPopover::spriteEdited);
}

void SpritePropertiesPopover::showFor(const Map::PlacedSprite& sprite, const QPoint& left, const QPoint& right)
{
    mProperties->setSprite(&sprite);
    adjustSize();
    const QScreen* screen = QGuiApplication::screenAt(right);
    const QRect room = screen ? screen->availableGeometry() : QRect(0, 0, 1 << 16, 1 << 16);
    QPoint at(right.x() + 8, right.y() - height() / 2);
    if (at.x() + width() > room.right())
        at.setX(left.x() - 8 - width());
    at.setY(qBound(room.top(), at.y(), qMax(room.top(), room.bottom() - height())));
    move(at);
    show();
}

} // namespace MapEditor
