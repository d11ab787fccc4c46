#include "furnishing.h"
#include "listreference.h"

#include "scenarios/headunitrun.h"
#include "support/testmain.h"

#include <QtTest>

/// docs/effects.md tells what each touch leads to.
class TestEffects : public QObject
{
    Q_OBJECT

private slots:
    void everyTouchIsTold();
    void theLastTouchIsTold();
};

void TestEffects::everyTouchIsTold()
{
    HeadunitRun run;
    furnish(run);
    RUN_SCENARIO(run, QStringLiteral("effects.txt"), 5.0);
    QFile file(run.pictures() + QStringLiteral("/effects.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    QCOMPARE(lines.takeLast(), QString());
    // Waits for the receiver's next words: in how many pieces these come is up to the host.
    lines.replaceInStrings(QRegularExpression("(usleep\\(50000\\)) \\(\\d+ times\\)"), "\\1");
    const QString complaint = listComplaint(QStringLiteral("effects.md"), lines);
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
}

void TestEffects::theLastTouchIsTold()
{
    const HeadunitRun run;
    const HeadunitRun::End end =
        run.start({QStringLiteral("--speed"), QStringLiteral("5"), QStringLiteral("--script"),
                   HeadunitRun::script(QStringLiteral("effects-last.txt"))});
    QVERIFY2(end.status == 0, qPrintable(end.error));
    QStringList told = end.output.split(QLatin1Char('\n')).filter(QRegularExpression("^  "));
    QCOMPARE(told,
             QStringList({
                 "  nothing has been touched yet",
                 "  call     log INFO CSetupKeyLight clickedAdjustItem briinc\\n",
                 "  mcu      FF 66 06 15 84 FE 33 32 32 FF",
                 "  device   keylight 51 50 50",
                 "  screen   + \"51\"",
                 "  screen   - \"50\"",
                 "  call     log INFO CSetupKeyLight clickedAdjustItem bridec\\n",
                 "  mcu      FF 66 06 15 84 FE 32 32 32 FF",
                 "  device   keylight 50 50 50",
                 "  screen   + \"50\"",
                 "  screen   - \"51\"",
                 "  there is no button \"nothing\" on the screen",
                 "  usage: effects [ID], or effects --all [FILE]",
             }));
}

FACTORY_TEST_GUILESS_MAIN(TestEffects)
#include "tst_effects.moc"
