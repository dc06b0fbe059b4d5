#pragma once
#include <QDialog>

class QLabel;
class QPushButton;

// The about box: the program's name, version and Qt's, and the state of
// an update check, which every showing of the box starts.
class About : public QDialog
{
    Q_OBJECT
public:
    enum UpdateStatus { Checking, UpToDate, UpdateAvailable, CheckFailed, NotConfigured };

    explicit About(QWidget* parent = nullptr);

    UpdateStatus updateStatus() const { return mStatus; }
    // The version goes with UpdateAvailable.
    void setUpdateStatus(UpdateStatus status, const QString& version = QString());
    QLabel* statusLabel() const { return mStatusLabel; }
    QPushButton* checkButton() const { return mCheckButton; }

signals:
    void checkForUpdates();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void startCheck();

    QLabel* mStatusLabel;
    QPushButton* mCheckButton;
    UpdateStatus mStatus = Checking;
};
