#include "project/version.h"

QString applicationName() { return QStringLiteral("Tintorel"); }
QString organisationName() { return QStringLiteral("Quillmoor"); }
QString organisationDomain() { return QStringLiteral("quillmoor.net"); }
QString version() { return QStringLiteral("0.7.0.0"); }
QString buildDate() { return QStringLiteral("2026-10-15"); }
QString releaseChannel() { return QStringLiteral("stable"); }

QString displayName()
{
    return QStringLiteral("%1 v%2 [%3]").arg(applicationName(), version(), buildDate());
}
