#pragma once
#include <QPointer>
#include <QWidget>

class Palette;

// Picks the ink (left button) and paper (right button) indices of a pixel
// editor: one bank of sixteen entries, or all 256. A double click asks for
// the entry to be edited.
class ColourPalette : public QWidget
{
    Q_OBJECT
public:
    enum Mode { Full256 = 0, Bank16 = 1 };

    explicit ColourPalette(Mode mode, QWidget* parent = nullptr);

    Mode mode() const { return mMode; }
    // A 4-bit and an 8-bit sprite bank share one picker.
    void setMode(Mode mode);
    // The widget's own palette stays reachable beside the colour table's.
    using QWidget::setPalette;
    int primaryIndex() const { return mPrimary; }
    int secondaryIndex() const { return mSecondary; }
    QPointer<Palette> sourcePalette() const { return mPalette; }
    // The entry under a widget point; -1 outside the cells.
    int indexAt(const QPoint& pos) const;
    QRect cellRect(int index) const;
    QSize sizeHint() const override;

public slots:
    void setPalette(QPointer<Palette> palette);
    void setPrimaryColour(int index);
    void setSecondaryColour(int index);
    // 1-based, as the editors' offset boxes count; the bank is offset - 1.
    void setOffset(int offset);
    void paletteEntryChanged(int index, const QColor& colour, bool priority);
    // Writes the colour into the palette at the ink's entry.
    void updateColour(const QColor& colour, bool priority);

signals:
    void primaryIndexChanged(int index);
    void secondaryIndexChanged(int index);
    void doubleClicked(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    int columns() const { return mMode == Bank16 ? 8 : 16; }
    int cellCount() const { return mMode == Bank16 ? 16 : 256; }
    int cellSize() const { return mMode == Bank16 ? 20 : 12; }
    int firstIndex() const { return mMode == Bank16 ? mBank << 4 : 0; }

    Mode mMode;
    QPointer<Palette> mPalette;
    int mBank = 0;
    int mPrimary = 1;
    int mSecondary = 0;
};
