#pragma once
#include "ui/updatefeed.h"

#include <QDialog>

class QLabel;
class QPushButton;

// Tells of a newer release, with its notes and download page a click
// away, or the choice to hear no more of it.
class UpdateDialog : public QDialog
{
    Q_OBJECT
public:
    explicit UpdateDialog(QWidget* parent = nullptr);

    Update::Release release() const { return mRelease; }
    // Fills the dialog with the release and opens it without blocking.
    void showRelease(const Update::Release& release);

signals:
    void skipVersion(QString version);

private:
    QLabel* mHeading;
    QLabel* mDetail;
    QPushButton* mNotes;
    QPushButton* mDownload;
    Update::Release mRelease;
};
