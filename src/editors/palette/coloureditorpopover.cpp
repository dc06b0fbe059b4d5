#include "editors/palette/coloureditorpopover.h"

#include "editors/palette/coloureditor.h"

#include <QVBoxLayout>

ColourEditorPopover::ColourEditorPopover(QWidget* parent)
    : QFrame(parent, Qt::Popup)
    , mEditor(new ColourEditor(this))
{
    setFrameShape(QFrame::StyledPanel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mEditor);
    connect(mEditor, &ColourEditor::colourChanged, this, &ColourEditorPopover::confirmColourChanged);
    connect(mEditor, &ColourEditor::cancelled, this, &ColourEditorPopover::cancelled);
}

void ColourEditorPopover::popup(const QPoint& globalPos, const QColor& colour, bool priority)
{
    mEditor->setColour(colour, priority);
    move(globalPos);
    show();
}

void ColourEditorPopover::confirmColourChanged(const QColor& colour, bool priority)
{
    emit colourChanged(colour, priority);
    hide();
}

void ColourEditorPopover::cancelled()
{
    hide();
}

void ColourEditorPopover::hideEvent(QHideEvent* event)
{
    QFrame::hideEvent(event);
    emit closed();
}
