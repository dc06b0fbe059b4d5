#pragma once
#include <QObject>

class QWidget;

namespace ImageEditor {

class View;

// Makes the widgets of an image view, lays them out and wires them; made
// for the one job and then dropped.
class ViewBuilder : public QObject
{
    Q_OBJECT
public:
    explicit ViewBuilder(View* view);

    void build();
    // Puts a colour selector of `mode` (ColourPalette::Mode) in the place
    // of the present one.
    void setColourSelector(int mode);

private:
    QWidget* buildTop();
    QWidget* buildCanvas();
    void buildDialogs();
    void connectCanvas();
    void connectColours();

    View* mView;
};

} // namespace ImageEditor
