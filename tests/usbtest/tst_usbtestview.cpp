#include "usbtest/usbtestview.h"

#include "customwidget/listrowmodel.h"
#include "customwidget/listview.h"
#include "factorydebug/factorydebugview.h"
#include "service/setupstridconst.h"
#include "support/rowpicture.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "support/tracecapture.h"
#include "usbtest/usbtestmodel.h"

#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

class TestUsbTestView : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void construction();
    void loadsTheStoredModes();
    void constructionTraces();
    void openingAppliesNothing();

    void tapOnATopListRowChangesTheListButSendsNothing_data();
    void tapOnATopListRowChangesTheListButSendsNothing();
    void choice_data();
    void choice();
    void choosingTheCurrentValueSendsAndStoresItAgain();
    void orderWithinOneChoice();
    void rowsAndListsThatDoNotExistDoNothing();
    void afterChoosingUsb1SdpThatRowIsRedAndTheTopListShowsIt();
    void emptyStoreShowsPlatformDefaultsAndMarksTheLiteralOnes();

    void returnGoesBackToTheTopList_data();
    void returnGoesBackToTheTopList();
    void otherIdsAreIgnored();
    void returnOnTheTopListIsIgnoredAndTheMainViewClosesThePage();
    void titlesReachTheStatusBar();
    void newPageStartsOnTheTopListWithTheStoredModes();
    void listGoesWithThePage();
};

namespace
{

/// The page on a screen of its own.
class Page
{
public:
    Page()
        : host(&unit.screen())
        , view(&host)
        , titles(&view, &USBTestView::setTitle)
    {
        host.show();
        QCoreApplication::processEvents();
    }

    ListView *list() { return host.findChild<ListView *>(); }

    void tapRow(int row)
    {
        unit.tap(QPoint(200, 66 + 83 * row + 41));
        QCoreApplication::processEvents();
    }

    QString takeTitle()
    {
        return titles.isEmpty() ? QString() : titles.takeFirst().at(0).toString();
    }

    QStringList calls() const { return unit.journal(QStringLiteral("/^(usb|settings) /")); }

    TestUnit unit;
    QWidget host;
    USBTestView view;
    QSignalSpy titles;
};

/// Whether the row's title, or its right part, has a pixel in the colour of what is current.
bool isRed(Page &page, int row, const QRect &part)
{
    return showsColor(page.unit.screen().grab().toImage(), part.translated(0, 66 + 83 * row),
                      QColor(221, 18, 18));
}

const QRect titlePart(34, 10, 300, 63);
const QRect valuePart(350, 10, 312, 63);

} // namespace

void TestUsbTestView::cleanup()
{
    usbTestListType = UsbTestTopList;
}

void TestUsbTestView::construction()
{
    usbTestListType = UsbTestModes;
    Page page;
    QCOMPARE(page.host.size(), QSize(800, 480));
    QCOMPARE(page.view.parent(), &page.host);
    QCOMPARE(page.list()->geometry(), QRect(0, 66, 800, 414));
    QCOMPARE(page.list()->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QVERIFY(page.list()->isVisible());
    QCOMPARE(page.list()->model()->rowCount(), 3);
    QCOMPARE(usbTestListType, 1);
    QCOMPARE(page.titles.size(), 0);
}

void TestUsbTestView::loadsTheStoredModes()
{
    TestUnit unit;
    unit.unit().settings().setValue(SetupStrIdConst::setupU0BCMode, QStringLiteral("zero"));
    unit.unit().settings().setValue(SetupStrIdConst::setupU1BCMode, QStringLiteral("one"));
    unit.unit().settings().setValue(SetupStrIdConst::setupTestMode, QStringLiteral("test"));
    const USBTestView view(&unit.screen());
    QCOMPARE(curUsb0BCMode, QStringLiteral("zero"));
    QCOMPARE(curUsb1BCMode, QStringLiteral("one"));
    QCOMPARE(curTestMode, QStringLiteral("test"));
}

void TestUsbTestView::constructionTraces()
{
    TestUnit unit;
    unit.unit().usbPorts().setBcMode(1, 2);
    unit.unit().usbPorts().setCertification('T');
    TraceCapture traces;
    {
        const USBTestView view(&unit.screen());
    }
    QStringList texts = traces.texts();
    texts = texts.filter(QRegularExpression(QStringLiteral("^(port0|cur|listview|~)")));
    QCOMPARE(texts,
             QStringList(
                 {QStringLiteral("port0Mode: 0 , port1Mode: 2 , usbCertification: 84"),
                  QStringLiteral("curUsb0BCMode: \"USB 0 CDP MODE\" , curUsb1BCMode: \"USB 1 CDP "
                                 "MODE\" , curTestMode: \"Normal Mode\""),
                  QStringLiteral("listview isHidden: false"), QStringLiteral("~USBTestView")}));
}

void TestUsbTestView::openingAppliesNothing()
{
    Page page;
    QCOMPARE(page.calls(), QStringList());
}

void TestUsbTestView::tapOnATopListRowChangesTheListButSendsNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("list");
    QTest::addColumn<QString>("title");
    QTest::newRow("port 0") << 0 << 2 << QStringLiteral("USB0 BC Model");
    QTest::newRow("port 1") << 1 << 3 << QStringLiteral("USB1 BC Model");
    QTest::newRow("test mode") << 2 << 4 << QStringLiteral("TEST Model");
}

