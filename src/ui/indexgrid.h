#pragma once
#include <QWidget>

// A list of numbered cells in rows that fill the width, as the tile and
// sprite lists show them: the cell under the mouse, the selected one, a
// menu on each, and drag and drop between cells, where exactly Shift
// copies, no modifier moves and any other modifier does nothing.
class IndexGrid : public QWidget
{
    Q_OBJECT
public:
    IndexGrid(const QString& dragFormat, QWidget* parent = nullptr);

    int selectedIndex() const { return mSelectedIndex; }
    int columns() const;
    // A full last row still leaves one empty row below it.
    int rows() const;
    int preferredHeight() const;
    // The cell under a widget point, or -1.
    int indexAt(const QPoint& pos) const;
    QRect cellRect(int index) const;
    int hoverIndex() const { return mHoverIndex; }
    int dropIndex() const { return mDropIndex; }

public slots:
    void setSelectedIndex(int index);

signals:
    void selectedIndexChanged(int index);

protected:
    // How many cells can be hit; none while there is nothing to show.
    virtual int cellCount() const = 0;
    virtual bool hasContent() const = 0;
    virtual int cellSize() const = 0;
    // Cells past this are not drawn.
    virtual int drawnCount() const { return cellCount(); }
    virtual void paintCell(QPainter& painter, int index, const QRect& cell) = 0;
    // Whether a cell can be dragged, and what it carries.
    virtual bool canDrag(int index) const { return index >= 0; }
    virtual QByteArray dragPayload(int index) const = 0;
    virtual QImage dragImage(int index) const = 0;
    virtual void copyCell(int from, int to) = 0;
    virtual void moveCell(int from, int to) = 0;
    virtual QString toolTipAt(int index) const = 0;
    virtual void clicked(int index) { setSelectedIndex(index); }
    virtual void doubleClicked(int) {}
    virtual void menuRequested(int, const QPoint&) {}
    // Call after the count or the cell size changed.
    void fitHeight();
    void clearMarks();

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void startDrag(int index);

    QString mDragFormat;
    int mHoverIndex = -1;
    int mSelectedIndex = -1;
    int mDropIndex = -1;
    Qt::MouseButtons mPressButtons;
    QPoint mPressPosition;
};
