#pragma once
#include <QString>

// The program's identity, fixed at build time. Plain functions, so the
// display name can be made before any application object exists.
QString applicationName();
QString organisationName();
QString organisationDomain();
QString version();
QString buildDate();
QString releaseChannel();
// "Tintorel v0.7.0.0 [2026-10-15]"
QString displayName();
