#pragma once
#include "model/tintorelui.h"
#include "ui/dialogbase.h"

class QAbstractButton;
class QButtonGroup;
class QSpinBox;

// Asks for a map's new size and the anchor that says which edges keep
// their cells: nine buttons, from top left to bottom right.
class ResizeMapDialog : public DialogBase
{
    Q_OBJECT
public:
    explicit ResizeMapDialog(QWidget* parent = nullptr);

    // Starts from the map's current size, anchored at the top left.
    void setMapSize(const QSize& size);

    QSize mapSize() const;
    Qt::Alignment alignment() const;
    // The anchor button of a direction; None is the centre.
    QAbstractButton* anchorButton(Tintorel::Ui::Direction direction) const;

signals:
    void accepted(QSize size, Qt::Alignment alignment);

protected:
    void emitAccepted() override;

private:
    QSpinBox* mWidth = nullptr;
    QSpinBox* mHeight = nullptr;
    QButtonGroup* mAnchors = nullptr;
};
