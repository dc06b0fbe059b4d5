#include "project/version.h"

#include <QtTest>

class TestVersion : public QObject
{
    Q_OBJECT
private slots:
    void displayNameNeedsNoApplication()
    {
        QVERIFY(!QCoreApplication::instance());
        QCOMPARE(displayName(), QStringLiteral("Tintorel v0.7.0.0 [2026-10-15]"));
        QCOMPARE(releaseChannel(), QStringLiteral("stable"));
    }
};

// No application object on purpose: the identity must not need one.
int main(int argc, char** argv)
{
    TestVersion test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_version.moc"
