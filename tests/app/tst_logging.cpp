#include "app/logging.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>
#include <unistd.h>

namespace {

// Sends one C stream into a file for the life of the object, so the
// console half of the handler can be read back.
class CapturedStream
{
public:
    CapturedStream(FILE* stream, const QString& path)
        : mStream(stream)
        , mPath(path)
    {
        fflush(mStream);
        mSaved = dup(fileno(mStream));
        FILE* target = fopen(QFile::encodeName(path).constData(), "w");
        dup2(fileno(target), fileno(mStream));
        fclose(target);
    }
    ~CapturedStream() { release(); }
    QByteArray release()
    {
        if (mSaved >= 0) {
            fflush(mStream);
            dup2(mSaved, fileno(mStream));
            close(mSaved);
            mSaved = -1;
        }
        QFile file(mPath);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

private:
    FILE* mStream;
    QString mPath;
    int mSaved = -1;
};

QByteArray readLog(QFile* file)
{
    QFile copy(file->fileName());
    copy.open(QIODevice::ReadOnly);
    return copy.readAll();
}

} // namespace

class TestLogging : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void startOpensOneFileNamedByLocalTime();
    void levels_data();
    void levels();
    void libpngWarningIsDroppedOnlyAtWarningLevel();
    void localEightBitBytesAreWritten();
    void unopenableFileIsReportedAndHandlerStillEchoes();

private:
    QTemporaryDir* mDir = nullptr;
    QString mOldCurrent;
};

void TestLogging::init()
{
    mOldCurrent = QDir::currentPath();
    mDir = new QTemporaryDir;
    QVERIFY(QDir(mDir->path()).mkdir("log"));
    QDir::setCurrent(mDir->path());
}

void TestLogging::cleanup()
{
    stopLogging();
    QDir::setCurrent(mOldCurrent);
    delete mDir;
    mDir = nullptr;
}

void TestLogging::startOpensOneFileNamedByLocalTime()
{
    stopLogging(); // nothing when never started
    QVERIFY(QDir("log").entryList(QDir::Files).isEmpty());
    const QDateTime before = QDateTime::currentDateTime();
    QFile* file = startLogging();
    QVERIFY(file && file->isOpen());
    const QRegularExpression pattern("^log/application_(\\d{8}_\\d{6})\\.log$");
    const auto match = pattern.match(file->fileName());
    QVERIFY2(match.hasMatch(), qPrintable(file->fileName()));
    const QDateTime stamp = QDateTime::fromString(match.captured(1), "yyyyMMdd_hhmmss");
    QVERIFY(qAbs(stamp.secsTo(before)) <= 2);
    QCOMPARE(startLogging(), file);
    QCOMPARE(QDir("log").entryList(QDir::Files).size(), 1);
}

void TestLogging::levels_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("tag");
    QTest::addColumn<bool>("toStdout");
    QTest::newRow("debug") << int(QtDebugMsg) << QByteArray("Debug") << true;
    QTest::newRow("warning") << int(QtWarningMsg) << QByteArray("Warning") << false;
    QTest::newRow("critical") << int(QtCriticalMsg) << QByteArray("Critical") << false;
    QTest::newRow("fatal is written, not aborted") << int(QtFatalMsg) << QByteArray("Fatal") << false;
    QTest::newRow("info") << int(QtInfoMsg) << QByteArray("Info") << true;
    QTest::newRow("a level above four writes nothing") << 5 << QByteArray() << false;
}

// The console gets "<Tag>: hello", the file "hh:mm:ss <Tag>: hello".
void TestLogging::levels()
{
    QFETCH(int, type);
    QFETCH(QByteArray, tag);
    QFETCH(bool, toStdout);
    QFile* file = startLogging();

    CapturedStream out(stdout, mDir->filePath("out.txt"));
    CapturedStream err(stderr, mDir->filePath("err.txt"));
    logMessageHandler(QtMsgType(type), QMessageLogContext(), QStringLiteral("hello"));
    const QByteArray outText = out.release();
    const QByteArray errText = err.release();

    QCOMPARE(toStdout ? outText : errText, tag.isEmpty() ? QByteArray() : tag + ": hello\n");
    QCOMPARE(toStdout ? errText : outText, QByteArray());
    const QByteArray line = readLog(file);
    if (tag.isEmpty())
        QCOMPARE(line, QByteArray());
    else
        QVERIFY2(QRegularExpression("^\\d\\d:\\d\\d:\\d\\d " + tag + ": hello\n$").match(QString(line)).hasMatch(),
                 line.constData());
}

void TestLogging::libpngWarningIsDroppedOnlyAtWarningLevel()
{
    QFile* file = startLogging();
    CapturedStream err(stderr, mDir->filePath("err.txt"));
    logMessageHandler(QtWarningMsg, QMessageLogContext(), "libpng warning: iCCP: known incorrect sRGB profile");
    logMessageHandler(QtWarningMsg, QMessageLogContext(), "Libpng warning: case matters");
    logMessageHandler(QtCriticalMsg, QMessageLogContext(), "libpng warning: at critical");
    logMessageHandler(QtCriticalMsg, QMessageLogContext(), "libpng error: x");
    const QByteArray errText = err.release();
    const QByteArray log = readLog(file);
    for (const QByteArray& text : { errText, log }) {
        QVERIFY(!text.contains("iCCP"));
        QVERIFY(text.contains("Libpng warning: case matters"));
        QVERIFY(text.contains("libpng warning: at critical"));
        QVERIFY(text.contains("libpng error: x"));
    }
}

void TestLogging::localEightBitBytesAreWritten()
{
    QFile* file = startLogging();
    const QString text = QString::fromUtf8("Gr\u00FC\u00DFe \u00E9t\u00E9");
    CapturedStream out(stdout, mDir->filePath("out.txt"));
    logMessageHandler(QtInfoMsg, QMessageLogContext(), text);
    QCOMPARE(out.release(), "Info: " + text.toLocal8Bit() + "\n");
    QVERIFY(readLog(file).endsWith(" Info: " + text.toLocal8Bit() + "\n"));
}

void TestLogging::unopenableFileIsReportedAndHandlerStillEchoes()
{
    // A folder in the file's place cannot be opened for writing, even by root;
    // cover this second and the next few in case the clock ticks meanwhile.
    const QDateTime now = QDateTime::currentDateTime();
    for (int s = 0; s < 5; ++s)
        QDir("log").mkdir(QStringLiteral("application_%1.log").arg(now.addSecs(s).toString("yyyyMMdd_hhmmss")));

    CapturedStream err(stderr, mDir->filePath("err.txt"));
    QFile* file = startLogging();
    logMessageHandler(QtWarningMsg, QMessageLogContext(), "still here");
    const QByteArray errText = err.release();

    QVERIFY(file && !file->isOpen());
    QVERIFY2(errText.startsWith("Could not open " + file->fileName().toLocal8Bit() + "\n"), errText.constData());
    QVERIFY(errText.endsWith("Warning: still here\n"));
}

QTEST_GUILESS_MAIN(TestLogging)
#include "tst_logging.moc"
