#include "usbtest/usbtestview.h"

#include "customwidget/listrowmodel.h"
#include "customwidget/listview.h"
#include "factorydebug/factorydebugview.h"
#include "support/rowpicture.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "support/tracecapture.h"
#include "usbtest/usbtestmodel.h"

#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

class TestUsbTestView : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void constructionTraces();

    void tapOnATopListRowChangesTheListButSendsNothing_data();
    void tapOnATopListRowChangesTheListButSendsNothing();
    void choosingTheCurrentValueSendsAndStoresItAgain();
    void rowsAndListsThatDoNotExistDoNothing();
    void afterChoosingUsb1SdpThatRowIsRedAndTheTopListShowsIt();
    void emptyStoreShowsPlatformDefaultsAndMarksTheLiteralOnes();

    void otherIdsAreIgnored();
    void returnOnTheTopListIsIgnoredAndTheMainViewClosesThePage();
    void titlesReachTheStatusBar();
    void newPageStartsOnTheTopListWithTheStoredModes();
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
        , resets(list()->model(), &QAbstractItemModel::modelReset)
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
    QSignalSpy resets; ///< each of them paints the list anew
};

/// Whether the row's title, or its right part, has a pixel in the colour of what is current.
bool isRed(Page &page, int row, const QRect &part)
{
    return showsColor(page.unit.screen().grab().toImage(), part.translated(0, 66 + 83 * row),
                      QColor(221, 18, 18));
}

constexpr QRect titlePart(34, 10, 300, 63);
constexpr QRect valuePart(350, 10, 312, 63);

} // namespace

void TestUsbTestView::cleanup()
{
    usbTestListType = UsbTestTopList;
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
    QCOMPARE(page.resets.size(), 1);
    QCOMPARE(page.calls(), QStringList());
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
    QCOMPARE(page.resets.size(), 2);
    QVERIFY(!isRed(page, 0, titlePart));
    QVERIFY(!isRed(page, 1, titlePart));
    QVERIFY(isRed(page, 2, titlePart));

    page.view.statusBarButtonClicked(QStringLiteral("return"));
    QCOMPARE(page.resets.size(), 3);
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

FACTORY_TEST_MAIN(TestUsbTestView)
#include "tst_usbtestview.moc"
