#include "factorydebug/factorydebugview.h"
#include "factorydebug/statusbar.h"
#include "usbtest/usbtestview.h"

#include "kvappframework/activitymanager.h"
#include "kvappframework/simmodulemanager.h"
#include "kvwidget/kvbackgroundimage.h"
#include "kvwidget/kviconbutton.h"
#include "kvwidget/popupview.h"
#include "service/simmediaplaymodule.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "support/tracecapture.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QtTest>

#include <algorithm>
#include <iterator>

using namespace kvappframework;

class TestFactoryDebugView : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void menuButton_data();
    void menuButton();
    void menuButtonsKeepTheirOrder();
    void paintsItsColour();

    void opensAPage_data();
    void opensAPage();
    void returnDeletesThePage_data();
    void returnDeletesThePage();
    void returnAfterAPageHasDeletedItself_data();
    void returnAfterAPageHasDeletedItself();
    void anotherPageDeletesTheFirst();
    void pressingAButtonAgainCreatesAFreshPage();
    void pagesAreLeftInTheirOrder();
    void openPageGoesWithTheView();

    void returnWithNoPageOpenLeavesTheMenuAndTheStatusBar();
    void returnInASubListGoesBackInsideThePage();
    void gpsPressedTwiceMakesTwoPages();
    void gpsLeavesTheMenuAndTheOpenPage();
    void unknownIdIsIgnored_data();
    void unknownIdIsIgnored();
    void exitAsksForTheClose();

    void captureTwiceShowsBothTextsInTheSamePopup();
    void captureStartsFromTheStoredState();
    void captureNoticeGoesAfterTwoSeconds();
    void captureNoticeOutlivesTheView();
    void shadeCoversTheViewAndStays();

    void copyBtsnoopTakesTheLastDevice();
    void copyBtsnoopWithoutStorageDoesNothing();
    void startUsbTestInItsOrder();
    void startUsbTestWithoutStorageNeitherClosesNorStarts();
    void startUsbTestWithoutMediaplayGoesOn();
    void startUsbTestUsesNothingOfTheViewAfterTheClose();

    void traces();
};

namespace
{

/// The menu as the technician sees it: index, label, id, position.
struct MenuEntry
{
    const char *label;
    const char *id;
    QPoint position;
};

const MenuEntry menu[] = {
    {"USB Test", "usbtest", {65, 90}},
    {"USB Eye", "usbeye", {295, 90}},
    {"NCM Test", "ncmtest", {525, 90}},
    {"KeyColor", "keycolor", {65, 170}},
    {"Vendordata", "vendordata", {295, 170}},
    {"GPS Update", "gps", {525, 170}},
    {"ALS Test", "als", {65, 250}},
    {"Product", "pdtVer", {295, 250}},
    {"SysCtrl", "sysCtrl", {525, 250}},
    {"Panel Config", "idPanel", {65, 330}},
    {"Copy Btsnoop", "idCopyBtsnoop", {295, 330}},
    {"Capture", "idCapture", {525, 330}},
    {"Start USB Test", "startUSBTest", {65, 410}},
};

QPoint menuPoint(const char *id)
{
    for (const MenuEntry &entry : menu) {
        if (qstrcmp(entry.id, id) == 0) {
            return entry.position + QPoint(105, 30);
        }
    }
    qFatal("no menu button %s", id);
}

const QPoint returnPoint(40, 32);
const QPoint exitPoint(760, 32);

/// Pages put buttons of their own on the view; those of the menu have the menu's ids.
QList<KvIconButton *> menuButtons(const FactoryDebugView &view)
{
    QList<KvIconButton *> buttons;
    const auto all = view.findChildren<KvIconButton *>(QString(), Qt::FindDirectChildrenOnly);
    std::copy_if(all.cbegin(), all.cend(), std::back_inserter(buttons), [](KvIconButton *button) {
        return std::any_of(std::begin(menu), std::end(menu), [button](const MenuEntry &entry) {
            return button->buttonID() == QLatin1String(entry.id);
        });
    });
    return buttons;
}

QString title(const FactoryDebugView &view)
{
    return view.findChild<StatusBar *>()->findChild<QLabel *>()->text();
}

/// The page of that class that the view hosts, or null.
QObject *page(const FactoryDebugView &view, const QByteArray &className)
{
    const QObjectList children = view.children();
    for (QObject *child : children) {
        if (child->metaObject()->className() == className) {
            return child;
        }
    }
    return nullptr;
}

QWidgetList gpsPages()
{
    QWidgetList pages;
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget *widget : all) {
        if (widget->inherits("CGpsComPage")) {
            pages.append(widget);
        }
    }
    return pages;
}

