#include "usbtest/ncmtestview.h"

#include "ncmpage.h"

#include "kvwidget/kvlockbutton.h"
#include "support/runcheck.h"
#include "support/testmain.h"

#include <QGroupBox>
#include <QLabel>
#include <QTextBrowser>
#include <QtTest>

class TestNcmTestViewForm : public QObject
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
};

namespace
{

int warnings = 0;

void countWarnings(QtMsgType type, const QMessageLogContext &, const QString &)
{
    warnings += type == QtWarningMsg;
}

} // namespace

void TestNcmTestViewForm::initTestCase()
{
    applyUnitsAppearance();
}

void TestNcmTestViewForm::geometry_data()
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

void TestNcmTestViewForm::geometry()
{
    TestUnit unit(fast);
    Page page(unit);
    const auto *widget = page.find<QWidget>(QTest::currentDataTag());
    QTEST(widget->geometry(), "geometry");
    QVERIFY(widget->isVisible());
}

void TestNcmTestViewForm::texts()
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

void TestNcmTestViewForm::buttonFaces_data()
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

void TestNcmTestViewForm::buttonFaces()
{
    QFETCH(int, width);
    TestUnit unit(fast);
    Page page(unit);
    const auto *button = page.find<KvLockButton>(QTest::currentDataTag());
    const QString image = QStringLiteral(":/images/btn%1x60_%2.png").arg(width);
    QCOMPARE(button->property("normalImage").value<QPixmap>().toImage(),
             QPixmap(image.arg(QLatin1Char('n'))).toImage());
    QCOMPARE(button->property("pressImage").value<QPixmap>().toImage(),
             QPixmap(image.arg(QLatin1Char('p'))).toImage());
    QCOMPARE(button->property("textSize").value<int>(), 24);
    QCOMPARE(int(button->property("showMode").value<KvIconButton::ShowMode>()), 1);
    QVERIFY(!button->isDown());
}

void TestNcmTestViewForm::buttonIds()
{
    TestUnit unit(fast);
    Page page(unit);
    for (const Button &button : testButtons) {
        QCOMPARE(page.find<KvLockButton>(button.name)->buttonID(), QString::fromLatin1(button.id));
    }
    QCOMPARE(page.find<KvLockButton>("speed")->buttonID(), QString());
    QCOMPARE(page.find<KvLockButton>("ncm")->buttonID(), QString());
}

void TestNcmTestViewForm::noticesStyleSheetCannotBeParsedAndIsWarnedOfOnce()
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

void TestNcmTestViewForm::noticeIsLightOnDark()
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

void TestNcmTestViewForm::outputIsEmptyTransparentAndWithoutScrollBar()
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

void TestNcmTestViewForm::nothingOverlaps()
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

FACTORY_TEST_MAIN(TestNcmTestViewForm)
#include "tst_ncmtestview_form.moc"
