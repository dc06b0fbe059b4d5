#include "editors/image/toolbar.h"

#include "model/image.h"
#include "ui/themedicon.h"

#include <QAction>
#include <QLabel>

namespace ImageEditor {

ToolBar::ToolBar(QWidget* parent)
    : QToolBar(tr("Image"), parent)
    , mMode(new QLabel(this))
{
    setObjectName(QStringLiteral("ImageToolBar"));
    setIconSize(QSize(24, 24));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    mGridLines = addAction(themedIcon(QStringLiteral(":/Grid")), tr("Grid Lines"));
    mGridLines->setCheckable(true);
    mGridLines->setToolTip(tr("Show grid lines over the picture"));
    connect(mGridLines, &QAction::toggled, this, &ToolBar::gridLinesToggled);
    addSeparator();
    mMode->setObjectName(QStringLiteral("mode"));
    mMode->setContentsMargins(6, 0, 6, 0);
    addWidget(mMode);
}

QString ToolBar::modeText() const
{
    return mMode->text();
}

void ToolBar::setMode(Tintorel::ImageMode mode)
{
    const QSize size = Image::sizeOf(mode);
    QString text = tr("%1 × %2, %3 colours").arg(size.width()).arg(size.height()).arg(Image::colourCount(mode));
    if (mode == Tintorel::ImageMode::Layer2_640x256)
        text += tr(", pixels twice as tall as wide");
    mMode->setText(text);
}

} // namespace ImageEditor
