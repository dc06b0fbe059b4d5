#pragma once
#include "ui/preferencespage.h"

class QCheckBox;
class QComboBox;

// The "general" preferences: backups on save and the update check, with
// the two values that the update check keeps for itself.
class GeneralPage : public PreferencesPage
{
    Q_OBJECT
public:
    explicit GeneralPage(QWidget* parent = nullptr);

    QJsonObject toJson() const override;
    void fromJson(const QJsonObject& object) override;

    QCheckBox* backupBox() const { return mBackup; }
    QCheckBox* versionCheckBox() const { return mVersionCheck; }
    QComboBox* intervalBox() const { return mInterval; }

    bool backupOnSave() const;
    bool versionCheckEnabled() const;
    // "daily", "weekly" or "monthly".
    QString updateInterval() const;
    QString skippedVersion() const { return mSkippedVersion; }
    QString lastUpdateCheck() const { return mLastUpdateCheck; }

private:
    QCheckBox* mBackup;
    QCheckBox* mVersionCheck;
    QComboBox* mInterval;
    QString mSkippedVersion;
    QString mLastUpdateCheck;
};
