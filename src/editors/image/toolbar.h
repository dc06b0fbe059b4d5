#pragma once
#include "model/tintorel.h"

#include <QToolBar>

class QAction;
class QLabel;

namespace ImageEditor {

// The strip above the picture: the switch of the grid lines over the
// pixels, and which screen the picture is for.
class ToolBar : public QToolBar
{
    Q_OBJECT
public:
    explicit ToolBar(QWidget* parent = nullptr);

    QAction* gridLinesAction() const { return mGridLines; }
    QString modeText() const;
    void setMode(Tintorel::ImageMode mode);

signals:
    void gridLinesToggled(bool visible);

private:
    QAction* mGridLines = nullptr;
    QLabel* mMode = nullptr;
};

} // namespace ImageEditor
