#include "headunitrun.h"

#include "support/testmain.h"

#include <QDir>
#include <QImage>
#include <QtTest>

class TestUsbPages : public QObject
{
    Q_OBJECT

private slots:
    void everyControlOfTheEyePage();
    void tuningOfThePhy();
    void eyePageWithoutMemory();
    void ncmPage();

private:
    void checkPictures(const HeadunitRun &run, int count) const;
};

void TestUsbPages::checkPictures(const HeadunitRun &run, int count) const
{
    const QDir pictures(run.pictures());
    const QStringList names = pictures.entryList({QStringLiteral("*.png")});
    QCOMPARE(names.size(), count);
    for (const QString &name : names) {
        QCOMPARE(QImage(pictures.filePath(name)).size(), QSize(800, 480));
    }
}

void TestUsbPages::everyControlOfTheEyePage()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("usb-eye.txt"), 5.0);
    QCOMPARE(run.read(QStringLiteral("/sys/module/usbcore/parameters/usb_logo_test_start")),
             QByteArray("1\n"));
    checkPictures(run, 3);
}

void TestUsbPages::tuningOfThePhy()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("usb-eye-tuning.txt"), 5.0);
    checkPictures(run, 4);
}

void TestUsbPages::eyePageWithoutMemory()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("usb-eye-failures.txt"), 5.0);
}

void TestUsbPages::ncmPage()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("ncm.txt"));
    QCOMPARE(run.read(QStringLiteral("/proc/sys/kernel/printk")), QByteArray("0\n"));
    QCOMPARE(run.read(QStringLiteral("/logset/ALOG_OUTPUT")), QByteArray("n\n"));
    checkPictures(run, 9);
}

FACTORY_TEST_GUILESS_MAIN(TestUsbPages)
#include "tst_usbpages.moc"
