#include "ui/resizemapdialog.h"

#include "model/map.h"
#include "ui/mapdialog.h"
#include "ui/themedicon.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QGridLayout>
#include <QSpinBox>
#include <QToolButton>

using Tintorel::Ui::Direction;

namespace {

struct Anchor
{
    Direction direction;
    int row;
    int column;
    const char* icon;
    Qt::Alignment alignment;
};

const Anchor Anchors[] = {
    {Direction::NorthWest, 0, 0, ":Arrow/NW", Qt::AlignLeft | Qt::AlignTop},
    {Direction::North, 0, 1, ":Arrow/N", Qt::AlignHCenter | Qt::AlignTop},
    {Direction::NorthEast, 0, 2, ":Arrow/NE", Qt::AlignRight | Qt::AlignTop},
    {Direction::West, 1, 0, ":Arrow/W", Qt::AlignLeft | Qt::AlignVCenter},
    {Direction::None, 1, 1, ":Arrow/Centre", Qt::AlignCenter},
    {Direction::East, 1, 2, ":Arrow/E", Qt::AlignRight | Qt::AlignVCenter},
    {Direction::SouthWest, 2, 0, ":Arrow/SW", Qt::AlignLeft | Qt::AlignBottom},
    {Direction::South, 2, 1, ":Arrow/S", Qt::AlignHCenter | Qt::AlignBottom},
    {Direction::SouthEast, 2, 2, ":Arrow/SE", Qt::AlignRight | Qt::AlignBottom},
};

QSpinBox* sideBox(const QString& name, QWidget* parent)
{
    auto* box = new QSpinBox(parent);
    box->setObjectName(name);
    box->setRange(1, Map::MaxSide);
    return box;
}

} // namespace

ResizeMapDialog::ResizeMapDialog(QWidget* parent)
    : DialogBase(tr("Resize Map"), parent)
    , mWidth(sideBox(QStringLiteral("width"), this))
    , mHeight(sideBox(QStringLiteral("height"), this))
    , mAnchors(new QButtonGroup(this))
{
    auto* grid = new QGridLayout;
    grid->setSpacing(2);
    for (const Anchor& anchor : Anchors) {
        auto* button = new QToolButton(this);
        button->setCheckable(true);
        button->setIcon(themedIcon(QString::fromLatin1(anchor.icon)));
        button->setIconSize(QSize(24, 24));
        mAnchors->addButton(button, int(anchor.direction));
        grid->addWidget(button, anchor.row, anchor.column);
    }
    form()->addRow(tr("Width"), mWidth);
    form()->addRow(tr("Height"), mHeight);
    form()->addRow(tr("Anchor"), grid);
    setMapSize(QSize(1, 1));
}

void ResizeMapDialog::setMapSize(const QSize& size)
{
    mWidth->setValue(size.width());
    mHeight->setValue(size.height());
    anchorButton(Direction::NorthWest)->setChecked(true);
}

QSize ResizeMapDialog::mapSize() const
{
    return {mWidth->value(), mHeight->value()};
}

Qt::Alignment ResizeMapDialog::alignment() const
{
    const int checked = mAnchors->checkedId();
    for (const Anchor& anchor : Anchors) {
        if (int(anchor.direction) == checked)
            return anchor.alignment;
    }
    return Qt::AlignLeft | Qt::AlignTop;
}

QAbstractButton* ResizeMapDialog::anchorButton(Direction direction) const
{
    return mAnchors->button(int(direction));
}

void ResizeMapDialog::emitAccepted()
{
    emit accepted(mapSize(), alignment());
}
