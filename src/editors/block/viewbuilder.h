#pragma once
#include <QObject>

namespace BlockEditor {

class View;

// Makes the widgets of a block set's view and their connections; it is
// dropped once the view stands.
class ViewBuilder : public QObject
{
    Q_OBJECT
public:
    explicit ViewBuilder(View* view);
    void build();

private:
    View* mView;
};

} // namespace BlockEditor
