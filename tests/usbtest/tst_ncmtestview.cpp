#include "usbtest/ncmtestview.h"

#include "ncmpage.h"

#include "kvwidget/kvlockbutton.h"
#include "support/runcheck.h"
#include "support/testmain.h"

#include <QLabel>
#include <QTextBrowser>
#include <QtTest>

class TestNcmTestView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void noticesStyleSheetCannotBeParsedAndIsWarnedOfOnce();
    void openingThePageTwiceRunsTheThreeStartUpCommandsTwice();
    void buttonIds();
    void pressWithAllDownReleasesTheOthers_data();
    void pressWithAllDownReleasesTheOthers();
    void udp50WhileServerTcpIsDownReleasesItAndCallsOnlyTheClient();
    void pressingAClientButtonTwiceCallsItsOperationTwice();
    void unknownIdsDoNothing();
    void refusedOperationIsNotShown();
    void ncmOnEndsTheServer();
    void destructorTakesTheFormOffTheHostAndLetsTheTestRun();
};

namespace
{

int warnings = 0;

void countWarnings(QtMsgType type, const QMessageLogContext &, const QString &)
{
    warnings += type == QtWarningMsg;
}

QStringList calls(const TestUnit &unit)
{
    return unit.journal(QStringLiteral("/^ncm (start|stop)/"));
}

QStringList shell(const TestUnit &unit)
{
    return unit.journal(QStringLiteral("/^shell /"));
}

QStringList startUpCommands()
{
    return {QStringLiteral("shell logset ALOG_OUTPUT n"),
            QStringLiteral("shell echo 0 > /proc/sys/kernel/printk"),
            QStringLiteral("shell killall as_server")};
}

} // namespace

void TestNcmTestView::initTestCase()
{
    applyUnitsAppearance();
}

void TestNcmTestView::noticesStyleSheetCannotBeParsedAndIsWarnedOfOnce()
{
    TestUnit unit(ncmSpeed);
    warnings = 0;
    const QtMessageHandler former = qInstallMessageHandler(countWarnings);
    const NCMTestView view(&unit.screen());
    QCoreApplication::processEvents();
    unit.screen().grab();
    qInstallMessageHandler(former);
    QCOMPARE(warnings, 1);
    QCOMPARE(
        unit.screen().findChild<QLabel *>(QStringLiteral("notice"))->styleSheet(),
        QStringLiteral("background-color(212, 173, 70);color:rgb(255, 0, 0,);font-size:26px;"));
}

void TestNcmTestView::openingThePageTwiceRunsTheThreeStartUpCommandsTwice()
{
    TestUnit unit(ncmSpeed);
    {
        NcmPage page(unit);
    }
    NcmPage page(unit);
    QCOMPARE(unit.journal(), startUpCommands() + startUpCommands());
}

void TestNcmTestView::buttonIds()
{
    TestUnit unit(ncmSpeed);
    NcmPage page(unit);
    for (const Button &button : testButtons) {
        QCOMPARE(page.find<KvLockButton>(button.name)->buttonID(), QString::fromLatin1(button.id));
    }
}

void TestNcmTestView::pressWithAllDownReleasesTheOthers_data()
{
    QTest::addColumn<int>("pressed");
    int pressed = 0;
    for (const Button &button : testButtons) {
        QTest::newRow(button.id) << pressed++;
    }
}

void TestNcmTestView::pressWithAllDownReleasesTheOthers()
{
    QFETCH(int, pressed);
    TestUnit unit(ncmSpeed);
    NcmPage page(unit);
    for (const Button &button : testButtons) {
        page.find<KvLockButton>(button.name)->setIsDown(true);
    }
    page.tap(testButtons[pressed].name);
    QCOMPARE(page.down(), QStringList(QString::fromLatin1(testButtons[pressed].id)));
    QCOMPARE(calls(unit), QStringList(QString::fromLatin1(testButtons[pressed].call)));
}

