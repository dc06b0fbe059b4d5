#pragma once
#include <QDialog>

class QDialogButtonBox;
class QFormLayout;
class QLabel;
class QPushButton;

// The frame shared by the creating dialogs: a form, OK and Cancel, and one
// line for the message that explains why OK left the dialog open.
class DialogBase : public QDialog
{
    Q_OBJECT
public:
    explicit DialogBase(const QString& title, QWidget* parent = nullptr);

    // The validation message on show; empty when there is none.
    QString message() const;
    QPushButton* okButton() const;

public slots:
    // Closes only with OK enabled and when validate() finds nothing, after
    // emitAccepted().
    void accept() override;
    void done(int result) override;

protected:
    QFormLayout* form() const { return mForm; }
    void setMessage(const QString& message);

    // The message that keeps the dialog open, or an empty string.
    virtual QString validate() const { return {}; }
    // Emits the dialog's own result; runs only for valid input.
    virtual void emitAccepted() = 0;

private:
    QFormLayout* mForm = nullptr;
    QLabel* mMessage = nullptr;
    QDialogButtonBox* mButtons = nullptr;
};
