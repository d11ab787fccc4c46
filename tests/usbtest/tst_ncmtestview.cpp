#include "usbtest/ncmtestview.h"

#include "formhost.h"

#include "kvwidget/kvlockbutton.h"
#include "support/runcheck.h"
#include "support/testmain.h"

#include <QGroupBox>
#include <QLabel>
#include <QTextBrowser>
#include <QtTest>

class TestNcmTestView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void geometry_data();
    void geometry();
    void texts();
    void buttonFaces_data();
    void buttonFaces();
    void buttonIds();
    void noticesStyleSheetCannotBeParsedAndIsWarnedOfOnce();
    void noticeIsLightOnDark();
    void outputIsEmptyTransparentAndWithoutScrollBar();
    void nothingOverlaps();

    void openingRunsTheThreeCommandsInTheirOrder();
    void openingThePageTwiceRunsTheThreeStartUpCommandsTwice();
    void openingStopsAServerThatStillRuns();
    void openingReachesTheUnit();

    void pressReleasesTheOthers_data();
    void pressReleasesTheOthers();
    void pressWithAllDownReleasesTheOthers_data();
    void pressWithAllDownReleasesTheOthers();
    void udp50WhileServerTcpIsDownReleasesItAndCallsOnlyTheClient();
    void pressingAClientButtonTwiceCallsItsOperationTwice();
    void unknownIdsDoNothing();
    void fingerLiftedElsewhereDoesNothing();
    void refusedOperationIsNotShown();

    void ncmOnEndsTheServer();
    void speedOffDoesNothing();

    void destructorTakesTheFormOffTheHostAndLetsTheTestRun();
};

namespace
{

const double fast = 10;

struct Button
{
    const char *name;
    const char *id;
    const char *call; ///< as the journal has it
};

const Button testButtons[] = {
    {"clientUdp50", "C_UPD50", "ncm start udp client 50"},
    {"clientUdp100", "C_UPD100", "ncm start udp client 100"},
    {"clientTcp", "C_TCP", "ncm start tcp client"},
    {"clientStop", "C_STOP", "ncm stop"},
    {"serverUdp", "S_UDP", "ncm start udp server"},
    {"serverTcp", "S_TCP", "ncm start tcp server"},
    {"serverStop", "S_STOP", "ncm stop"},
};

/// The page on a visible host that fills the unit's screen. Fails the test that lacks the one
/// warning which a page gives for its notice's style sheet.
class Page : public FormHost
{
public:
    explicit Page(TestUnit &unit)
        : FormHost(unit)
    {
        // Qt names the label by its address.
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral(
                                 "^Could not parse stylesheet of object QLabel\\(0x[0-9a-f]+")));
        m_view = new NCMTestView(host());
    }

    NCMTestView *view() { return m_view; }

    void tap(const char *name) { m_unit.tap(find<QWidget>(name)); }

    /// Ids of the test buttons that are down.
    QStringList down() const
    {
        QStringList ids;
        for (const Button &button : testButtons) {
            if (find<KvLockButton>(button.name)->isDown()) {
                ids.append(QLatin1String(button.id));
            }
        }
        return ids;
    }

private:
    NCMTestView *m_view;
};

QStringList calls(const TestUnit &unit)
{
    return unit.journal(QStringLiteral("/^ncm (start|stop)/"));
}

QStringList shell(const TestUnit &unit)
{
    return unit.journal(QStringLiteral("/^shell /"));
}

const QStringList startUpCommands{QStringLiteral("shell logset ALOG_OUTPUT n"),
                                  QStringLiteral("shell echo 0 > /proc/sys/kernel/printk"),
                                  QStringLiteral("shell killall as_server")};

int warnings = 0;

void countWarnings(QtMsgType type, const QMessageLogContext &, const QString &)
{
    warnings += type == QtWarningMsg;
}

void addPairs()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("pressed");
    const int count = int(sizeof testButtons / sizeof *testButtons);
    for (int pressed = 0; pressed < count; ++pressed) {
        for (int before = -1; before < count; ++before) {
            QTest::addRow("%s after %s", testButtons[pressed].id,
                          before < 0 ? "none" : testButtons[before].id)
                << before << pressed;
        }
    }
}

} // namespace

