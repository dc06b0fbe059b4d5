#include "ui/about.h"

#include "project/version.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

About::About(QWidget* parent)
    : QDialog(parent)
    , mStatusLabel(new QLabel)
    , mCheckButton(new QPushButton(tr("Check for Updates")))
{
    setWindowTitle(tr("About %1").arg(applicationName()));
    auto* logo = new QLabel;
    logo->setPixmap(QIcon(QStringLiteral(":/Logo")).pixmap(QSize(272, 64)));
    logo->setAlignment(Qt::AlignCenter);
    auto* title = new QLabel(QStringLiteral("<h2>%1 v%2 - Qt %3</h2>").arg(applicationName(), version(), qVersion()));
    title->setAlignment(Qt::AlignCenter);
    auto* description = new QLabel(tr("An editor of graphics assets for the ZX Spectrum Next: palettes, tiles, "
                                      "sprites, maps and images, in the machine's own formats."));
    description->setWordWrap(true);
    description->setAlignment(Qt::AlignCenter);
    mStatusLabel->setObjectName(QStringLiteral("updateStatus"));
    mCheckButton->setObjectName(QStringLiteral("checkForUpdates"));
    connect(mCheckButton, &QPushButton::clicked, this, &About::startCheck);
    auto* ok = new QDialogButtonBox;
    ok->addButton(tr("Ok"), QDialogButtonBox::AcceptRole);
    connect(ok, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* updates = new QHBoxLayout;
    updates->addWidget(mStatusLabel, 1);
    updates->addWidget(mCheckButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(logo);
    layout->addWidget(title);
    layout->addWidget(description);
    layout->addLayout(updates);
    layout->addWidget(ok);
    setUpdateStatus(Checking);
}

void About::setUpdateStatus(UpdateStatus status, const QString& version)
{
    mStatus = status;
    switch (status) {
    case Checking: mStatusLabel->setText(tr("Checking for updates…")); break;
    case UpToDate: mStatusLabel->setText(tr("You’re up to date")); break;
    case UpdateAvailable: mStatusLabel->setText(tr("Update available: %1").arg(version)); break;
    case CheckFailed: mStatusLabel->setText(tr("Could not reach the update server")); break;
    case NotConfigured: mStatusLabel->setText(tr("No update server is configured")); break;
    }
    mCheckButton->setEnabled(status != NotConfigured);
}

void About::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        startCheck();
}

void About::startCheck()
{
    setUpdateStatus(Checking);
    emit checkForUpdates();
}
