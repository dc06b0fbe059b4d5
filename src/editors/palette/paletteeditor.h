#pragma once
#include <QColor>
#include <QPointer>
#include <QWidget>

class ColourEditor;
class Palette;
class QLabel;

// The palette editor in the compact form that the pixel editors embed: the
// colour editor on the entry chosen in their colour selector.
class PaletteEditor : public QWidget
{
    Q_OBJECT
public:
    explicit PaletteEditor(QWidget* parent = nullptr);

    ColourEditor* colourEditor() const { return mEditor; }
    // The widget's own palette stays reachable beside the colour table's.
    using QWidget::setPalette;
    int first() const { return mFirst; }
    int last() const { return mLast; }

public slots:
    void colourChanged(const QColor& color, bool priority);
    void selectionChanged(int first, int last);
    void setPalette(QPointer<Palette> palette);
    void setSelectedIndex(int index);

signals:
    // A confirmed edit reached the palette.
    void paletteChanged(int first, int last, QColor colour);

private:
    void load();

    QPointer<Palette> mPalette;
    ColourEditor* mEditor;
    QLabel* mIndex;
    int mFirst = 0;
    int mLast = 0;
};