void TestNcmTestView::initTestCase()
{
    applyUnitsAppearance();
}

void TestNcmTestView::geometry_data()
{
    QTest::addColumn<QRect>("geometry");
    QTest::newRow("notice") << QRect(0, 66, 800, 30);
    QTest::newRow("speedGroup") << QRect(10, 112, 236, 90);
    QTest::newRow("speed") << QRect(13, 24, 210, 60);
    QTest::newRow("ncmGroup") << QRect(250, 112, 236, 90);
    QTest::newRow("ncm") << QRect(13, 24, 210, 60);
    QTest::newRow("clientGroup") << QRect(10, 207, 476, 153);
    QTest::newRow("clientUdp100") << QRect(253, 24, 210, 60);
    QTest::newRow("clientTcp") << QRect(10, 88, 210, 60);
    QTest::newRow("clientStop") << QRect(253, 88, 210, 60);
    QTest::newRow("clientUdp50") << QRect(13, 24, 210, 60);
    QTest::newRow("serverGroup") << QRect(10, 365, 476, 90);
    QTest::newRow("serverUdp") << QRect(13, 24, 140, 60);
    QTest::newRow("serverTcp") << QRect(168, 24, 140, 60);
    QTest::newRow("serverStop") << QRect(323, 24, 140, 60);
    QTest::newRow("output") << QRect(498, 112, 291, 360);
}

void TestNcmTestView::geometry()
{
    TestUnit unit(fast);
    Page page(unit);
    const auto *widget = page.find<QWidget>(QTest::currentDataTag());
    QTEST(widget->geometry(), "geometry");
    QVERIFY(widget->isVisible());
}

void TestNcmTestView::texts()
{
    TestUnit unit(fast);
    Page page(unit);
    QCOMPARE(page.find<QLabel>("notice")->text(),
             QStringLiteral("Connect the accessory to an Apple device that client test"));
    QCOMPARE(int(page.find<QLabel>("notice")->alignment() & Qt::AlignHorizontal_Mask),
             int(Qt::AlignHCenter));
    QCOMPARE(page.find<QGroupBox>("speedGroup")->title(), QStringLiteral("USB Speed SW"));
    QCOMPARE(page.find<QGroupBox>("ncmGroup")->title(), QStringLiteral("NCM SW"));
    QCOMPARE(page.find<QGroupBox>("clientGroup")->title(), QStringLiteral("Client"));
    QCOMPARE(page.find<QGroupBox>("serverGroup")->title(), QStringLiteral("Server"));
    const QPair<const char *, const char *> buttons[] = {
        {"speed", "off"},     {"ncm", "NCM On"},      {"clientUdp100", "UDP 100"},
        {"clientTcp", "TCP"}, {"clientStop", "Stop"}, {"clientUdp50", "UDP 50"},
        {"serverUdp", "UDP"}, {"serverTcp", "TCP"},   {"serverStop", "Stop"},
    };
    for (const auto &button : buttons) {
        QCOMPARE(page.find<KvLockButton>(button.first)->displayText(),
                 QString::fromLatin1(button.second));
    }
}

void TestNcmTestView::buttonFaces_data()
{
    QTest::addColumn<int>("width");
    for (const char *name :
         {"speed", "ncm", "clientUdp50", "clientUdp100", "clientTcp", "clientStop"}) {
        QTest::newRow(name) << 210;
    }
    for (const char *name : {"serverUdp", "serverTcp", "serverStop"}) {
        QTest::newRow(name) << 140;
    }
}

void TestNcmTestView::buttonFaces()
{
    QFETCH(int, width);
    TestUnit unit(fast);
    Page page(unit);
    const auto *button = page.find<KvLockButton>(QTest::currentDataTag());
    const QString image = QStringLiteral(":/images/btn%1x60_%2.png").arg(width);
    QCOMPARE(button->normalImage().toImage(), QPixmap(image.arg(QLatin1Char('n'))).toImage());
    QCOMPARE(button->pressImage().toImage(), QPixmap(image.arg(QLatin1Char('p'))).toImage());
    QCOMPARE(button->textSize(), 24);
    QCOMPARE(int(button->showMode()), 1);
    QVERIFY(!button->isDown());
}

