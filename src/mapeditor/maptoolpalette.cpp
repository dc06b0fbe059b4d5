#include "mapeditor/maptoolpalette.h"

#include "ui/themedicon.h"

#include <QAction>
#include <QActionGroup>
#include <QGridLayout>
#include <QToolButton>

using Tintorel::Ui::ToolButton;

namespace MapEditor {

namespace {

struct Row
{
    ToolButton button;
    const char* text;
    const char* icon;
    bool checkable;
    bool exclusive;
    const char* shortcuts; // separated by ';'
};

const Row kRows[] = {
    { ToolButton::Draw, QT_TRANSLATE_NOOP("MapToolPalette", "Draw"), ":/Draw", true, true, "D" },
    { ToolButton::Select, QT_TRANSLATE_NOOP("MapToolPalette", "Select"), ":/Select", true, true, "S" },
    { ToolButton::Pick, QT_TRANSLATE_NOOP("MapToolPalette", "Pick"), ":/Picker", true, true, "P" },
    { ToolButton::PlaceAnim, QT_TRANSLATE_NOOP("MapToolPalette", "Place animations"), ":/PlaceAnim", true, true, "" },
    { ToolButton::PlaceSprite, QT_TRANSLATE_NOOP("MapToolPalette", "Place sprites"), ":/PlaceSprite", true, true, "" },
    { ToolButton::RotateCW, QT_TRANSLATE_NOOP("MapToolPalette", "Rotated"), ":/RotateCW", true, false, "Ctrl+R" },
    { ToolButton::Flip, QT_TRANSLATE_NOOP("MapToolPalette", "Flipped"), ":/Flip", true, false, "Shift+F" },
    { ToolButton::Mirror, QT_TRANSLATE_NOOP("MapToolPalette", "Mirrored"), ":/Mirror", true, false, "Shift+M" },
    { ToolButton::Grid, QT_TRANSLATE_NOOP("MapToolPalette", "Toggle Grid"), ":/Grid", true, false, "G" },
    { ToolButton::MoveUp, QT_TRANSLATE_NOOP("MapToolPalette", "Up"), ":/Arrow/N", false, false, "Up" },
    { ToolButton::MoveDown, QT_TRANSLATE_NOOP("MapToolPalette", "Down"), ":/Arrow/S", false, false, "Down" },
    { ToolButton::MoveLeft, QT_TRANSLATE_NOOP("MapToolPalette", "Left"), ":/Arrow/W", false, false, "Left" },
    { ToolButton::MoveRight, QT_TRANSLATE_NOOP("MapToolPalette", "Right"), ":/Arrow/E", false, false, "Right" },
    { ToolButton::ZoomOut, QT_TRANSLATE_NOOP("MapToolPalette", "Zoom Out"), ":/ZoomOut", false, false, "-" },
    { ToolButton::ZoomIn, QT_TRANSLATE_NOOP("MapToolPalette", "Zoom In"), ":/ZoomIn", false, false, "=;+" },
    { ToolButton::ExpandToFit, QT_TRANSLATE_NOOP("MapToolPalette", "Fit to window"), ":/ExpandToFit", false, false,
      "" },
    { ToolButton::ToggleViewport, QT_TRANSLATE_NOOP("MapToolPalette", "Toggle viewport"), ":/ToggleViewport", true,
      false, "" },
    { ToolButton::AnimPlay, QT_TRANSLATE_NOOP("MapToolPalette", "Play Animations"), ":/AnimPlay", true, false, "" },
    { ToolButton::PaintPalette, QT_TRANSLATE_NOOP("MapToolPalette", "Reset all palette offsets"), ":/Palette", false,
      false, "" },
    // Beyond the machine's own set: the two map actions a user reaches for most.
    { ToolButton::Resize, QT_TRANSLATE_NOOP("MapToolPalette", "Resize map"), ":/Resize", false, false, "" },
    { ToolButton::Save, QT_TRANSLATE_NOOP("MapToolPalette", "Export map data"), ":/SaveIcon", false, false, "" },
};

constexpr int Columns = 2;

} // namespace

MapToolPalette::MapToolPalette(QWidget* parent)
    : QWidget(parent)
    , mLayout(new QGridLayout(this))
    , mGroup(new QActionGroup(this))
{
    mLayout->setContentsMargins(0, 0, 0, 0);
    mLayout->setSpacing(2);
    mGroup->setExclusive(true);
    int place = 0;
    for (const Row& row : kRows) {
        auto* action = new QAction(themedIcon(QString::fromLatin1(row.icon)), tr(row.text), this);
        action->setCheckable(row.checkable);
        QList<QKeySequence> keys;
        for (const QString& key : QString::fromLatin1(row.shortcuts).split(';', Qt::SkipEmptyParts))
            keys << QKeySequence(key);
        action->setShortcuts(keys);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        action->setToolTip(keys.isEmpty() ? action->text()
                                          : QStringLiteral("%1 [%2]").arg(action->text(), keys.first().toString()));
        if (row.exclusive)
            mGroup->addAction(action);
        const ToolButton button = row.button;
        connect(action, &QAction::triggered, this, [this, button](bool checked) { emit actionActivated(button, checked); });
        addAction(action);
        mActions.insert(button, action);
        auto* tool = new QToolButton(this);
        tool->setDefaultAction(action);
        tool->setFixedSize(32, 32);
        tool->setIconSize(QSize(24, 24));
        tool->setAutoRaise(true);
        mLayout->addWidget(tool, place / Columns, place % Columns);
        ++place;
    }
    mLayout->setRowStretch(place / Columns + 1, 1);
    // While the animations play, the button shows how to stop them.
    QAction* play = mActions.value(ToolButton::AnimPlay);
    connect(play, &QAction::toggled, this, [play](bool on) {
        play->setIcon(themedIcon(on ? QStringLiteral(":/AnimStop") : QStringLiteral(":/AnimPlay")));
    });
    setMode(ToolButton::Draw);
}

void MapToolPalette::setShowGridChecked(bool checked)
{
    setActionChecked(ToolButton::Grid, checked);
}

void MapToolPalette::setMode(ToolButton mode)
{
    setActionChecked(mode, true);
}

void MapToolPalette::toggleAction(ToolButton mode)
{
    if (QAction* made = mActions.value(mode))
        made->toggle();
}

void MapToolPalette::setActionChecked(ToolButton mode, bool checked)
{
    if (QAction* made = mActions.value(mode))
        made->setChecked(checked);
}

void MapToolPalette::setToolEnabled(ToolButton mode, bool enabled)
{
    if (QAction* made = mActions.value(mode))
        made->setEnabled(enabled);
}

} // namespace MapEditor
