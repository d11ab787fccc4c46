#include "headunitrun.h"
#include "knownbytes.h"

#include "support/testmain.h"

#include <QtTest>

class TestFoundation : public QObject
{
    Q_OBJECT

private slots:
    void btsnoopCopy();
    void captureSwitchIsFlippedAndKept();
    void exitAndHomeClose();
    void everyPageOpensAndReturns();
    void rebootBringsTheScreenBack();
};

void TestFoundation::btsnoopCopy()
{
    HeadunitRun run;
    const QByteArray userdata = knownBytes(70000, 3);
    const QByteArray nvm = knownBytes(1025, 7);
    run.write(QStringLiteral("/media/flash/userdata/btsnoop.log"), userdata);
    run.write(QStringLiteral("/media/flash/nvm/btsnoop.log"), nvm);

    RUN_SCENARIO(run, QStringLiteral("btsnoop-first-copy.txt"));
    QCOMPARE(run.read(QStringLiteral("/media/usb0/userdata/btsnoop.log")), userdata);
    QCOMPARE(run.read(QStringLiteral("/media/usb0/nvm/btsnoop.log")), nvm);
    QVERIFY(!QFile::exists(run.path(QStringLiteral("/media/usb1/userdata"))));

    const QByteArray newer = knownBytes(500, 11);
    run.write(QStringLiteral("/media/flash/userdata/btsnoop.log"), newer);
    RUN_SCENARIO(run, QStringLiteral("btsnoop-second-copy.txt"));
    QCOMPARE(run.read(QStringLiteral("/media/usb0/userdata/btsnoop.log")), newer);
    QCOMPARE(run.read(QStringLiteral("/media/usb0/nvm/btsnoop.log")), nvm);
}

void TestFoundation::captureSwitchIsFlippedAndKept()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("capture.txt"), 5.0);
    RUN_SCENARIO(run, QStringLiteral("capture-kept.txt"));
}

void TestFoundation::exitAndHomeClose()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("exit.txt"));
}

void TestFoundation::everyPageOpensAndReturns()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("pages.txt"));
}

void TestFoundation::rebootBringsTheScreenBack()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("reboot.txt"), 5.0);
}

FACTORY_TEST_GUILESS_MAIN(TestFoundation)
#include "tst_foundation.moc"
