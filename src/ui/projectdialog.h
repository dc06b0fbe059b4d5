#pragma once
#include "ui/dialogbase.h"

class QLineEdit;

// Asks for the name of a new project; OK waits for a name that is not blank.
class ProjectDialog : public DialogBase
{
    Q_OBJECT
public:
    explicit ProjectDialog(QWidget* parent = nullptr);

    // Empties the name, ready for the next showing.
    void reset();

signals:
    void accepted(QString name);

protected:
    void emitAccepted() override;

private:
    QLineEdit* mName = nullptr;
};