void TestUsbTestView::tapOnATopListRowChangesTheListButSendsNothing()
{
    QFETCH(int, row);
    QFETCH(int, list);
    QFETCH(QString, title);
    Page page;
    page.tapRow(row);
    QCOMPARE(usbTestListType, list);
    QCOMPARE(page.titles.size(), 1);
    QCOMPARE(page.takeTitle(), title);
    QCOMPARE(page.calls(), QStringList());
}

void TestUsbTestView::choice_data()
{
    QTest::addColumn<int>("topRow");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("stored");
    QTest::newRow("port 0 CDP") << 0 << 0 << "usb port 0 CDP"
                                << "setup/usb0BcMode = USB 0 CDP MODE";
    QTest::newRow("port 0 DCP") << 0 << 1 << "usb port 0 DCP"
                                << "setup/usb0BcMode = USB 0 DCP MODE";
    QTest::newRow("port 0 SDP") << 0 << 2 << "usb port 0 SDP"
                                << "setup/usb0BcMode = USB 0 SDP MODE";
    QTest::newRow("port 1 CDP") << 1 << 0 << "usb port 1 CDP"
                                << "setup/usb1BcMode = USB 1 CDP MODE";
    QTest::newRow("port 1 DCP") << 1 << 1 << "usb port 1 DCP"
                                << "setup/usb1BcMode = USB 1 DCP MODE";
    QTest::newRow("port 1 SDP") << 1 << 2 << "usb port 1 SDP"
                                << "setup/usb1BcMode = USB 1 SDP MODE";
    QTest::newRow("normal") << 2 << 0 << "usb certification O"
                            << "setup/usbTestMode = Normal Mode";
    QTest::newRow("USB-IF") << 2 << 1 << "usb certification T"
                            << "setup/usbTestMode = USB-IF Mode";
    QTest::newRow("MFi") << 2 << 2 << "usb certification M"
                         << "setup/usbTestMode = MFI Mode";
}

void TestUsbTestView::choice()
{
    QFETCH(int, topRow);
    QFETCH(int, row);
    QFETCH(QString, call);
    QFETCH(QString, stored);
    Page page;
    page.tapRow(topRow);
    page.titles.clear();
    page.tapRow(row);
    QCOMPARE(page.calls(), QStringList({call, QStringLiteral("settings ") + stored}));
    QCOMPARE(usbTestListType, topRow + 2);
    QCOMPARE(page.titles.size(), 0);
    for (int other = 0; other < 3; ++other) {
        QCOMPARE(isRed(page, other, titlePart), other == row);
    }
}

void TestUsbTestView::choosingTheCurrentValueSendsAndStoresItAgain()
{
    Page page;
    page.tapRow(0);
    page.tapRow(1);
    const QStringList once = page.calls();
    page.tapRow(1);
    QCOMPARE(page.calls(), once + once);
}

void TestUsbTestView::orderWithinOneChoice()
{
    Page page;
    page.tapRow(2);
    QStringList steps;
    connect(page.list()->model(), &QAbstractItemModel::modelAboutToBeReset, &page.view,
            [&steps, &page] { steps = page.calls() + QStringList(curTestMode); });
    TraceCapture traces;
    page.tapRow(2);
    QCOMPARE(steps,
             QStringList({QStringLiteral("usb certification M"),
                          QStringLiteral("settings setup/usbTestMode = MFI Mode"),
                          QStringLiteral("MFI Mode")}));
    QVERIFY(traces.texts().contains(QStringLiteral("Set  \"MFI Mode\"")));
}

void TestUsbTestView::rowsAndListsThatDoNotExistDoNothing()
{
    Page page;
    page.view.listClickedSlot(QModelIndex());
    for (const int list : {0, 5, -1}) {
        usbTestListType = list;
        page.view.listClickedSlot(page.list()->model()->index(0, 0));
        QCOMPARE(usbTestListType, list);
    }
    QCOMPARE(page.titles.size(), 0);
    QCOMPARE(page.calls(), QStringList());

    // Below the last row of every list.
    usbTestListType = UsbTestTopList;
    page.unit.tap(QPoint(200, 400));
    QCOMPARE(usbTestListType, 1);
}