void addPages()
{
    QTest::addColumn<QByteArray>("id");
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QString>("title");
    const auto row = [](const char *id, const char *className, const char *title) {
        QTest::newRow(id) << QByteArray(id) << QByteArray(className) << QString::fromLatin1(title);
    };
    row("usbtest", "USBTestView", "USB Test");
    row("usbeye", "USBEyeTestView", "USB Eye Test");
    row("ncmtest", "NCMTestView", "NCM Test");
    row("keycolor", "CSetupKeyLight", "KeyColor Set");
    row("vendordata", "VendorDataView", "VendorData Set");
    row("als", "CSetupALSTest", "ALS Test");
    row("pdtVer", "CDevsInfoPage", "Product Version");
    row("sysCtrl", "CSysCtrlPage", "System Control");
    row("idPanel", "CSetupPanelForm", "Panel Config");
}

/// A manager that writes down what it is asked and deletes the view while it is asked.
class DeletingManager : public ActivityManager
{
public:
    explicit DeletingManager(QWidget *view)
        : m_view(view)
    {
    }

    int startActivity(const QString &name, int argument) override
    {
        calls.append(QStringLiteral("start %1 %2").arg(name).arg(argument));
        return 0;
    }

    int closeActivity(const QString &name) override
    {
        calls.append(QStringLiteral("close %1").arg(name));
        delete m_view;
        return 0;
    }

    QStringList calls;

private:
    QPointer<QWidget> m_view;
};

/// A visible view on the unit's screen.
struct ViewOnScreen
{
    explicit ViewOnScreen(double timeFactor = 1.0)
        : unit(timeFactor)
        , view(new FactoryDebugView(unit.framework().layer(UI_HERARCHY_ACTIVITY)))
    {
        view->show();
    }

    // They speak with the unit to their end.
    ~ViewOnScreen() { qDeleteAll(gpsPages()); }

    void tap(const char *menuId) { unit.tap(menuPoint(menuId)); }

    TestUnit unit;
    QPointer<FactoryDebugView> view;
};

} // namespace

void TestFactoryDebugView::cleanup()
{
    usbTestListType = 1;
}

void TestFactoryDebugView::menuButton_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QPoint>("position");
    int index = 0;
    for (const MenuEntry &entry : menu) {
        QTest::newRow(entry.id) << index++ << QString::fromLatin1(entry.label)
                                << QString::fromLatin1(entry.id) << entry.position;
    }
}

void TestFactoryDebugView::menuButton()
{
    QFETCH(int, index);
    QFETCH(QString, label);
    QFETCH(QString, id);
    QFETCH(QPoint, position);
    const ViewOnScreen shown;

    KvIconButton *button = menuButtons(*shown.view).at(index);
    QCOMPARE(button->geometry(), QRect(position, QSize(210, 60)));
    QCOMPARE(button->displayText(), label);
    QCOMPARE(button->buttonID(), id);
    QVERIFY(button->isVisible());
}

void TestFactoryDebugView::menuButtonsKeepTheirOrder()
{
    const ViewOnScreen shown;
    QCOMPARE(menuButtons(*shown.view).size(), 13);
}

void TestFactoryDebugView::paintsItsColour()
{
    const ViewOnScreen shown;
    const QImage image = shown.view->grab().toImage();
    QCOMPARE(image.size(), QSize(800, 480));
    for (const QPoint &point : {QPoint(0, 66), QPoint(799, 479), QPoint(400, 445)}) {
        QCOMPARE(image.pixelColor(point), QColor(11, 12, 13));
    }
}

