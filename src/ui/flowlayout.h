#pragma once
#include <QLayout>
#include <QList>

// Places items left to right and wraps them into a new row at the right edge,
// so a strip of tool buttons reflows as its dock is resized.
class FlowLayout : public QLayout
{
public:
    explicit FlowLayout(QWidget* parent = nullptr, int spacing = 1);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect& rect) override;

private:
    // Returns the height used; moves the items only when `apply` is set.
    int place(const QRect& rect, bool apply) const;

    QList<QLayoutItem*> mItems;
};
