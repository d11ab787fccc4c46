#include "system/csysctrlpage.h"

#include "sysctrlpage.h"

#include "support/testmain.h"

#include <QtTest>

#include <thread>

class TestCSysCtrlPageCopy : public QObject
{
    Q_OBJECT

private slots:
    void copyButtonFaces_data();
    void copyButtonFaces();
    void copyButtonFollowsTheStorage();
    void withoutLogFolderTheCopyButtonStartsDisabledUntilAStorageEvent();
    void copyWithoutLogFolderOnlyMakesTheTarget();
    void copyShowsThatItRunsAndIsReadyAgain();
    void copyToAFullStickGoesOn();
    void copyToAStickThatWasJustPulledRunsNothing();
    void checkOutTellsWhetherItCopied();
};

namespace
{

const QPoint copyPoint(282, 196);

} // namespace

void TestCSysCtrlPageCopy::copyButtonFaces_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("disabled");
    QTest::newRow("disabled") << 0 << "SYSTEMLOG" << true;
    QTest::newRow("ready") << 1 << "SYSTEMLOG" << false;
    QTest::newRow("copying") << 2 << "COPYING..." << false;
    QTest::newRow("any other") << 3 << "SYSTEMLOG" << true;
    QTest::newRow("negative") << -1 << "SYSTEMLOG" << true;
}

void TestCSysCtrlPageCopy::copyButtonFaces()
{
    QFETCH(int, state);
    QFETCH(QString, text);
    QFETCH(bool, disabled);
    OpenedPage shown;
    shown.open();
    shown.page->setmCopyBtnState(disabled ? 2 : 0);
    shown.page->setmCopyBtnState(state);
    QCOMPARE(shown.icon("copyBtn")->displayText(), text);
    QCOMPARE(shown.icon("copyBtn")->disableState(), disabled);
    QCOMPARE(shown.icon("copyBtn")->isEnabled(), !disabled);
}

void TestCSysCtrlPageCopy::copyButtonFollowsTheStorage()
{
    OpenedPage shown;
    writeFile(shown.unit.path(logFile), "log");
    shown.open();
    QVERIFY(shown.icon("copyBtn")->disableState());
    shown.unit.plug(QStringLiteral("usb0"));
    QTRY_VERIFY(!shown.icon("copyBtn")->disableState());
    QString error;
    QVERIFY(shown.unit.unit().storage().pull(QStringLiteral("usb0"), &error));
    QTRY_VERIFY(shown.icon("copyBtn")->disableState());
    QVERIFY(!shown.icon("copyBtn")->isEnabled());

    shown.unit.tap(copyPoint);
    QCOMPARE(shown.journal(), QStringList());
}

void TestCSysCtrlPageCopy::withoutLogFolderTheCopyButtonStartsDisabledUntilAStorageEvent()
{
    OpenedPage shown;
    shown.unit.plug(QStringLiteral("usb0"));
    shown.open();
    QVERIFY(shown.icon("copyBtn")->disableState());
    QVERIFY(!shown.icon("copyBtn")->isEnabled());

    shown.unit.plug(QStringLiteral("usb1"));
    QTRY_VERIFY(!shown.icon("copyBtn")->disableState());
    QVERIFY(shown.icon("copyBtn")->isEnabled());
}

void TestCSysCtrlPageCopy::copyWithoutLogFolderOnlyMakesTheTarget()
{
    OpenedPage shown;
    shown.open();
    shown.unit.plug(QStringLiteral("usb0"));
    QTRY_VERIFY(!shown.icon("copyBtn")->disableState());
    shown.unit.tap(copyPoint);
    QCOMPARE(shown.journal(), QStringList("shell mkdir -p /media/usb0/QM_SYSTEMLOG"));
    QCOMPARE(shown.icon("copyBtn")->displayText(), QStringLiteral("SYSTEMLOG"));
    QVERIFY(!shown.icon("copyBtn")->disableState());
}

