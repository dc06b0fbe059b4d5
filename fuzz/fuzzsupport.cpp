#include "fuzzsupport.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>

namespace {

// Loaders warn about every damaged file; only a fatal message is worth a line.
void quietMessages(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "qFatal: %s\n", qPrintable(message));
}

} // namespace

// The editor decodes pictures with a GUI application present, so the
// targets do too: some of Qt's decoders need one.
extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(quietMessages);
    // Qt's own argument list, not libFuzzer's: QGuiApplication takes out
    // the options it knows.
    static int argc = 1;
    static char name[] = "fuzz";
    static char* argv[] = { name, nullptr };
    new QGuiApplication(argc, argv);
    return 0;
}

namespace Fuzz {

QByteArray bytes(const uint8_t* data, size_t size)
{
    return QByteArray(reinterpret_cast<const char*>(data), qsizetype(size));
}

QString scratchFile(const QString& name, const QByteArray& content)
{
    static QTemporaryDir folder;
    const QString path = QDir(folder.path()).filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(content) != content.size())
        fail(QStringLiteral("cannot write the scratch file %1").arg(path));
    return path;
}

int takeChoice(QByteArray& input, int count)
{
    if (input.isEmpty())
        return 0;
    const int choice = uchar(input.at(0)) % count;
    input.remove(0, 1);
    return choice;
}

void fail(const QString& why)
{
    std::fprintf(stderr, "fuzz target: %s\n", qPrintable(why));
    std::abort();
}

} // namespace Fuzz