void TestNcmTestView::buttonIds()
{
    TestUnit unit(fast);
    Page page(unit);
    for (const Button &button : testButtons) {
        QCOMPARE(page.find<KvLockButton>(button.name)->buttonID(), QString::fromLatin1(button.id));
    }
    QCOMPARE(page.find<KvLockButton>("speed")->buttonID(), QString());
    QCOMPARE(page.find<KvLockButton>("ncm")->buttonID(), QString());
}

void TestNcmTestView::noticesStyleSheetCannotBeParsedAndIsWarnedOfOnce()
{
    TestUnit unit(fast);
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

void TestNcmTestView::noticeIsLightOnDark()
{
    TestUnit unit(fast);
    Page page(unit);
    const QImage image = page.find<QLabel>("notice")->grab().toImage();
    int lightest = 0;
    int darkest = 255;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            lightest = qMax(lightest, image.pixelColor(x, y).lightness());
            darkest = qMin(darkest, image.pixelColor(x, y).lightness());
        }
    }
    QVERIFY2(lightest > 200, qPrintable(QString::number(lightest)));
    QVERIFY2(darkest < 40, qPrintable(QString::number(darkest)));
}

void TestNcmTestView::outputIsEmptyTransparentAndWithoutScrollBar()
{
    TestUnit unit(fast);
    Page page(unit);
    const auto *output = page.find<QTextBrowser>("output");
    QCOMPARE(output->toPlainText(), QString());
    QCOMPARE(output->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QPalette palette = page.host()->palette();
    palette.setColor(QPalette::Window, QColor(1, 2, 3));
    page.host()->setPalette(palette);
    page.host()->setAutoFillBackground(true);
    const QImage image = page.host()->grab().toImage();
    QCOMPARE(image.pixelColor(640, 300), QColor(1, 2, 3));
}

void TestNcmTestView::nothingOverlaps()
{
    TestUnit unit(fast);
    Page page(unit);
    const auto widgets = page.host()->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        QVERIFY(widget->parentWidget()->rect().contains(widget->geometry())
                || widget->parentWidget()->inherits("QAbstractScrollArea"));
    }
    RUN_CHECK(page.checkNothingOverlaps());
}

void TestNcmTestView::openingRunsTheThreeCommandsInTheirOrder()
{
    TestUnit unit(fast);
    Page page(unit);
    QCOMPARE(unit.journal(), startUpCommands);
}

void TestNcmTestView::openingThePageTwiceRunsTheThreeStartUpCommandsTwice()
{
    TestUnit unit(fast);
    {
        Page page(unit);
    }
    Page page(unit);
    QCOMPARE(unit.journal(), startUpCommands + startUpCommands);
}

void TestNcmTestView::openingStopsAServerThatStillRuns()
{
    TestUnit unit(fast);
    QVERIFY(unit.unit().ncmTest().start(hardware::NcmTest::UdpServer));
    Page page(unit);
    QTRY_VERIFY_WITH_TIMEOUT(!unit.unit().ncmTest().isRunning(), 20000);
    QCOMPARE(page.down(), QStringList());
}

void TestNcmTestView::openingReachesTheUnit()
{
    TestUnit unit(fast);
    Page page(unit);
    QCOMPARE(readFile(unit.path(QStringLiteral("/logset/ALOG_OUTPUT"))), QByteArray("n\n"));
    QCOMPARE(readFile(unit.path(QStringLiteral("/proc/sys/kernel/printk"))), QByteArray("0\n"));
}

void TestNcmTestView::pressReleasesTheOthers_data()
{
    addPairs();
}

