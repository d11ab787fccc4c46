#include "gps/gpscomage.h"

#include "gpspage.h"
#include "stdoutcapture.h"

#include "support/testmain.h"
#include "support/tracecapture.h"

#include <QPointer>
#include <QtTest>

class TestCGpsComPage : public QObject, private GpsPageTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void metaObject();

    void findsTheFirstRootForEachFile();
    void onlyOneFileClosesAtOnce_data();
    void onlyOneFileClosesAtOnce();
    void unknownResultDoesNothing();

    void openingItTwiceMakesTwoPages();
    void deletedWhileTheWorkerRuns();
    void exitSlotClosesSetup();
};

void TestCGpsComPage::init()
{
    switchOn();
}

void TestCGpsComPage::cleanup()
{
    switchOff();
}

void TestCGpsComPage::metaObject()
{
    const QMetaObject &meta = CGpsComPage::staticMetaObject;
    QStringList methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        methods.append(QString::fromLatin1(meta.method(index).methodSignature()));
    }
    QCOMPARE(methods,
             QStringList({"sigExitVersionPage(bool)", "sigCheckSoftResult(int)", "returnSlot()",
                          "exitSlot()", "showSystemNewFwInfoSlot()", "updateSlot()",
                          "updateUdiskStateSlot(QString)", "softCheckResultSlot(int)"}));
}

void TestCGpsComPage::findsTheFirstRootForEachFile()
{
    makePackage(QStringLiteral("usb1"), firmware, "valid");
    makePackage(QStringLiteral("sd0"), bootloader, "valid");
    makePackage(QStringLiteral("usb0"), firmware, "valid");
    makePackage(QStringLiteral("usb0"), bootloader, "valid");
    for (const char *slot : {"usb1", "sd0", "usb0"}) {
        m_unit->plug(QString::fromLatin1(slot));
    }
    CGpsComPage *page = open();
    const TraceCapture capture;
    QCOMPARE(page->checkUpdateFileExist(QString::fromLatin1(bootloader)),
             QStringLiteral("/media/sd0/gps_bootloader.pkg"));
    QCOMPARE(page->checkUpdateFileExist(QString::fromLatin1(firmware)),
             QStringLiteral("/media/usb1/gps_firmware.pkg"));
    QCOMPARE(page->checkUpdateFileExist(QStringLiteral("other")), QString());
    const QStringList texts = capture.texts().filter(QStringLiteral("checkUpdateFileExist"));
    QCOMPARE(texts.mid(0, 3),
             QStringList({
                 "CGpsComPage::checkUpdateFileExist filePath:  \"/media/usb1/gps_bootloader.pkg\"",
                 "CGpsComPage::checkUpdateFileExist filePath:  \"/media/sd0/gps_bootloader.pkg\"",
                 "CGpsComPage::checkUpdateFileExist filePath:  \"/media/usb1/gps_firmware.pkg\"",
             }));
    QCOMPARE(texts.size(), 2 + 1 + 3);
}

void TestCGpsComPage::onlyOneFileClosesAtOnce_data()
{
    QTest::addColumn<bool>("hasBootloader");
    QTest::addColumn<bool>("hasFirmware");
    QTest::newRow("no file") << false << false;
    QTest::newRow("boot loader only") << true << false;
    QTest::newRow("firmware only") << false << true;
}

void TestCGpsComPage::onlyOneFileClosesAtOnce()
{
    QFETCH(bool, hasBootloader);
    QFETCH(bool, hasFirmware);
    if (hasBootloader) {
        makePackage(QStringLiteral("usb0"), bootloader, "valid");
    }
    if (hasFirmware) {
        makePackage(QStringLiteral("usb0"), firmware, "valid");
    }
    if (hasBootloader || hasFirmware) {
        m_unit->plug(QStringLiteral("usb0"));
    }
    const CGpsComPage *page = open();
    // Shown and raised, but for the pop-up.
    QVERIFY(!shows(page, "gpsFWInfoForm"));
    QVERIFY(!shows(page, "infoPage"));
    QTRY_VERIFY(m_page.isNull());
    QCOMPARE(m_unit->journal(QStringLiteral("/^(log|mcu) /")),
             QStringList({updateReady(0), QStringLiteral("log INFO CGpsComPage returnSlot\\n"),
                          updateReady(0)}));
    QVERIFY(m_unit->journal(QStringLiteral("threads start")).isEmpty());
}

void TestCGpsComPage::unknownResultDoesNothing()
{
    CGpsComPage *page = openVerified();
    const TraceCapture capture;
    emit page->sigCheckSoftResult(2);
    QCOMPARE(capture.texts(), QStringList(QStringLiteral("softCheckResultSlot state:  2")));
    QTest::qWait(50);
    QVERIFY(!m_page.isNull());
    QVERIFY(asks(page));
}

void TestCGpsComPage::openingItTwiceMakesTwoPages()
{
    switchOn(1);
    plugBoth();
    QPointer<CGpsComPage> first;
    {
        const StdoutCapture output;
        first = open();
        QTRY_VERIFY(output.text().contains("check select() for"));
    }
    // The first page's worker still has its second to wait.
    const QPointer<CGpsComPage> second = open();
    QTRY_VERIFY(asks(second));
    QTRY_COMPARE(m_unit->journal(QStringLiteral("threads end")).size(), 2);
    // Both have reported to the page that was made last.
    QTest::qWait(50);
    QVERIFY(shows(first, "popLoading"));
    delete first;
    QVERIFY(asks(second));
}

void TestCGpsComPage::deletedWhileTheWorkerRuns()
{
    switchOn(1); // The page goes well within the task's second.
    plugBoth();
    const TraceCapture capture;
    delete open();
    // The task's second of waiting is over too.
    QCOMPARE(m_unit->journal(QStringLiteral("/^(threads|mcu) /")),
             QStringList({
                 updateReady(0),
                 updateReady(1),
                 QStringLiteral("threads start threadGpsUpdateId"),
                 QStringLiteral("threads join threadGpsUpdateId"),
                 QStringLiteral("threads end threadGpsUpdateId"),
                 updateReady(0),
             }));
    // The journals leave it out, since it comes at any time.
    QCOMPARE(capture.texts().count(QStringLiteral("threadPoolCallback check software exit...")), 1);
    QCoreApplication::processEvents();
}

void TestCGpsComPage::exitSlotClosesSetup()
{
    CGpsComPage *page = openVerified();
    page->exitSlot();
    QTRY_VERIFY(m_page.isNull());
    QCOMPARE(m_unit->journal(QStringLiteral("/^(log|framework close)/")),
             QStringList({QStringLiteral("log INFO CGpsComPage exitSlot\\n"),
                          QStringLiteral("framework close setup")}));
}

FACTORY_TEST_MAIN(TestCGpsComPage)
#include "tst_cgpscompage.moc"