void TestFactoryDebugView::opensAPage_data()
{
    addPages();
}

void TestFactoryDebugView::opensAPage()
{
    QFETCH(QByteArray, id);
    QFETCH(QByteArray, className);
    QFETCH(QString, title);
    ViewOnScreen shown;

    shown.tap(id.constData());

    QVERIFY(page(*shown.view, className) != nullptr);
    QCOMPARE(::title(*shown.view), title);
    for (KvIconButton *button : menuButtons(*shown.view)) {
        QVERIFY(!button->isVisible());
    }
    if (const auto *widget = qobject_cast<QWidget *>(page(*shown.view, className))) {
        QVERIFY(widget->isVisible());
        QCOMPARE(widget->pos(), QPoint(0, 66));
    }
}

void TestFactoryDebugView::returnDeletesThePage_data()
{
    addPages();
}

void TestFactoryDebugView::returnDeletesThePage()
{
    QFETCH(QByteArray, id);
    QFETCH(QByteArray, className);
    ViewOnScreen shown;
    shown.tap(id.constData());
    const QPointer<QObject> opened = page(*shown.view, className);

    shown.unit.tap(returnPoint);

    QVERIFY(opened.isNull());
    QCOMPARE(title(*shown.view), QStringLiteral("Factory"));
    for (KvIconButton *button : menuButtons(*shown.view)) {
        QVERIFY(button->isVisible());
    }
}

void TestFactoryDebugView::returnAfterAPageHasDeletedItself_data()
{
    QTest::addColumn<QByteArray>("id");
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QByteArray>("slot");
    const auto row = [](const char *id, const char *className, const char *slot) {
        QTest::addRow("%s, %s", id, slot)
            << QByteArray(id) << QByteArray(className) << QByteArray(slot);
    };
    row("idPanel", "CSetupPanelForm", "clickedReturn");
    row("idPanel", "CSetupPanelForm", "clickedExit");
    // The others have no such slot of their own, but every object has this one.
    row("usbtest", "USBTestView", "deleteLater");
    row("usbeye", "USBEyeTestView", "deleteLater");
    row("ncmtest", "NCMTestView", "deleteLater");
    row("keycolor", "CSetupKeyLight", "deleteLater");
    row("vendordata", "VendorDataView", "deleteLater");
    row("als", "CSetupALSTest", "deleteLater");
    row("pdtVer", "CDevsInfoPage", "deleteLater");
    row("sysCtrl", "CSysCtrlPage", "deleteLater");
}

void TestFactoryDebugView::returnAfterAPageHasDeletedItself()
{
    QFETCH(QByteArray, id);
    QFETCH(QByteArray, className);
    QFETCH(QByteArray, slot);
    ViewOnScreen shown;
    shown.tap(id.constData());
    const QPointer<QObject> opened = page(*shown.view, className);
    QVERIFY(QMetaObject::invokeMethod(opened, slot.constData()));
    QTRY_VERIFY(opened.isNull());

    shown.unit.tap(returnPoint);

    QCOMPARE(title(*shown.view), QStringLiteral("Factory"));
    for (KvIconButton *button : menuButtons(*shown.view)) {
        QVERIFY(button->isVisible());
    }
    shown.tap(id.constData());
    QVERIFY(page(*shown.view, className) != nullptr);
}

void TestFactoryDebugView::anotherPageDeletesTheFirst()
{
    ViewOnScreen shown;
    shown.tap("keycolor");
    const QPointer<QObject> first = page(*shown.view, "CSetupKeyLight");
    shown.view->buttonClicked(QStringLiteral("idPanel"));
    QVERIFY(first.isNull());
    QVERIFY(page(*shown.view, "CSetupPanelForm") != nullptr);
    QCOMPARE(title(*shown.view), QStringLiteral("Panel Config"));
}

