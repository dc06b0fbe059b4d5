#pragma once
#include <QtGlobal>

class QFile;
class QMessageLogContext;
class QString;

// The opt-in log: a file per start under ./log, written only when the user
// has made that folder, with every message echoed to the console.

// Opens "log/application_<local time>.log" in the working directory and
// installs the handler. A second call returns the open file unchanged.
QFile* startLogging();

// Uninstalls the handler and closes the file; nothing when never started.
void stopLogging();

void logMessageHandler(QtMsgType type, const QMessageLogContext& context, const QString& message);
