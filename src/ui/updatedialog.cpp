#include "ui/updatedialog.h"

#include "project/version.h"

#include <QDebug>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Only an https address is handed to the browser: the feed decides what
// it holds, and a link to anything else may not be what it seems.
QUrl secureLink(const QString& address)
{
    const QUrl url(address, QUrl::StrictMode);
    if (url.isValid() && url.scheme() == QLatin1String("https") && !url.host().isEmpty())
        return url;
    qWarning() << "Ignoring an update link that is not https:" << address;
    return {};
}

QPushButton* button(const QString& text, const char* name)
{
    auto* made = new QPushButton(text);
    made->setObjectName(QLatin1String(name));
    made->setAutoDefault(false);
    return made;
}

} // namespace

UpdateDialog::UpdateDialog(QWidget* parent)
    : QDialog(parent)
    , mHeading(new QLabel)
    , mDetail(new QLabel)
    , mNotes(button(tr("Release Notes…"), "releaseNotes"))
    , mDownload(button(tr("Download…"), "download"))
{
    setWindowTitle(tr("Tintorel — update available"));
    mHeading->setObjectName(QStringLiteral("heading"));
    mDetail->setObjectName(QStringLiteral("detail"));
    mHeading->setTextFormat(Qt::PlainText);
    mDetail->setTextFormat(Qt::PlainText);
    QFont font = mHeading->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.25);
    mHeading->setFont(font);
    QPushButton* skip = button(tr("Skip This Version"), "skip");
    QPushButton* later = button(tr("Later"), "later");
    mDownload->setDefault(true);

    connect(mNotes, &QPushButton::clicked, this, [this] {
        if (const QUrl url = secureLink(mRelease.notesUrl); !url.isEmpty())
            QDesktopServices::openUrl(url);
    });
    connect(mDownload, &QPushButton::clicked, this, [this] {
        if (const QUrl url = secureLink(mRelease.downloadsUrl); !url.isEmpty())
            QDesktopServices::openUrl(url);
    });
    connect(skip, &QPushButton::clicked, this, [this] {
        emit skipVersion(mRelease.version);
        close();
    });
    connect(later, &QPushButton::clicked, this, &QDialog::close);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(mNotes);
    buttons->addStretch();
    buttons->addWidget(skip);
    buttons->addWidget(later);
    buttons->addWidget(mDownload);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mHeading);
    layout->addWidget(mDetail);
    layout->addSpacing(8);
    layout->addLayout(buttons);
}

void UpdateDialog::showRelease(const Update::Release& release)
{
    mRelease = release;
    mHeading->setText(tr("Tintorel %1 is available").arg(release.version));
    mDetail->setText(tr("You have %1 (built %2).\nThe new version was released %3.")
                         .arg(version(), buildDate(), release.released));
    open();
}
