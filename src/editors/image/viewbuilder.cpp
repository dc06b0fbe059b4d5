#include "editors/image/viewbuilder.h"

#include "canvas/canvas.h"
#include "editors/image/toolbar.h"
#include "editors/image/view.h"
#include "editors/palette/colourselector.h"
#include "model/image.h"
#include "ui/toolpalette.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QMessageBox>
#include <QScrollBar>
#include <QVBoxLayout>

using Tintorel::Ui::ToolButton;

namespace ImageEditor {

namespace {

const QString PictureFilter = QStringLiteral("Images (*.png *.xpm *.jpg *.bmp)");

// Every tool of the pixel editors but two the canvas does nothing with
// (Erase, Crop), Resize, which a screen of fixed size has no use for, and
// the palette, which has its own dock.
QList<ToolButton> imageTools()
{
    QList<ToolButton> tools = ToolPalette::tools();
    for (ToolButton left : { ToolButton::Erase, ToolButton::Resize, ToolButton::Crop, ToolButton::PaintPalette })
        tools.removeAll(left);
    return tools;
}

} // namespace

ViewBuilder::ViewBuilder(View* view)
    : mView(view)
{
}

void ViewBuilder::build()
{
    mView->mToolBar = new ToolBar(mView);
    auto* layout = new QVBoxLayout(mView);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(mView->mToolBar);
    layout->addWidget(buildTop());
    layout->addWidget(buildCanvas(), 1);
    buildDialogs();
    connectCanvas();
    // The tools' keys work wherever the focus is in the view, the canvas too.
    mView->addActions(mView->mTools->actions());
}

// The colours and the tools above the canvas: screens are wider than tall,
// and the tab is often narrow between the docks.
QWidget* ViewBuilder::buildTop()
{
    auto* top = new QWidget(mView);
    top->setObjectName(QStringLiteral("imageTools"));
    mView->mTools = new ToolPalette(top);
    mView->mTools->addTools(imageTools());
    mView->mTools->setState(ToolButton::Draw);
    // The checker starts off on this canvas; the button says so.
    mView->mTools->action(ToolButton::Grid)->setChecked(false);
    mView->mColours = new ColourSelector(0, top);
    auto* layout = new QHBoxLayout(top);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(mView->mColours, 0, Qt::AlignTop);
    layout->addWidget(mView->mTools, 1, Qt::AlignTop);
    return top;
}

QWidget* ViewBuilder::buildCanvas()
{
    auto* area = new QWidget(mView);
    mView->mCanvas = new Canvas(Image::sizeOf(Tintorel::ImageMode::Layer2_256x192), area);
    mView->mCanvas->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    mView->mVertical = new QScrollBar(Qt::Vertical, area);
    mView->mHorizontal = new QScrollBar(Qt::Horizontal, area);
    auto* grid = new QGridLayout(area);
    grid->setSpacing(0);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(mView->mCanvas, 0, 0);
    grid->addWidget(mView->mVertical, 0, 1);
    grid->addWidget(mView->mHorizontal, 1, 0);
    return area;
}

void ViewBuilder::buildDialogs()
{
    auto* open = new QFileDialog(mView, tr("Import Image"), QString(), PictureFilter);
    open->setFileMode(QFileDialog::ExistingFile);
    auto* save = new QFileDialog(mView, tr("Export Image"), QString(), PictureFilter);
    save->setAcceptMode(QFileDialog::AcceptSave);
    save->setDefaultSuffix(QStringLiteral(".png"));
    mView->mOpenDialog = open;
    mView->mExportDialog = save;
    View* view = mView;
    connect(open, &QFileDialog::fileSelected, view, [view](const QString& name) {
        QString problem;
        if (!view->openImage(name, &problem))
            QMessageBox::warning(view, View::tr("Import Image"),
                                 problem.isEmpty() ? View::tr("%1 is not a picture").arg(QFileInfo(name).fileName())
                                                   : problem);
    });
    connect(save, &QFileDialog::fileSelected, view, [view](const QString& name) {
        if (!view->exportImage(name))
            QMessageBox::warning(view, View::tr("Export Image"),
                                 View::tr("%1 could not be written").arg(QFileInfo(name).fileName()));
    });
}

void ViewBuilder::connectCanvas()
{
    View* view = mView;
    Canvas* canvas = mView->mCanvas;
    connect(canvas, &Canvas::scrollValuesChanged, view, &View::updateScrollAmounts);
    connect(canvas, &Canvas::scrollPositionChanged, view, &View::updateScrollBars);
    connect(canvas, &Canvas::scrollValuesChanged, view, &View::fitOnce);
    // The canvas's position slots are crossed in name: the vertical bar
    // drives setHorizontalPosition, which moves the rows.
    connect(view->mVertical, &QScrollBar::valueChanged, canvas, &Canvas::setHorizontalPosition);
    connect(view->mHorizontal, &QScrollBar::valueChanged, canvas, &Canvas::setVerticalPosition);
    connect(view->mTools, &ToolPalette::actionActivated, view, &View::changeMode);
    connect(canvas, &Canvas::imageChanged, view, &View::canvasChanged);
    canvas->sendEditsTo(view, view);
    connect(canvas, &Canvas::foregroundPicked, view, &View::setForeIndex);
    connect(canvas, &Canvas::backgroundPicked, view, &View::setBackIndex);
    connect(view->mToolBar, &ToolBar::gridLinesToggled, view, [view, canvas](bool visible) {
        canvas->setGridLinesVisible(visible);
        view->update();
    });
    connectColours();
}

void ViewBuilder::connectColours()
{
    connect(mView->mColours, &ColourSelector::foreColourChanged, mView->mCanvas, &Canvas::setInk);
    connect(mView->mColours, &ColourSelector::backColourChanged, mView->mCanvas, &Canvas::setPaper);
}

void ViewBuilder::setColourSelector(int mode)
{
    ColourSelector* old = mView->mColours;
    auto* selector = new ColourSelector(mode, old->parentWidget());
    mView->mColours = selector;
    if (QLayout* layout = old->parentWidget()->layout())
        delete layout->replaceWidget(old, selector);
    delete old;
    connectColours();
}

} // namespace ImageEditor
