#include "editors/palette/colourselector.h"

#include "editors/palette/colourpalette.h"
#include "model/palette.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

QLabel* swatch(const QString& tip, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setFixedSize(24, 18);
    label->setAutoFillBackground(true);
    label->setFrameShape(QFrame::Box);
    label->setToolTip(tip);
    return label;
}

} // namespace

ColourSelector::ColourSelector(int mode, QWidget* parent)
    : QWidget(parent)
    , mPicker(new ColourPalette(ColourPalette::Mode(mode), this))
    , mFore(swatch(tr("Ink: left button"), this))
    , mBack(swatch(tr("Paper: right button"), this))
{
    auto* swatches = new QVBoxLayout;
    swatches->setSpacing(2);
    swatches->addWidget(mFore);
    swatches->addWidget(mBack);
    swatches->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(swatches);
    layout->addWidget(mPicker);
    layout->addStretch();

    connect(mPicker, &ColourPalette::primaryIndexChanged, this, [this](int index) {
        updateSwatches();
        emit foreColourChanged(index);
    });
    connect(mPicker, &ColourPalette::secondaryIndexChanged, this, [this](int index) {
        updateSwatches();
        emit backColourChanged(index);
    });
    connect(mPicker, &ColourPalette::doubleClicked, this, &ColourSelector::doubleClicked);
    updateSwatches();
}

void ColourSelector::setMode(int mode)
{
    mPicker->setMode(ColourPalette::Mode(mode));
    updateSwatches();
}

void ColourSelector::setOffset(int offset)
{
    mPicker->setOffset(offset);
    updateSwatches();
}

void ColourSelector::setPalette(QPointer<Palette> pal)
{
    if (mPicker->sourcePalette())
        disconnect(mPicker->sourcePalette(), nullptr, this, nullptr);
    mPicker->setPalette(pal);
    if (pal)
        connect(pal, &Palette::colourChanged, this, &ColourSelector::updateSwatches);
    updateSwatches();
}

void ColourSelector::setForeIndex(int index)
{
    mPicker->setPrimaryColour(index);
    updateSwatches();
}

void ColourSelector::setBackIndex(int index)
{
    mPicker->setSecondaryColour(index);
    updateSwatches();
}

void ColourSelector::paletteChanged(int, int, const QColor&)
{
    mPicker->update();
    updateSwatches();
}

int ColourSelector::foreIndex() const
{
    return mPicker->primaryIndex();
}

int ColourSelector::backIndex() const
{
    return mPicker->secondaryIndex();
}

void ColourSelector::updateSwatches()
{
    const QPointer<Palette> palette = mPicker->sourcePalette();
    for (const auto& [label, index] : { std::pair { mFore, foreIndex() }, std::pair { mBack, backIndex() } }) {
        QPalette colours = label->palette();
        colours.setColor(QPalette::Window, palette ? QColor(palette->colour(index).rgb()) : QColor(Qt::black));
        label->setPalette(colours);
        label->setText(QString());
    }
    mFore->setToolTip(tr("Ink %1: left button").arg(foreIndex()));
    mBack->setToolTip(tr("Paper %1: right button").arg(backIndex()));
}