void TestFactoryDebugView::pressingAButtonAgainCreatesAFreshPage()
{
    ViewOnScreen shown;
    shown.tap("als");
    const QPointer<QObject> first = page(*shown.view, "CSetupALSTest");
    shown.view->buttonClicked(QStringLiteral("als"));
    QVERIFY(first.isNull());
    QVERIFY(page(*shown.view, "CSetupALSTest") != nullptr);
}

void TestFactoryDebugView::pagesAreLeftInTheirOrder()
{
    ViewOnScreen shown;
    const TraceCapture capture;
    shown.view->hideAllSubPage();
    QCOMPARE(
        capture.texts(),
        QStringList({"hideUsbTestView", "hideUsbEyeTestView", "hideNCMTestView", "hideKeyColorView",
                     "hideVendorDataView", "hideGpsView", "hideALSTestView", "hideProductView",
                     "hideSysCtrlView", "hidePanelView"}));
}

void TestFactoryDebugView::openPageGoesWithTheView()
{
    ViewOnScreen shown;
    shown.tap("usbeye");
    const QPointer<QObject> opened = page(*shown.view, "USBEyeTestView");
    QVERIFY(!opened.isNull());
    delete shown.view;
    QVERIFY(opened.isNull());
}

void TestFactoryDebugView::returnWithNoPageOpenLeavesTheMenuAndTheStatusBar()
{
    ViewOnScreen shown;
    const TraceCapture capture;
    shown.view->buttonClicked(QStringLiteral("return"));
    // Neither a hide operation nor interPrimary().
    QCOMPARE(capture.texts(), QStringList(QStringLiteral("id: \"return\"")));
    QVERIFY(menuButtons(*shown.view).first()->isVisible());
}

void TestFactoryDebugView::returnInASubListGoesBackInsideThePage()
{
    ViewOnScreen shown;
    shown.tap("usbtest");
    const QPointer<QObject> opened = page(*shown.view, "USBTestView");
    usbTestListType = 3;

    shown.unit.tap(returnPoint);
    QVERIFY(!opened.isNull());
    QCOMPARE(usbTestListType, 1);
    QVERIFY(!menuButtons(*shown.view).first()->isVisible());

    shown.unit.tap(returnPoint);
    QVERIFY(opened.isNull());
    QVERIFY(menuButtons(*shown.view).first()->isVisible());
}

void TestFactoryDebugView::gpsPressedTwiceMakesTwoPages()
{
    ViewOnScreen shown;
    shown.view->buttonClicked(QStringLiteral("gps"));
    shown.view->buttonClicked(QStringLiteral("gps"));
    QCOMPARE(gpsPages().size(), 2);
    QVERIFY(gpsPages().first()->isWindow());
}

void TestFactoryDebugView::gpsLeavesTheMenuAndTheOpenPage()
{
    ViewOnScreen shown;
    shown.view->buttonClicked(QStringLiteral("keycolor"));
    const QPointer<QObject> opened = page(*shown.view, "CSetupKeyLight");
    shown.view->buttonClicked(QStringLiteral("gps"));
    QVERIFY(!opened.isNull());
    QCOMPARE(title(*shown.view), QStringLiteral("KeyColor Set"));

    shown.view->buttonClicked(QStringLiteral("return"));
    shown.view->buttonClicked(QStringLiteral("gps"));
    QVERIFY(menuButtons(*shown.view).first()->isVisible());
    QCOMPARE(title(*shown.view), QStringLiteral("Factory"));
}

void TestFactoryDebugView::unknownIdIsIgnored_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("empty") << QString();
    QTest::newRow("other") << QStringLiteral("nothing");
    QTest::newRow("other case") << QStringLiteral("USBTest");
    QTest::newRow("prefix") << QStringLiteral("usbtest2");
}

void TestFactoryDebugView::unknownIdIsIgnored()
{
    QFETCH(QString, id);
    const ViewOnScreen shown;
    const TraceCapture capture;
    const int children = shown.view->children().size();
    shown.view->buttonClicked(id);
    QCOMPARE(capture.texts(), QStringList(QStringLiteral("id: \"%1\"").arg(id)));
    QCOMPARE(shown.view->children().size(), children);
}

