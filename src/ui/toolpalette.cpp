#include "ui/toolpalette.h"

#include "ui/flowlayout.h"
#include "ui/themedicon.h"

#include <QAction>
#include <QActionGroup>
#include <QToolButton>

using Tintorel::Ui::ToolButton;

namespace {

struct Row
{
    ToolButton button;
    const char* text;
    const char* icon;
    bool checkable;
    const char* shortcut;
};

// CircleFill has no row: the canvas has no filled ellipse.
const Row kRows[] = {
    {ToolButton::Draw, "Draw", ":/Paint", true, "D"},
    {ToolButton::Line, "Line", ":/Line", true, "L"},
    {ToolButton::Rectangle, "Rectangle", ":/Rectangle", true, "R"},
    {ToolButton::RectangleFill, "Filled Rectangle", ":/RectangleFill", true, "Shift+R"},
    {ToolButton::Circle, "Circle/Oval", ":/Circle", true, "C"},
    {ToolButton::Fill, "Fill", ":/Fill", true, "F"},
    {ToolButton::Erase, "Erase", ":/Erase", true, "E"},
    {ToolButton::Pick, "Pick", ":/Picker", true, "P"},
    {ToolButton::Select, "Select", ":/Select", true, "S"},
    {ToolButton::Resize, "Resize", ":/Resize", false, "Ctrl+Shift+R"},
    {ToolButton::Grid, "Toggle Grid", ":/Grid", true, "G"},
    {ToolButton::ZoomIn, "Increase Magnification", ":/ZoomIn", false, "="},
    {ToolButton::ZoomOut, "Decrease Magnification", ":/ZoomOut", false, "-"},
    {ToolButton::MoveUp, "Move Up", ":/Arrow/N", false, "Shift+Up"},
    {ToolButton::MoveDown, "Move Down", ":/Arrow/S", false, "Shift+Down"},
    {ToolButton::MoveLeft, "Move Left", ":/Arrow/W", false, "Shift+Left"},
    {ToolButton::MoveRight, "Move Right", ":/Arrow/E", false, "Shift+Right"},
    {ToolButton::Cut, "Cut", ":/Cut", false, ""},
    {ToolButton::Copy, "Copy", ":/Copy", false, ""},
    {ToolButton::Paste, "Paste", ":/Paste", false, ""},
    {ToolButton::Crop, "Crop", ":/Crop", false, ""},
    {ToolButton::Open, "Import Image", ":/OpenIcon", false, ""},
    {ToolButton::Save, "Export Image", ":/SaveIcon", false, ""},
    {ToolButton::RotateCW, "Rotate CW", ":/RotateCW", false, ""},
    {ToolButton::RotateCCW, "Rotate CCW", ":/RotateCCW", false, ""},
    {ToolButton::Flip, "Flip", ":/Flip", false, ""},
    {ToolButton::Mirror, "Mirror", ":/Mirror", false, ""},
    {ToolButton::PaintPalette, "Palette", ":/Palette", false, ""},
};

} // namespace

ToolPalette::ToolPalette(QWidget* parent)
    : QWidget(parent)
    , mGroup(new QActionGroup(this))
    , mLayout(new FlowLayout(this, 1))
{
    mGroup->setExclusive(true);
    mLayout->setContentsMargins(0, 0, 0, 0);
    for (const Row& row : kRows) {
        mTable.insert(row.button, Tool{QString::fromLatin1(row.text), QString::fromLatin1(row.icon), row.checkable,
                                       QKeySequence(QString::fromLatin1(row.shortcut))});
    }
}

QList<ToolButton> ToolPalette::tools()
{
    QList<ToolButton> buttons;
    for (const Row& row : kRows)
        buttons.append(row.button);
    return buttons;
}

void ToolPalette::addTool(ToolButton button)
{
    const auto row = mTable.constFind(button);
    if (row == mTable.cend() || mActions.contains(button))
        return;

    auto* action = new QAction(themedIcon(row->icon), row->text, this);
    action->setCheckable(row->checkable);
    action->setShortcut(row->shortcut);
    // Several editors carry the same shortcuts; only the focused one answers.
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setToolTip(row->shortcut.isEmpty()
                           ? row->text
                           : QStringLiteral("%1 [%2]").arg(row->text, row->shortcut.toString()));
    connect(action, &QAction::triggered, this, [this, button](bool checked) { emit actionActivated(button, checked); });
    addAction(action);
    mActions.insert(button, action);

    auto* toolButton = new QToolButton(this);
    toolButton->setDefaultAction(action);
    toolButton->setIconSize(QSize(32, 32));
    toolButton->setFixedSize(36, 36);
    toolButton->setAutoRaise(true);
    mLayout->addWidget(toolButton);

    if (button < ToolButton::_end_toggles)
        mGroup->addAction(action);
}

void ToolPalette::addTools(const QList<ToolButton>& buttons)
{
    for (ToolButton button : buttons)
        addTool(button);
    // A new palette shows the grid as on.
    if (QAction* grid = action(ToolButton::Grid))
        grid->setChecked(true);
}

QAction* ToolPalette::action(ToolButton button) const
{
    return mActions.value(button, nullptr);
}

void ToolPalette::setState(ToolButton mode)
{
    if (QAction* made = action(mode))
        made->setChecked(true);
}

void ToolPalette::setButtonEnabled(ToolButton button, bool enabled)
{
    if (QAction* made = action(button))
        made->setEnabled(enabled);
}