void TestCSysCtrlPageCopy::copyShowsThatItRunsAndIsReadyAgain()
{
    OpenedPage shown;
    shown.openWithLogsAndStick();
    QCoreApplication::processEvents();
    const QImage ready = glass(shown.unit);
    QImage running;
    // The unit's own sync tells when the copy is all but done.
    writeFile(shown.unit.path(QStringLiteral("/bin/sync")),
              "#!/bin/sh\ntouch \"$UNIT/synced\"\nsleep 0.3\n");
    std::thread observer([&shown, &running] {
        shown.unit.unit().journal().waitFor(hardware::JournalPattern(QStringLiteral("shell sync")),
                                            0, 20000);
        running = glass(shown.unit);
    });

    shown.page->btnReleasedSlot(QStringLiteral("idCpBtn"));
    observer.join();

    QCOMPARE(shown.journal(),
             QStringList({
                 "shell mkdir -p /media/usb0/QM_SYSTEMLOG",
                 "shell cp -rf /media/flash/userdata/log_service//*  /media/usb0/QM_SYSTEMLOG/",
                 "shell cp -rf /media/flash/nvm/dfb_crash.dump  /media/usb0/QM_SYSTEMLOG/",
                 "shell sync",
             }));
    const QRect buttonOnGlass(212, 166, 140, 60);
    QVERIFY(running.copy(buttonOnGlass) != ready.copy(buttonOnGlass));
    QCOMPARE(glass(shown.unit).copy(buttonOnGlass), ready.copy(buttonOnGlass));
    QCOMPARE(shown.icon("copyBtn")->displayText(), QStringLiteral("SYSTEMLOG"));
    QVERIFY(!shown.icon("copyBtn")->disableState());
}

void TestCSysCtrlPageCopy::copyToAFullStickGoesOn()
{
    OpenedPage shown;
    shown.openWithLogsAndStick();
    QString error;
    QVERIFY(shown.unit.unit().storage().setTrait(QStringLiteral("usb0"), hardware::StickTrait::Full,
                                                 1, &error));
    shown.unit.tap(copyPoint);
    QCOMPARE(shown.journal().constLast(), QStringLiteral("shell sync"));
    QCOMPARE(readFile(shown.unit.path(QStringLiteral("/media/usb0/QM_SYSTEMLOG/system.log"))),
             QByteArray());
    QCOMPARE(shown.icon("copyBtn")->displayText(), QStringLiteral("SYSTEMLOG"));
    QVERIFY(!shown.icon("copyBtn")->disableState());
}

void TestCSysCtrlPageCopy::copyToAStickThatWasJustPulledRunsNothing()
{
    OpenedPage shown;
    shown.openWithLogsAndStick();
    // From another thread: the page has not heard of it yet.
    std::thread([&shown] {
        QString error;
        shown.unit.unit().storage().pull(QStringLiteral("usb0"), &error);
    }).join();
    QVERIFY(!shown.icon("copyBtn")->disableState());
    shown.page->btnReleasedSlot(QStringLiteral("idCpBtn"));
    QCOMPARE(shown.journal(), QStringList());
    QCOMPARE(shown.icon("copyBtn")->displayText(), QStringLiteral("SYSTEMLOG"));
    QTRY_VERIFY(shown.icon("copyBtn")->disableState());
}

void TestCSysCtrlPageCopy::checkOutTellsWhetherItCopied()
{
    OpenedPage shown;
    shown.openWithLogsAndStick();
    QCOMPARE(shown.page->checkOutSystemLog2UDisk("/media/usb0"), 1);
    QCOMPARE(shown.page->checkOutSystemLog2UDisk("/media/usb1"), 0);
    QCOMPARE(shown.page->checkOutSystemLog2UDisk(""), 0);
    QVERIFY(QDir(shown.unit.path(QStringLiteral("/media/flash/userdata/log_service")))
                .removeRecursively());
    QCOMPARE(shown.page->checkOutSystemLog2UDisk("/media/usb0"), 0);
}

FACTORY_TEST_MAIN(TestCSysCtrlPageCopy)
#include "tst_csysctrlpage_copy.moc"
