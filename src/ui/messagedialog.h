#pragma once
#include <QDialog>

class QLabel;

// Tells the user something that needs no answer: a caption, a heading and
// a message, dismissed with OK.
class MessageDialog : public QDialog
{
    Q_OBJECT
public:
    explicit MessageDialog(QWidget* parent = nullptr);

    // The heading as shown, a level-two heading in rich text.
    QString heading() const;
    QString message() const;

public slots:
    // Fills the dialog and opens it without blocking.
    void showMessage(const QString& caption, const QString& heading, const QString& message);

private:
    QLabel* mHeading = nullptr;
    QLabel* mMessage = nullptr;
};
