#pragma once
#include "history/edittarget.h"
#include "model/tintorel.h"
#include "model/tintorelui.h"

#include <QPointer>
#include <QWidget>

class Canvas;
class ColourSelector;
class Image;
class Palette;
class Project;
class QFileDialog;
class QScrollBar;
class QUndoStack;
class ToolPalette;

namespace ImageEditor {

class ToolBar;

// The editor tab of one full-screen picture: the canvas with its two scroll
// bars, the tools and the colours, in the picture's palette. It shows an
// image asset or the project's scratch picture; each finished edit is one
// step on the stack it is given.
class View : public QWidget, public EditTarget
{
    Q_OBJECT
public:
    explicit View(QWidget* parent = nullptr);
    ~View() override;

    // Shows an image asset; null lets go.
    void setImage(QPointer<Image> image);
    // Shows the project's scratch picture in `palette` and writes each
    // change back to the project; a null project lets go.
    void setScratch(QPointer<Project> project, QPointer<Palette> palette);
    // Takes the edits: Image steps, or Scratch steps for the scratch picture.
    void setUndoStack(QUndoStack* stack);

    // What is shown: the asset, or the view's own holder of the scratch picture.
    QPointer<Image> image() const { return mImage; }
    bool isScratch() const { return !mProject.isNull(); }
    // The palette painted with: the picture's, or the standard colours when it has none.
    QPointer<Palette> shownPalette() const;

    Canvas* canvas() const;
    ToolPalette* tools() const;
    ColourSelector* colourSelector() const;
    ToolBar* toolBar() const;
    QScrollBar* verticalScrollBar() const;
    QScrollBar* horizontalScrollBar() const;
    QFileDialog* openDialog() const;
    QFileDialog* exportDialog() const;

    void pushEdit(const QString& text, const QImage& before, const QImage& after, int canvasKind) override;

public slots:
    // Unlike ScrollCanvas, the bars stay in sight at a range of 0. The
    // vertical range of a double-height picture counts its screen rows.
    void updateScrollAmounts(int horizontal, int vertical);
    void updateScrollBars(QPoint pos);
    // Open and Save ask for a file; every other button goes to the canvas.
    void changeMode(Tintorel::Ui::ToolButton action, bool checked);
    // The format follows from the name; false when the file was not written.
    bool exportImage(const QString& name);
    // Loads a picture onto the screen as one step, and its colours into
    // the palette; false when the file does not load.
    // False with the reason in `problem` when the file is no usable picture.
    bool openImage(const QString& name, QString* problem = nullptr);
    void setForeIndex(int index);
    void setBackIndex(int index);

signals:
    void imageChanged(QImage image);

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    friend class ViewBuilder;

    // Sets the canvas up for the shown picture's mode, palette and pixels.
    void present(const QImage& picture);
    // Into the canvas in the present colours of the palette.
    void showPicture(QImage picture);
    void canvasChanged();
    // Once the canvas has its size: the largest zoom that shows it all.
    void fitOnce();

    QPointer<Canvas> mCanvas;
    QPointer<QScrollBar> mVertical;
    QPointer<QScrollBar> mHorizontal;
    QPointer<ColourSelector> mColours;
    QPointer<ToolPalette> mTools;
    QPointer<ToolBar> mToolBar;
    QPointer<QFileDialog> mOpenDialog;
    QPointer<QFileDialog> mExportDialog;
    QPointer<Image> mImage;
    // Set while the scratch picture is shown: where its changes go.
    QPointer<Project> mProject;
    QPointer<QUndoStack> mStack;
    Image* mScratch = nullptr;
    Palette* mStandard = nullptr;
    // Set while a picture is being put on the canvas, which is no change.
    bool mShowing = false;
    // Set by a new picture until the canvas first has room to fit it in.
    bool mFitPending = false;
};

} // namespace ImageEditor