void TestFactoryDebugView::exitAsksForTheClose()
{
    ViewOnScreen shown;
    shown.unit.tap(exitPoint);
    QCOMPARE(shown.unit.journal(QStringLiteral("/^framework (start|close) /")),
             QStringList(QStringLiteral("framework close factorydebug")));
}

void TestFactoryDebugView::captureTwiceShowsBothTextsInTheSamePopup()
{
    ViewOnScreen shown;
    QWidget *layer = shown.unit.framework().layer(UI_HERARCHY_POPUP);

    shown.tap("idCapture");
    auto *popup = layer->findChild<PopupView *>();
    QVERIFY(popup != nullptr);
    QVERIFY(popup->isVisible());
    QCOMPARE(popup->text(), QStringLiteral("capture turned on"));
    QCOMPARE(shown.unit.unit().settings().value(QStringLiteral("system/capture")).toBool(), true);

    shown.tap("idCapture");
    QCOMPARE(layer->findChildren<PopupView *>(), QList<PopupView *>({popup}));
    QCOMPARE(popup->text(), QStringLiteral("capture turned off"));
    QCOMPARE(shown.unit.unit().settings().value(QStringLiteral("system/capture")).toBool(), false);
}

void TestFactoryDebugView::captureStartsFromTheStoredState()
{
    ViewOnScreen shown;
    shown.unit.unit().settings().setValue(QStringLiteral("system/capture"), true);
    shown.tap("idCapture");
    const auto *popup = shown.unit.framework().layer(UI_HERARCHY_POPUP)->findChild<PopupView *>();
    QCOMPARE(popup->text(), QStringLiteral("capture turned off"));
}

void TestFactoryDebugView::captureNoticeGoesAfterTwoSeconds()
{
    ViewOnScreen shown(10.0);
    QElapsedTimer clock;
    clock.start();
    shown.tap("idCapture");
    const auto *popup = shown.unit.framework().layer(UI_HERARCHY_POPUP)->findChild<PopupView *>();
    QTRY_VERIFY(!popup->isVisible());
    // Two seconds of a unit that runs ten times as fast.
    QVERIFY2(clock.elapsed() >= 200, qPrintable(QString::number(clock.elapsed())));
}

void TestFactoryDebugView::captureNoticeOutlivesTheView()
{
    ViewOnScreen shown;
    shown.tap("idCapture");
    delete shown.view;
    const auto *popup = shown.unit.framework().layer(UI_HERARCHY_POPUP)->findChild<PopupView *>();
    QVERIFY(popup != nullptr);
    QVERIFY(popup->isVisible());
}

void TestFactoryDebugView::shadeCoversTheViewAndStays()
{
    const ViewOnScreen shown;
    shown.view->showMaskBgSlot();
    auto *shade = shown.view->findChild<KvBackgroundImage *>();
    QVERIFY(shade->isVisible());
    QCOMPARE(shade->geometry(), QRect(0, 0, 800, 480));
    QCOMPARE(shown.view->children().last(), shade);

    shown.view->showMaskBgSlot();
    QCOMPARE(shown.view->findChildren<KvBackgroundImage *>().size(), 1);
    shown.view->buttonClicked(QStringLiteral("return"));
    QVERIFY(shade->isVisible());
}

void TestFactoryDebugView::copyBtsnoopTakesTheLastDevice()
{
    ViewOnScreen shown;
    shown.unit.plug(QStringLiteral("usb1"));
    shown.unit.plug(QStringLiteral("sd0"));
    shown.unit.plug(QStringLiteral("usb0"));
    const TraceCapture capture;
    shown.tap("idCopyBtsnoop");
    QCOMPARE(capture.texts(),
             QStringList({QStringLiteral("id: \"idCopyBtsnoop\""),
                          QStringLiteral("last device: \"/media/usb0\"")}));
    QCOMPARE(shown.unit.journal(QStringLiteral("/^shell cp/")),
             QStringList({
                 QStringLiteral("shell cp /media/flash/userdata/btsnoop.log /media/usb0/userdata"),
                 QStringLiteral("shell cp /media/flash/nvm/btsnoop.log /media/usb0/nvm"),
             }));
}

