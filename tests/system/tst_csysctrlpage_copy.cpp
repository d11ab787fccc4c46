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
    void copyToAStickThatWasJustPulledRunsNothing();
    void checkOutTellsWhetherItCopied();
};

namespace
{

constexpr QPoint copyPoint(282, 196);

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
