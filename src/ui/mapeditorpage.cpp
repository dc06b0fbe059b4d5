#include "ui/mapeditorpage.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>

namespace {

const QString CheckerBoard = QStringLiteral("checkerBoard");
const QString GridColour1 = QStringLiteral("gridColour1");
const QString GridColour2 = QStringLiteral("gridColour2");
const QString OverlayGrid = QStringLiteral("overlayGrid");
const QString GridSize = QStringLiteral("gridSize");
const QString DefaultZoom = QStringLiteral("defaultZoom");

QSpinBox* spinBox(int minimum, int maximum, int step, int value)
{
    auto* box = new QSpinBox;
    box->setRange(minimum, maximum);
    box->setSingleStep(step);
    box->setValue(value);
    return box;
}

// A colour that cannot be read keeps the one in place.
QColor colourFrom(const QJsonValue& value, const QColor& present)
{
    const QColor colour = QColor::fromString(value.toString(present.name()));
    return colour.isValid() ? colour : present;
}

} // namespace

MapEditorPage::MapEditorPage(QWidget* parent)
    : PreferencesPage(QStringLiteral("mapEditor"), tr("Map Editor"), parent)
    , mChecker(new QCheckBox(tr("Render checker board beneath maps")))
    , mOverlay(new QCheckBox(tr("Enable grid line overlay")))
    , mGridSize(spinBox(8, 256, 8, 8))
    , mZoom(spinBox(1, 8, 1, 4))
    , mColourButtons { new QPushButton(tr("Grid colour")), new QPushButton(tr("Alternate colour")) }
    , mPicker(new QColorDialog(this))
{
    mChecker->setChecked(true);
    mOverlay->setChecked(true);
    auto* colours = new QHBoxLayout;
    for (int index = 0; index < 2; ++index) {
        QPushButton* button = mColourButtons[index];
        button->setIconSize(QSize(48, 16));
        // Enter means Save, wherever the focus is.
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, index] { showColourPicker(index); });
        setColour(index, mColours[index]);
        colours->addWidget(button);
    }
    colours->addStretch();
    auto* form = new QFormLayout(this);
    form->addRow(mChecker);
    form->addRow(colours);
    form->addRow(mOverlay);
    form->addRow(tr("Grid size (in pixels)"), mGridSize);
    form->addRow(tr("Default magnification"), mZoom);

    mPicker->setModal(true);
    connect(mPicker, &QColorDialog::colorSelected, this, [this](const QColor& colour) {
        if (mPickerIndex == 0)
            setFirstGridColour(colour);
        else
            setSecondGridColour(colour);
    });
}

bool MapEditorPage::checkerBoard() const
{
    return mChecker->isChecked();
}

bool MapEditorPage::overlayGrid() const
{
    return mOverlay->isChecked();
}

int MapEditorPage::gridSize() const
{
    return mGridSize->value();
}

int MapEditorPage::defaultZoom() const
{
    return mZoom->value();
}

QJsonObject MapEditorPage::toJson() const
{
    QJsonObject object;
    object.insert(CheckerBoard, checkerBoard());
    object.insert(GridColour1, gridColour1().name());
    object.insert(GridColour2, gridColour2().name());
    object.insert(OverlayGrid, overlayGrid());
    object.insert(GridSize, gridSize());
    object.insert(DefaultZoom, defaultZoom());
    return object;
}

void MapEditorPage::fromJson(const QJsonObject& object)
{
    mChecker->setChecked(object.value(CheckerBoard).toBool(true));
    setFirstGridColour(colourFrom(object.value(GridColour1), gridColour1()));
    setSecondGridColour(colourFrom(object.value(GridColour2), gridColour2()));
    mOverlay->setChecked(object.value(OverlayGrid).toBool(true));
    // Through the spin boxes, which clamp to their ranges; the step is for
    // the arrows only, so a size of 12 stays 12.
    mGridSize->setValue(object.value(GridSize).toInt(mGridSize->value()));
    mZoom->setValue(object.value(DefaultZoom).toInt(mZoom->value()));
}

void MapEditorPage::setFirstGridColour(QColor colour)
{
    setColour(0, colour);
}

void MapEditorPage::setSecondGridColour(QColor colour)
{
    setColour(1, colour);
}

void MapEditorPage::showColourPicker(int index)
{
    mPickerIndex = index == 0 ? 0 : 1;
    mPicker->setCurrentColor(mColours[mPickerIndex]);
    mPicker->show();
}

void MapEditorPage::setColour(int index, const QColor& colour)
{
    mColours[index] = colour;
    QPixmap swatch(48, 16);
    swatch.fill(colour);
    QPainter painter(&swatch);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(swatch.rect().adjusted(0, 0, -1, -1));
    painter.end();
    mColourButtons[index]->setIcon(QIcon(swatch));
}