void TestUsbTestView::afterChoosingUsb1SdpThatRowIsRedAndTheTopListShowsIt()
{
    Page page;
    page.tapRow(1);
    page.tapRow(2);
    QVERIFY(!isRed(page, 0, titlePart));
    QVERIFY(!isRed(page, 1, titlePart));
    QVERIFY(isRed(page, 2, titlePart));

    page.view.statusBarButtonClicked(QStringLiteral("return"));
    QCoreApplication::processEvents();
    const QModelIndex second = page.list()->model()->index(1, 0);
    QCOMPARE(second.data(ListRowModel::ValueRole).toString(), QStringLiteral("USB 1 SDP MODE"));
    QVERIFY(isRed(page, 1, valuePart));
    QVERIFY(!isRed(page, 1, titlePart));
}

void TestUsbTestView::emptyStoreShowsPlatformDefaultsAndMarksTheLiteralOnes()
{
    Page page;
    const QAbstractItemModel *model = page.list()->model();
    const char *const defaults[] = {"USB 0 SDP MODE", "USB 1 SDP MODE", "USB-IF Mode"};
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(model->index(row, 0).data(ListRowModel::ValueRole).toString(),
                 QString::fromLatin1(defaults[row]));
    }
    for (int list = 0; list < 3; ++list) {
        page.tapRow(list);
        QVERIFY(isRed(page, 0, titlePart));
        QVERIFY(!isRed(page, 1, titlePart));
        QVERIFY(!isRed(page, 2, titlePart));
        page.view.statusBarButtonClicked(QStringLiteral("return"));
        QCoreApplication::processEvents();
    }
}

void TestUsbTestView::returnGoesBackToTheTopList_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("port 0") << 0;
    QTest::newRow("port 1") << 1;
    QTest::newRow("test mode") << 2;
}

void TestUsbTestView::returnGoesBackToTheTopList()
{
    QFETCH(int, row);
    Page page;
    page.tapRow(row);
    page.titles.clear();
    QSignalSpy reset(page.list()->model(), &QAbstractItemModel::modelReset);
    page.view.statusBarButtonClicked(QStringLiteral("return"));
    QCOMPARE(usbTestListType, 1);
    QCOMPARE(page.takeTitle(), QStringLiteral("USB Test"));
    QCOMPARE(reset.size(), 1);
}

void TestUsbTestView::otherIdsAreIgnored()
{
    Page page;
    page.tapRow(0);
    page.titles.clear();
    for (const char *id : {"Return", "RETURN", "exit", ""}) {
        page.view.statusBarButtonClicked(QString::fromLatin1(id));
        QCOMPARE(usbTestListType, 2);
    }
    QCOMPARE(page.titles.size(), 0);
}

void TestUsbTestView::returnOnTheTopListIsIgnoredAndTheMainViewClosesThePage()
{
    {
        Page page;
        page.view.statusBarButtonClicked(QStringLiteral("return"));
        QCOMPARE(usbTestListType, 1);
        QCOMPARE(page.titles.size(), 0);
    }
    TestUnit unit;
    FactoryDebugView view(unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY));
    view.show();
    view.buttonClicked(QStringLiteral("usbtest"));
    QVERIFY(view.findChild<USBTestView *>() != nullptr);
    unit.tap(QPoint(40, 32));
    QVERIFY(view.findChild<USBTestView *>() == nullptr);
    QCOMPARE(view.findChild<QLabel *>()->text(), QStringLiteral("Factory"));
}

void TestUsbTestView::titlesReachTheStatusBar()
{
    TestUnit unit;
    FactoryDebugView view(unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY));
    view.show();
    view.buttonClicked(QStringLiteral("usbtest"));
    const QLabel *title = view.findChild<QLabel *>();
    QCOMPARE(title->text(), QStringLiteral("USB Test"));
    QCoreApplication::processEvents();
    unit.tap(QPoint(200, 100));
    QCOMPARE(title->text(), QStringLiteral("USB0 BC Model"));
    unit.tap(QPoint(40, 32));
    QCOMPARE(title->text(), QStringLiteral("USB Test"));
}

void TestUsbTestView::newPageStartsOnTheTopListWithTheStoredModes()
{
    Page page;
    page.tapRow(1);
    page.tapRow(1);
    curUsb1BCMode.clear();
    const USBTestView second(&page.host);
    QCOMPARE(usbTestListType, 1);
    QCOMPARE(curUsb1BCMode, QStringLiteral("USB 1 DCP MODE"));
}

void TestUsbTestView::listGoesWithThePage()
{
    TestUnit unit;
    QWidget host(&unit.screen());
    host.show();
    auto *view = new USBTestView(&host);
    const QPointer<ListView> list(host.findChild<ListView *>());
    delete view;
    QVERIFY(list->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!list);
}

FACTORY_TEST_MAIN(TestUsbTestView)
#include "tst_usbtestview.moc"
