#include "headunitrun.h"

#include "support/testmain.h"

#include <QtTest>

/// What the console tells and forgives, on the screen that ships.
class TestConsoleUse : public QObject
{
    Q_OBJECT

private slots:
    void looks();
    void namesWhatWasMeant();
    void slotsWorkByTouch();
    void speaksAnotherLanguage();
};

void TestConsoleUse::looks()
{
    const HeadunitRun run;
    const HeadunitRun::End end = run.start({"--script", HeadunitRun::script("look.txt")});
    QVERIFY2(end.status == 0, qPrintable(end.error));
    QCOMPARE(end.output.split("\n  "),
             (QString("  activity factorydebug\n"
                      "  page FactoryDebugView\n"
                      "  text Factory\n"
                      "  button exit 720 0 80 65 enabled\n"
                      "  button usbtest 65 90 210 60 enabled \"USB Test\"\n"
                      "  button usbeye 295 90 210 60 enabled \"USB Eye\"\n"
                      "  button ncmtest 525 90 210 60 enabled \"NCM Test\"\n"
                      "  button keycolor 65 170 210 60 enabled KeyColor\n"
                      "  button vendordata 295 170 210 60 enabled Vendordata\n"
                      "  button gps 525 170 210 60 enabled \"GPS Update\"\n"
                      "  button als 65 250 210 60 enabled \"ALS Test\"\n"
                      "  button pdtVer 295 250 210 60 enabled Product\n"
                      "  button sysCtrl 525 250 210 60 enabled SysCtrl\n"
                      "  button idPanel 65 330 210 60 enabled \"Panel Config\"\n"
                      "  button idCopyBtsnoop 295 330 210 60 enabled \"Copy Btsnoop\"\n"
                      "  button idCapture 525 330 210 60 enabled Capture\n"
                      "  button startUSBTest 65 410 210 60 enabled \"Start USB Test\"\n"
                      "  activity factorydebug\n"
                      "  page FactoryDebugView CSetupKeyLight QWidget\n"
                      "  text \"KeyColor Set\"\n"
                      "  text 50\n"
                      "  text \"Red [0,100]\"\n"
                      "  text 50\n"
                      "  text \"Green [0,100]\"\n"
                      "  text 50\n"
                      "  text \"Blue [0,100]\"\n"
                      "  button return 0 0 80 65 enabled\n"
                      "  button bridec 439 120 82 60 enabled\n"
                      "  button briinc 589 120 82 60 enabled\n"
                      "  button condec 439 216 82 60 enabled\n"
                      "  button coninc 589 216 82 60 enabled\n"
                      "  button huedec 439 312 82 60 enabled\n"
                      "  button hueinc 589 312 82 60 enabled\n")
                  .split("\n  ")));
}

void TestConsoleUse::namesWhatWasMeant()
{
    const HeadunitRun run;
    run.write("/media/flash/userdata/btsnoop.log", "log");
    run.write("/media/flash/nvm/btsnoop.log", "log");
    const HeadunitRun::End end = run.start({"--script", HeadunitRun::script("console-use.txt")});
    QCOMPARE(end.error, QString());
    QCOMPARE(end.status, 0);
    QCOMPARE(end.output.split('\n'),
             (QStringList{"  There is a stick in slot \"usb1\" already: \"../sticks/usb1\".",
                          "  there is no button \"usbtst\" on the screen; near: usbtest",
                          "  there is no button \"USB Eye\" on the screen; near: usbeye",
                          "  the screen does not show \"Capturd\"; shown are its texts", ""}));
}

void TestConsoleUse::slotsWorkByTouch()
{
    const HeadunitRun run;
    const HeadunitRun::End end = run.start({"--script", HeadunitRun::script("slots.txt")});
    QVERIFY2(end.status == 0, qPrintable(end.error));
    QCOMPARE(end.output.split("\n  "),
             (QString("  activity \"\"\n"
                      "  page simulator::HomeScreen\n"
                      "  text \"Simulated head unit\"\n"
                      "  text \"Press FACTORY below the screen to open the factory menu\"\n"
                      "  button usb0 60 356 158 86 enabled USB0 empty \"touch to plug\"\n"
                      "  button usb1 234 356 158 86 enabled USB1 empty \"touch to plug\"\n"
                      "  button sd0 408 356 158 86 enabled SD0 empty \"touch to plug\"\n"
                      "  button sd1 582 356 158 86 enabled SD1 empty \"touch to plug\"\n"
                      "  device   storage plug usb0 /media/usb0\n"
                      "  screen   + \"plugged\", \"touch to pull\"\n"
                      "  screen   - \"empty\", \"touch to plug\"\n"
                      "  device   storage pull usb0 /media/usb0\n"
                      "  screen   + \"empty\", \"touch to plug\"\n"
                      "  screen   - \"plugged\", \"touch to pull\"\n")
                  .split("\n  ")));
}

void TestConsoleUse::speaksAnotherLanguage()
{
    HeadunitRun run;
    RUN_SCENARIO(run, "german.txt", 10, "de");
}

FACTORY_TEST_GUILESS_MAIN(TestConsoleUse)
#include "tst_consoleuse.moc"
