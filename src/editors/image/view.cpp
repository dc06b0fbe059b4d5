#include "editors/image/view.h"

#include "canvas/canvas.h"
#include "editors/image/screenpicture.h"
#include "editors/image/toolbar.h"
#include "editors/image/viewbuilder.h"
#include "editors/palette/colourpalette.h"
#include "editors/palette/colourselector.h"
#include "model/image.h"
#include "model/palette.h"
#include "model/picturefile.h"
#include "project/project.h"
#include "ui/toolpalette.h"

#include <QFileDialog>
#include <QKeyEvent>
#include <QScrollBar>
#include <QUndoStack>
#include <algorithm>

using Tintorel::ImageMode;
using Tintorel::Ui::ToolButton;

namespace ImageEditor {

namespace {

// The 16-colour screen holds four bits a pixel: anything above (a paste
// from a 256-colour picture) keeps its low four bits, as a tile does.
bool keepFourBits(QImage& picture)
{
    bool wide = false;
    for (int y = 0; y < picture.height() && !wide; ++y) {
        const uchar* row = picture.constScanLine(y);
        wide = std::any_of(row, row + picture.width(), [](uchar index) { return index > 0x0F; });
    }
    if (!wide)
        return false;
    for (int y = 0; y < picture.height(); ++y) {
        uchar* row = picture.scanLine(y);
        for (int x = 0; x < picture.width(); ++x)
            row[x] &= 0x0F;
    }
    return true;
}

} // namespace

View::View(QWidget* parent)
    : QWidget(parent)
    , mScratch(new Image(ImageMode::Layer2_256x192, this))
    , mStandard(new Palette(this))
{
    mStandard->loadStandard();
    ViewBuilder(this).build();
    present(QImage());
}

View::~View() = default;

Canvas* View::canvas() const { return mCanvas; }
ToolPalette* View::tools() const { return mTools; }
ColourSelector* View::colourSelector() const { return mColours; }
ToolBar* View::toolBar() const { return mToolBar; }
QScrollBar* View::verticalScrollBar() const { return mVertical; }
QScrollBar* View::horizontalScrollBar() const { return mHorizontal; }
QFileDialog* View::openDialog() const { return mOpenDialog; }
QFileDialog* View::exportDialog() const { return mExportDialog; }

QPointer<Palette> View::shownPalette() const
{
    return mImage && mImage->palette() ? mImage->palette() : QPointer<Palette>(mStandard);
}

void View::setImage(QPointer<Image> image)
{
    mProject = nullptr;
    mImage = image;
    present(mImage ? mImage->image() : QImage());
}

void View::setScratch(QPointer<Project> project, QPointer<Palette> palette)
{
    mProject = project;
    mImage = mProject ? QPointer<Image>(mScratch) : nullptr;
    mScratch->setPalette(palette);
    QImage picture = mProject ? mProject->scratchImage() : QImage();
    // Only a hand-made file holds a scratch picture of colours, not indices.
    if (!picture.isNull() && picture.format() != QImage::Format_Indexed8)
        picture = picture.convertToFormat(QImage::Format_Indexed8, shownPalette()->rgbTable(), Qt::ThresholdDither);
    mScratch->setImage(picture);
    present(mImage ? mImage->image() : QImage());
}

void View::setUndoStack(QUndoStack* stack)
{
    mStack = stack;
}

void View::present(const QImage& picture)
{
    setEnabled(mImage);
    const ImageMode mode = mImage ? mImage->mode() : ImageMode::Layer2_256x192;
    const bool sixteen = Image::colourCount(mode) == 16;
    const int selectorMode = sixteen ? ColourPalette::Bank16 : ColourPalette::Full256;
    if (mColours->picker()->mode() != selectorMode) {
        ViewBuilder(this).setColourSelector(selectorMode);
        mCanvas->setInk(mColours->foreIndex());
        mCanvas->setPaper(mColours->backIndex());
    }
    mCanvas->setImageType(int(sixteen ? Tintorel::Ui::ImageType::Offset16 : Tintorel::Ui::ImageType::Full256));
    // The wide screen's pixels are half as wide as they are tall.
    mCanvas->setDoubleHeight(mode == ImageMode::Layer2_640x256);
    mFitPending = true;
    mToolBar->setMode(mode);
    mColours->setPalette(shownPalette());
    QImage shown = picture;
    if (shown.isNull()) {
        shown = QImage(Image::sizeOf(mode), QImage::Format_Indexed8);
        shown.fill(0);
    }
    mShowing = true;
    showPicture(shown);
    mShowing = false;
    mCanvas->setPalette(shownPalette());
    fitOnce();
}

void View::fitOnce()
{
    // A canvas not yet laid out has no room to fit anything in.
    if (!mFitPending || !mCanvas->isVisible() || mCanvas->width() < 16 || mCanvas->height() < 16)
        return;
    mFitPending = false;
    const QSize picture = mCanvas->image().size();
    const int rows = picture.height() * (mCanvas->doubleHeight() ? 2 : 1);
    mCanvas->setZoomLevel(qMax(1, qMin(mCanvas->width() / picture.width(), mCanvas->height() / rows)));
    mCanvas->update();
}

void View::showPicture(QImage picture)
{
    if (!picture.isNull())
        picture.setColorTable(shownPalette()->rgbTable());
    mCanvas->setImage(picture);
}

void View::canvasChanged()
{
    if (mShowing || !mImage)
        return;
    QImage picture = mCanvas->image();
    // Set back into the canvas before the edit is reported, so the step
    // records what the screen holds.
    if (Image::colourCount(mImage->mode()) == 16 && keepFourBits(picture)) {
        mCanvas->layer().setImage(picture);
        mCanvas->update();
    }
    mImage->setImage(picture);
    if (mProject)
        mProject->setScratchImage(mImage->image());
    emit imageChanged(picture);
}

void View::pushEdit(const QString& text, const QImage& before, const QImage& after, int canvasKind)
{
    if (!mStack || !mImage)
        return;
    const QPointer<View> view = this;
    const QPointer<Image> image = mImage;
    const QPointer<Project> project = mProject;
    auto apply = [view, image, project](const QImage& picture) {
        if (view && view->mImage == image && view->mProject == project)
            view->showPicture(picture); // the canvas writes it back, as after any edit
        else if (project)
            project->setScratchImage(picture);
        else if (image)
            image->setImage(picture);
    };
    // A scratch step lives as long as its project; an image step as its image.
    QObject* target = mProject ? static_cast<QObject*>(mProject.data()) : mImage.data();
    // Only a run of pixel moves of one picture merges into one step.
    const QVariant key = canvasKind == Moved ? QVariant(mProject ? QStringLiteral("scratch") : mImage->id().toString())
                                             : QVariant();
    mStack->push(new PixelEditCommand(text, target, mProject ? PixelEditCommand::Scratch : PixelEditCommand::Image,
                                      before, after, apply, key));
    // Edit → Undo works on the picture just painted.
    mStack->setActive();
}

void View::updateScrollAmounts(int horizontal, int vertical)
{
    // The canvas counts each row of a double-height picture once; the bar
    // has to reach the last rows that the wheel and the arrows reach.
    if (mCanvas->doubleHeight())
        vertical = mCanvas->image().height() - mCanvas->imageArea().height() / mCanvas->zoomY();
    mVertical->setRange(0, vertical);
    mHorizontal->setRange(0, horizontal);
}

void View::updateScrollBars(QPoint pos)
{
    mVertical->setValue(pos.y());
    mHorizontal->setValue(pos.x());
}

void View::changeMode(ToolButton action, bool checked)
{
    if (!mImage)
        return;
    switch (action) {
    case ToolButton::Open: mOpenDialog->open(); break;
    case ToolButton::Save: mExportDialog->open(); break;
    default: mCanvas->setMode(action, checked); break;
    }
}

bool View::exportImage(const QString& name)
{
    return mImage && mCanvas->image().save(name);
}

bool View::openImage(const QString& name, QString* problem)
{
    if (!mImage)
        return false;
    const QImage loaded = PictureFile::read(name, problem);
    if (loaded.isNull())
        return false;
    // Without a palette of the project the scratch picture is shown in
    // colours that nothing saves: the import gives it one, as a load would.
    if (mProject && !mScratch->palette()) {
        const QPointer<Palette> made = mProject->createPalette(CreateAction::Standard, tr("Scratch"));
        mProject->setScratchPalette(made->id());
        setScratch(mProject, made);
    }
    const ScreenPicture picture
        = screenPicture(loaded, mCanvas->image().size(), Image::colourCount(mImage->mode()));
    // The pixels are one step of this picture; the colours go into its
    // palette, whose own history records them.
    mCanvas->doEdit(tr("Import Image"), Painted, [&picture](Layer2Image& layer) {
        QImage indexed = picture.indexed;
        indexed.setColorTable(layer.image().colorTable());
        layer.setImage(indexed);
    });
    shownPalette()->setColours(picture.colours);
    return true;
}

void View::setForeIndex(int index)
{
    mTools->update();
    mColours->setForeIndex(index);
}

void View::setBackIndex(int index)
{
    mTools->update();
    mColours->setBackIndex(index);
}

// A view made out of sight (the scratch one, say) fits its picture when
// first shown, its canvas laid out by then.
void View::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    fitOnce();
}

bool View::event(QEvent* event)
{
    // The arrows scroll before any shortcut sees them.
    if (event->type() == QEvent::ShortcutOverride && mCanvas)
        mCanvas->handleKey(static_cast<QKeyEvent*>(event));
    return QWidget::event(event);
}

} // namespace ImageEditor
