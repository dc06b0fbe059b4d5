#pragma once
#include <QObject>

namespace MapEditor {

class View;

// Lays out a map tab and makes its connections; it is dropped once the
// view stands.
class ViewBuilder : public QObject
{
    Q_OBJECT
public:
    explicit ViewBuilder(View* view);
    void build();

private:
    void layout();
    void connectGrid();
    void addKeys();

    View* mView;
};

} // namespace MapEditor
