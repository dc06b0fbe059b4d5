#pragma once
#include "ui/dockwidget.h"

#include <QColor>
#include <QPointer>

class ColourEditor;
class Palette;
class PaletteGrid;
class QToolButton;

// The Palette Editor dock: all 256 entries of one palette, a colour editor
// for the selected range, and darken, lighten and gradient over it.
class PaletteWindow : public DockWidget
{
    Q_OBJECT
public:
    explicit PaletteWindow(QWidget* parent = nullptr);

    QPointer<Palette> palette() const { return mPalette; }
    // The widget's own palette stays reachable beside the colour table's.
    using QWidget::setPalette;
    PaletteGrid* grid() const { return mGrid; }
    ColourEditor* colourEditor() const { return mEditor; }
    QToolButton* darkenButton() const { return mDarken; }
    QToolButton* lightenButton() const { return mLighten; }
    QToolButton* gradientButton() const { return mGradient; }

public slots:
    void setPalette(QPointer<Palette> palette);
    void colourChanged(const QColor& color, bool priority);
    void selectionChanged(int first, int last);
    void createGradient();

signals:
    // A confirmed edit reached the palette.
    void paletteChanged();

private:
    QPointer<Palette> mPalette;
    PaletteGrid* mGrid;
    ColourEditor* mEditor;
    QToolButton* mDarken;
    QToolButton* mLighten;
    QToolButton* mGradient;
    int mFirst = 0;
    int mLast = 0;
};