void TestNcmTestView::pressReleasesTheOthers()
{
    QFETCH(int, before);
    QFETCH(int, pressed);
    TestUnit unit(fast);
    Page page(unit);
    QStringList expected;
    if (before >= 0) {
        page.tap(testButtons[before].name);
        expected.append(QString::fromLatin1(testButtons[before].call));
        QCOMPARE(page.down(), QStringList(QString::fromLatin1(testButtons[before].id)));
    }
    page.tap(testButtons[pressed].name);
    expected.append(QString::fromLatin1(testButtons[pressed].call));
    // Also when it was down already: then it stays down.
    QCOMPARE(page.down(), QStringList(QString::fromLatin1(testButtons[pressed].id)));
    QCOMPARE(calls(unit), expected);
    QCOMPARE(shell(unit), startUpCommands);
    const bool isStop = QByteArray(testButtons[pressed].call) == "ncm stop";
    QCOMPARE(unit.unit().ncmTest().isRunning(), !isStop);
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
    TestUnit unit(fast);
    Page page(unit);
    for (const Button &button : testButtons) {
        page.find<KvLockButton>(button.name)->setIsDown(true);
    }
    page.tap(testButtons[pressed].name);
    QCOMPARE(page.down(), QStringList(QString::fromLatin1(testButtons[pressed].id)));
    QCOMPARE(calls(unit), QStringList(QString::fromLatin1(testButtons[pressed].call)));
}

void TestNcmTestView::udp50WhileServerTcpIsDownReleasesItAndCallsOnlyTheClient()
{
    TestUnit unit(fast);
    Page page(unit);
    page.tap("serverTcp");
    QCOMPARE(page.down(), QStringList(QStringLiteral("S_TCP")));
    const int lines = calls(unit).size();
    page.tap("clientUdp50");
    QCOMPARE(page.down(), QStringList(QStringLiteral("C_UPD50")));
    QCOMPARE(calls(unit).mid(lines), QStringList(QStringLiteral("ncm start udp client 50")));
}

void TestNcmTestView::pressingAClientButtonTwiceCallsItsOperationTwice()
{
    TestUnit unit(fast);
    Page page(unit);
    page.tap("clientTcp");
    page.tap("clientTcp");
    QCOMPARE(calls(unit),
             QStringList(
                 {QStringLiteral("ncm start tcp client"), QStringLiteral("ncm start tcp client")}));
    QCOMPARE(page.down(), QStringList(QStringLiteral("C_TCP")));
}

void TestNcmTestView::unknownIdsDoNothing()
{
    TestUnit unit(fast);
    Page page(unit);
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

void TestNcmTestView::fingerLiftedElsewhereDoesNothing()
{
    TestUnit unit(fast);
    Page page(unit);
    page.tap("serverStop");
    const int lines = unit.journal().size();
    const auto *button = page.find<KvLockButton>("clientTcp");
    unit.press(button->mapTo(&unit.screen(), button->rect().center()));
    unit.move(QPoint(700, 300));
    unit.release(QPoint(700, 300));
    QCOMPARE(page.down(), QStringList(QStringLiteral("S_STOP")));
    QCOMPARE(unit.journal().mid(lines), QStringList());
}

void TestNcmTestView::refusedOperationIsNotShown()
{
    TestUnit unit(fast);
    unit.unit().ncmTest().refuseStarts(true);
    Page page(unit);
    page.tap("clientUdp100");
    QCOMPARE(page.down(), QStringList(QStringLiteral("C_UPD100")));
    QCOMPARE(page.find<QTextBrowser>("output")->toPlainText(), QString());
    QVERIFY(!unit.unit().ncmTest().isRunning());
}

void TestNcmTestView::ncmOnEndsTheServer()
{
    TestUnit unit(fast);
    Page page(unit);
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

void TestNcmTestView::speedOffDoesNothing()
{
    TestUnit unit(fast);
    Page page(unit);
    const int lines = unit.journal().size();
    page.tap("speed");
    QCOMPARE(unit.journal().mid(lines), QStringList());
    QCOMPARE(page.down(), QStringList());
}

void TestNcmTestView::destructorTakesTheFormOffTheHostAndLetsTheTestRun()
{
    TestUnit unit(fast);
    Page page(unit);
    page.tap("clientUdp50");
    const int lines = unit.journal().size();
    RUN_CHECK(page.checkGoesWith(page.view(), {"clientGroup", "output"}));
    QVERIFY(unit.unit().ncmTest().isRunning());
    QCOMPARE(unit.journal().mid(lines), QStringList());
    QCOMPARE(readFile(unit.path(QStringLiteral("/proc/sys/kernel/printk"))), QByteArray("0\n"));
}

FACTORY_TEST_MAIN(TestNcmTestView)
#include "tst_ncmtestview.moc"