void TestNcmTestView::udp50WhileServerTcpIsDownReleasesItAndCallsOnlyTheClient()
{
    TestUnit unit(ncmSpeed);
    NcmPage page(unit);
    page.tap("serverTcp");
    QCOMPARE(page.down(), QStringList(QStringLiteral("S_TCP")));
    const int lines = calls(unit).size();
    page.tap("clientUdp50");
    QCOMPARE(page.down(), QStringList(QStringLiteral("C_UPD50")));
    QCOMPARE(calls(unit).mid(lines), QStringList(QStringLiteral("ncm start udp client 50")));
}

void TestNcmTestView::pressingAClientButtonTwiceCallsItsOperationTwice()
{
    TestUnit unit(ncmSpeed);
    NcmPage page(unit);
    page.tap("clientTcp");
    page.tap("clientTcp");
    QCOMPARE(calls(unit),
             QStringList(
                 {QStringLiteral("ncm start tcp client"), QStringLiteral("ncm start tcp client")}));
    QCOMPARE(page.down(), QStringList(QStringLiteral("C_TCP")));
}

void TestNcmTestView::unknownIdsDoNothing()
{
    TestUnit unit(ncmSpeed);
    NcmPage page(unit);
    page.tap("clientUdp50");
    const int lines = unit.journal().size();
    // Each group's slot knows its own ids only, in their own spelling.
    page.view()->clickedClient(QStringLiteral("S_UDP"));
    page.view()->clickedClient(QStringLiteral("C_UDP50"));
    page.view()->clickedClient(QString());
    page.view()->clickedServer(QStringLiteral("C_STOP"));
    page.view()->clickedServer(QStringLiteral("s_udp"));
    QCOMPARE(unit.journal().mid(lines), QStringList());
    QCOMPARE(page.down(), QStringList(QStringLiteral("C_UPD50")));
}

void TestNcmTestView::refusedOperationIsNotShown()
{
    TestUnit unit(ncmSpeed);
    unit.unit().ncmTest().refuseStarts(true);
    NcmPage page(unit);
    page.tap("clientUdp100");
    QCOMPARE(page.down(), QStringList(QStringLiteral("C_UPD100")));
    QCOMPARE(page.find<QTextBrowser>("output")->toPlainText(), QString());
    QVERIFY(!unit.unit().ncmTest().isRunning());
}

void TestNcmTestView::ncmOnEndsTheServer()
{
    TestUnit unit(ncmSpeed);
    NcmPage page(unit);
    page.tap("serverTcp");
    QVERIFY(unit.unit().ncmTest().isRunning());
    page.tap("ncm");
    QCOMPARE(shell(unit).mid(3), QStringList(QStringLiteral("shell killall as_server")));
    QTRY_VERIFY_WITH_TIMEOUT(!unit.unit().ncmTest().isRunning(), 20000);
    // It is none of the test buttons.
    QCOMPARE(page.down(), QStringList(QStringLiteral("S_TCP")));
    QVERIFY(page.find<KvLockButton>("ncm")->isDown());
    page.tap("ncm");
    QCOMPARE(shell(unit).size(), 5);
}

void TestNcmTestView::destructorTakesTheFormOffTheHostAndLetsTheTestRun()
{
    TestUnit unit(ncmSpeed);
    NcmPage page(unit);
    page.tap("clientUdp50");
    const int lines = unit.journal().size();
    RUN_CHECK(page.checkGoesWith(page.view(), {"clientGroup", "output"}));
    QVERIFY(unit.unit().ncmTest().isRunning());
    QCOMPARE(unit.journal().mid(lines), QStringList());
    QCOMPARE(readFile(unit.path(QStringLiteral("/proc/sys/kernel/printk"))), QByteArray("0\n"));
}

FACTORY_TEST_MAIN(TestNcmTestView)
#include "tst_ncmtestview.moc"
