#pragma once
#include <QPointer>
#include <QWidget>

class Palette;

// All 256 entries of a palette in a 16 x 16 lattice. A press picks an
// entry; a drag from it picks the range between the two.
class PaletteGrid : public QWidget
{
    Q_OBJECT
public:
    static constexpr int Pitch = 16;

    explicit PaletteGrid(QWidget* parent = nullptr);
    // The widget's own palette stays reachable beside the colour table's.
    using QWidget::setPalette;

    void setPalette(QPointer<Palette> palette);
    int first() const { return qMin(mAnchor, mEnd); }
    int last() const { return qMax(mAnchor, mEnd); }
    void setSelection(int first, int last);
    QSize sizeHint() const override { return { 16 * Pitch + 1, 16 * Pitch + 1 }; }
    // The entry under a widget point, clamped onto the grid.
    static int indexAt(const QPoint& pos);

public slots:
    void updateColour(int index, const QColor& colour);

signals:
    void selectionChanged(int first, int last);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void select(int anchor, int end);

    QPointer<Palette> mPalette;
    int mAnchor = 0;
    int mEnd = 0;
};
