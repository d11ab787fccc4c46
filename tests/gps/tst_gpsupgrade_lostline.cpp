#include "gps/gpsupgrade.h"

#include "upgradetest.h"

#include "support/testmain.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// Upgrades whose line to the receiver is lost on the way, each in a process of its own.
class TestGpsUpgradeLostLine : public QObject
{
    Q_OBJECT

private slots:
    void lostLineEndsTheProcess_data();
    void lostLineEndsTheProcess();
};

void TestGpsUpgradeLostLine::lostLineEndsTheProcess_data()
{
    QTest::addColumn<QString>("fault");
    for (const char *stage : {"product", "loader", "bootloader", "bootloader 2", "prompt", "menu",
                              "firmware", "firmware 1", "sentences", "eot"}) {
        QTest::newRow(stage) << QStringLiteral("hangup ") + QString::fromLatin1(stage);
    }
}

void TestGpsUpgradeLostLine::lostLineEndsTheProcess()
{
    QFETCH(QString, fault);
    // What a process that ends so leaves goes with this one.
    const QTemporaryDir temporary;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), temporary.path());
    QProcess process;
    process.setProcessEnvironment(environment);
    startAnother(&process, {QStringLiteral("--upgrade"), fault});
    QVERIFY(process.waitForFinished());
    const QByteArray output = process.readAllStandardOutput();
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QVERIFY2(process.exitCode() == 251, output.constData());
    QVERIFY2(output.endsWith("please check serial device.\n"), output.constData());
}

namespace
{

/// What the child process does: an upgrade of a unit of its own.
class Child : private UpgradeTest
{
public:
    int run(const QString &words)
    {
        // As the check of the files leaves it, with select(); by polling, a line that is gone has
        // just nothing to read.
        switchOn();
        fault(words);
        return upgradeStart(bootloader, firmware);
    }
};

} // namespace

static const RegisteredTest registered(__FILE__, [](int argc, char *argv[]) {
    if (argc == 3 && qstrcmp(argv[1], "--upgrade") == 0) {
        const QApplication application(argc, argv);
        return Child().run(QString::fromLatin1(argv[2]));
    }
    return runTest<QApplication, TestGpsUpgradeLostLine>(argc, argv);
});

#include "tst_gpsupgrade_lostline.moc"
