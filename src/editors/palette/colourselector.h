#pragma once
#include <QColor>
#include <QPointer>
#include <QWidget>

class ColourPalette;
class Palette;
class QLabel;

// The ink and paper of a pixel editor: their two swatches beside the
// colour picker, in one bank of sixteen or over all 256 entries.
class ColourSelector : public QWidget
{
    Q_OBJECT
public:
    // `mode` is ColourPalette::Mode: 0 all entries, 1 one bank.
    explicit ColourSelector(int mode, QWidget* parent = nullptr);

    ColourPalette* picker() const { return mPicker; }
    // ColourPalette::Mode: 0 all entries, 1 one bank.
    void setMode(int mode);
    // The widget's own palette stays reachable beside the colour table's.
    using QWidget::setPalette;

public slots:
    void setOffset(int offset);
    void setPalette(QPointer<Palette> pal);
    void setForeIndex(int index);
    void setBackIndex(int index);
    void paletteChanged(int first, int last, const QColor& colour);
    int foreIndex() const;
    int backIndex() const;

signals:
    void foreColourChanged(int index);
    void backColourChanged(int index);
    void doubleClicked(int index);

private:
    void updateSwatches();

    ColourPalette* mPicker;
    QLabel* mFore;
    QLabel* mBack;
};
