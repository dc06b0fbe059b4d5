#include "editors/palette/palettewindow.h"

#include "editors/palette/coloureditor.h"
#include "editors/palette/palettegrid.h"
#include "model/palette.h"
#include "ui/themedicon.h"

#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QToolButton* button(const QString& icon, const QString& tip, QWidget* parent)
{
    auto* made = new QToolButton(parent);
    made->setIcon(themedIcon(icon));
    made->setIconSize(QSize(24, 24));
    made->setAutoRaise(true);
    made->setToolTip(tip);
    made->setEnabled(false);
    return made;
}

// Each channel from `from` to `to` in `count` equal steps, the step cut
// toward zero; an invalid colour where a value leaves 0 to 255.
QColor stepColour(const QColor& from, const QColor& to, int i, int count)
{
    const int r = from.red() + i * ((to.red() - from.red()) / count);
    const int g = from.green() + i * ((to.green() - from.green()) / count);
    const int b = from.blue() + i * ((to.blue() - from.blue()) / count);
    return QColor(r, g, b);
}

} // namespace

PaletteWindow::PaletteWindow(QWidget* parent)
    : DockWidget(QStringLiteral("paletteWindow"), tr("Palette Editor"), tr("No palette selected"), parent)
    , mGrid(new PaletteGrid)
    , mEditor(new ColourEditor)
    , mDarken(button(QStringLiteral(":/Darken"), tr("Darkens the selected colour(s)"), nullptr))
    , mLighten(button(QStringLiteral(":/Lighten"), tr("Lightens the selected colour(s)"), nullptr))
    , mGradient(button(QStringLiteral(":/Gradient"), tr("Create a gradient"), nullptr))
{
    auto* content = new QWidget;
    content->setObjectName(QStringLiteral("paletteWidget"));
    auto* tools = new QHBoxLayout;
    tools->addWidget(mDarken);
    tools->addWidget(mLighten);
    tools->addWidget(mGradient);
    tools->addStretch();
    auto* layout = new QVBoxLayout(content);
    layout->addWidget(mGrid, 0, Qt::AlignHCenter);
    layout->addLayout(tools);
    layout->addWidget(mEditor);
    layout->addStretch();
    setContent(content);

    connect(mGrid, &PaletteGrid::selectionChanged, this, &PaletteWindow::selectionChanged);
    connect(mEditor, &ColourEditor::colourChanged, this, &PaletteWindow::colourChanged);
    // Darken and lighten act on the selection at once, as their tips say.
    connect(mDarken, &QToolButton::clicked, this, [this] {
        mEditor->darken();
        mEditor->okClick();
    });
    connect(mLighten, &QToolButton::clicked, this, [this] {
        mEditor->lighten();
        mEditor->okClick();
    });
    connect(mGradient, &QToolButton::clicked, this, &PaletteWindow::createGradient);
}

void PaletteWindow::setPalette(QPointer<Palette> palette)
{
    if (mPalette)
        disconnect(mPalette, nullptr, this, nullptr);
    mPalette = palette;
    setWindowTitle(mPalette ? tr("Palette: %1").arg(mPalette->name()) : tr("Palette Editor"));
    mGrid->setPalette(mPalette);
    setActive(mPalette);
    if (!mPalette)
        return;
    connect(mPalette, &QObject::destroyed, this, [this] { setPalette(nullptr); });
    connect(mPalette, &Palette::nameChanged, this,
            [this](const QString& name) { setWindowTitle(tr("Palette: %1").arg(name)); });
    // Undo and other editors change entries too; the editor shows the truth.
    connect(mPalette, &Palette::colourChanged, this, [this](int index) {
        if (index == mFirst)
            mEditor->setColour(mPalette->colour(mFirst), mPalette->priority(mFirst));
    });
    selectionChanged(mGrid->first(), mGrid->last());
}

void PaletteWindow::selectionChanged(int first, int last)
{
    mFirst = first;
    mLast = last;
    mDarken->setEnabled(mPalette);
    mLighten->setEnabled(mPalette);
    mGradient->setEnabled(mPalette && first != last);
    if (mPalette)
        mEditor->setColour(mPalette->colour(first), mPalette->priority(first));
}

void PaletteWindow::colourChanged(const QColor& color, bool priority)
{
    if (!mPalette)
        return;
    for (int index = mFirst; index <= mLast; ++index)
        mPalette->setColour(index, color, priority);
    mGrid->update();
    emit paletteChanged();
}

void PaletteWindow::createGradient()
{
    if (!mPalette)
        return;
    const QColor start = mPalette->colour(mFirst);
    const QColor end = mPalette->colour(mLast);
    const int count = mLast - mFirst;
    if (start == end || count <= 1)
        return;
    for (int i = 1; i < count; ++i)
        mPalette->setColour(mFirst + i, stepColour(start, end, i, count), mPalette->priority(mFirst + i));
    mGrid->update();
    emit paletteChanged();
}