void TestFactoryDebugView::copyBtsnoopWithoutStorageDoesNothing()
{
    ViewOnScreen shown;
    shown.unit.plug(QStringLiteral("sd0")); // Of another media type.
    const TraceCapture capture;
    shown.tap("idCopyBtsnoop");
    QCOMPARE(capture.texts(), QStringList(QStringLiteral("id: \"idCopyBtsnoop\"")));
    QCOMPARE(shown.unit.journal(QStringLiteral("/^shell /")), QStringList());
}

void TestFactoryDebugView::startUsbTestInItsOrder()
{
    ViewOnScreen shown;
    shown.unit.plug(QStringLiteral("usb1"));
    shown.unit.plug(QStringLiteral("usb0"));
    const TraceCapture capture;
    shown.tap("startUSBTest");
    QCOMPARE(
        capture.texts(),
        QStringList({QStringLiteral("id: \"startUSBTest\""), QStringLiteral("deviceList:  2")}));
    QCOMPARE(shown.unit.journal(QStringLiteral("/^(media|mediaplay|framework) /")),
             QStringList({
                 QStringLiteral("media scan /media/usb0"),
                 QStringLiteral("framework close factorydebug"),
                 QStringLiteral("framework unknown activity factorydebug"),
                 QStringLiteral("mediaplay usb testing 1"),
                 QStringLiteral("framework start usb 0"),
                 QStringLiteral("framework unknown activity usb"),
             }));
}

void TestFactoryDebugView::startUsbTestWithoutStorageNeitherClosesNorStarts()
{
    ViewOnScreen shown;
    const TraceCapture capture;
    shown.tap("startUSBTest");
    QCOMPARE(
        capture.texts(),
        QStringList({QStringLiteral("id: \"startUSBTest\""), QStringLiteral("deviceList:  0")}));
    QCOMPARE(shown.unit.journal(QStringLiteral("/^(media|mediaplay|framework) /")), QStringList());
}

void TestFactoryDebugView::startUsbTestWithoutMediaplayGoesOn()
{
    ViewOnScreen shown;
    shown.unit.framework().modules().remove(QStringLiteral("mediaplay"));
    shown.unit.plug(QStringLiteral("usb0"));
    shown.tap("startUSBTest");
    QCOMPARE(shown.unit.journal(QStringLiteral("/^(mediaplay|framework (start|close)) /")),
             QStringList({QStringLiteral("framework close factorydebug"),
                          QStringLiteral("framework start usb 0")}));
}

void TestFactoryDebugView::startUsbTestUsesNothingOfTheViewAfterTheClose()
{
    ViewOnScreen shown;
    shown.unit.plug(QStringLiteral("usb0"));
    const auto manager = QSharedPointer<DeletingManager>::create(shown.view);
    shown.unit.framework().setActivityManager(manager);
    // Called without a button, since the framework deletes that too; the address sanitizer watches.
    QMetaObject::invokeMethod(shown.view, "buttonClicked", Qt::DirectConnection,
                              Q_ARG(QString, QStringLiteral("startUSBTest")));
    QVERIFY(shown.view.isNull());
    QCOMPARE(manager->calls,
             QStringList({QStringLiteral("close factorydebug"), QStringLiteral("start usb 0")}));
    QCOMPARE(shown.unit.journal(QStringLiteral("mediaplay")),
             QStringList(QStringLiteral("mediaplay usb testing 1")));
}

void TestFactoryDebugView::traces()
{
    ViewOnScreen shown;
    const TraceCapture capture;
    shown.view->showKeyColorView();
    shown.view->showKeyColorView();
    const QStringList shows = capture.texts().filter(QStringLiteral("showKeyColorView"));
    QCOMPARE(shows.size(), 2);
    QVERIFY(capture.texts().contains(QStringLiteral("interSecondary \"KeyColor Set\"")));
    delete shown.view;
    QVERIFY(capture.texts().contains(QStringLiteral("~FactoryDebugView")));
}

FACTORY_TEST_MAIN(TestFactoryDebugView)
#include "tst_factorydebugview.moc"
