#include "ui/generalpage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QVBoxLayout>

namespace {

const QString BackupOnSave = QStringLiteral("backupOnSave");
const QString VersionCheckEnabled = QStringLiteral("versionCheckEnabled");
const QString UpdateInterval = QStringLiteral("updateInterval");
const QString SkippedVersion = QStringLiteral("skippedVersion");
const QString LastUpdateCheck = QStringLiteral("lastUpdateCheck");

} // namespace

GeneralPage::GeneralPage(QWidget* parent)
    : PreferencesPage(QStringLiteral("general"), tr("General"), parent)
    , mBackup(new QCheckBox(tr("Create a backup when saving")))
    , mVersionCheck(new QCheckBox(tr("Check for updates on startup")))
    , mInterval(new QComboBox)
{
    mBackup->setChecked(true);
    mVersionCheck->setChecked(true);
    mInterval->addItem(tr("Daily"), QStringLiteral("daily"));
    mInterval->addItem(tr("Weekly"), QStringLiteral("weekly"));
    mInterval->addItem(tr("Monthly"), QStringLiteral("monthly"));
    mInterval->setCurrentIndex(1);

    auto* general = new QGroupBox(tr("General Settings"));
    (new QVBoxLayout(general))->addWidget(mBackup);
    auto* updates = new QGroupBox(tr("Updates"));
    auto* updateForm = new QFormLayout(updates);
    updateForm->addRow(mVersionCheck);
    updateForm->addRow(tr("Check frequency"), mInterval);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(general);
    layout->addWidget(updates);
    layout->addStretch();
}

bool GeneralPage::backupOnSave() const
{
    return mBackup->isChecked();
}

bool GeneralPage::versionCheckEnabled() const
{
    return mVersionCheck->isChecked();
}

QString GeneralPage::updateInterval() const
{
    return mInterval->currentData().toString();
}

QJsonObject GeneralPage::toJson() const
{
    QJsonObject object;
    object.insert(BackupOnSave, backupOnSave());
    object.insert(VersionCheckEnabled, versionCheckEnabled());
    object.insert(UpdateInterval, updateInterval());
    object.insert(SkippedVersion, mSkippedVersion);
    object.insert(LastUpdateCheck, mLastUpdateCheck);
    return object;
}

void GeneralPage::fromJson(const QJsonObject& object)
{
    mBackup->setChecked(object.value(BackupOnSave).toBool(true));
    mVersionCheck->setChecked(object.value(VersionCheckEnabled).toBool(true));
    // An unknown interval keeps the choice on show; the update check reads
    // such a value as weekly.
    const int interval = mInterval->findData(object.value(UpdateInterval).toString());
    if (interval >= 0)
        mInterval->setCurrentIndex(interval);
    mSkippedVersion = object.value(SkippedVersion).toString(mSkippedVersion);
    mLastUpdateCheck = object.value(LastUpdateCheck).toString(mLastUpdateCheck);
}
