#include "headunitrun.h"

#include "support/testmain.h"

#include <QtTest>

class TestFoundation : public QObject
{
    Q_OBJECT

private slots:
    void captureSwitchIsFlippedAndKept();
    void exitAndHomeClose();
    void everyPageOpensAndReturns();
    void rebootBringsTheScreenBack();
};

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
