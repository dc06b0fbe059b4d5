#include "app/logging.h"

#include <QDateTime>
#include <QFile>
#include <QTime>

#include <cstdio>

namespace {

QFile* logFile = nullptr;

struct LevelFormat
{
    const char* fileTag;
    FILE* console;
    const char* consoleFormat;
};

bool formatFor(QtMsgType type, LevelFormat* format)
{
    switch (type) {
    case QtDebugMsg: *format = { " Debug: ", stdout, "Debug: %s\n" }; return true;
    case QtWarningMsg: *format = { " Warning: ", stderr, "Warning: %s\n" }; return true;
    case QtCriticalMsg: *format = { " Critical: ", stderr, "Critical: %s\n" }; return true;
    case QtFatalMsg: *format = { " Fatal: ", stderr, "Fatal: %s\n" }; return true;
    case QtInfoMsg: *format = { " Info: ", stdout, "Info: %s\n" }; return true;
    }
    return false;
}

// libpng complains about harmless colour profiles in many pictures; those
// warnings would drown everything else when a user imports artwork.
bool isLibpngWarning(QtMsgType type, const QByteArray& bytes)
{
    return type == QtWarningMsg && bytes.startsWith("libpng warning:");
}

} // namespace

QFile* startLogging()
{
    if (logFile)
        return logFile;
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd_hhmmss"));
    auto* file = new QFile(QStringLiteral("log/application_%1.log").arg(stamp));
    if (!file->open(QIODevice::WriteOnly | QIODevice::Truncate))
        fprintf(stderr, "Could not open %s\n", file->fileName().toLocal8Bit().constData());
    logFile = file;
    qInstallMessageHandler(logMessageHandler);
    return logFile;
}

void stopLogging()
{
    if (!logFile)
        return;
    qInstallMessageHandler(nullptr);
    logFile->close();
    delete logFile;
    logFile = nullptr;
}

void logMessageHandler(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    const QByteArray bytes = message.toLocal8Bit();
    LevelFormat format;
    if (formatFor(type, &format) && !isLibpngWarning(type, bytes)) {
        if (logFile && logFile->isOpen()) {
            const QByteArray line = QTime::currentTime().toString(QStringLiteral("hh:mm:ss")).toLatin1()
                + format.fileTag + bytes + '\n';
            logFile->write(line);
        }
        fprintf(format.console, format.consoleFormat, bytes.constData());
    }
    if (logFile)
        logFile->flush();
}
