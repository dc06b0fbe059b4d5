#pragma once
#include "project/createaction.h"
#include "ui/dialogbase.h"

#include <QStringList>

class QButtonGroup;
class QLineEdit;
class QRadioButton;

// Asks for a new palette: a name not yet used, and whether it starts with
// the standard colours, black, or a copy of the current palette.
class PaletteDialog : public DialogBase
{
    Q_OBJECT
public:
    explicit PaletteDialog(QWidget* parent = nullptr);

    // Empties the name; `names` are those already taken in the project.
    void setPaletteNames(const QStringList& names);
    // Copying needs a current palette; without one the choice is disabled.
    void setCopyAvailable(bool available);

signals:
    void accepted(CreateAction action, QString name);

protected:
    QString validate() const override;
    void emitAccepted() override;

private:
    QLineEdit* mName = nullptr;
    QButtonGroup* mActions = nullptr;
    QRadioButton* mStandard = nullptr;
    QRadioButton* mCopy = nullptr;
    QStringList mTakenNames;
};
