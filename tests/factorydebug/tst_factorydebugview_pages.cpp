#include "factorydebug/factorydebugview.h"
#include "factorydebug/statusbar.h"
#include "usbtest/usbtestview.h"

#include "viewonscreen.h"

#include "kvwidget/kviconbutton.h"
#include "support/testmain.h"
#include "support/tracecapture.h"

#include <QLabel>
#include <QPointer>
#include <QtTest>

class TestFactoryDebugViewPages : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void returnAfterAPageHasDeletedItself_data();
    void returnAfterAPageHasDeletedItself();
    void anotherPageDeletesTheFirst();
    void pressingAButtonAgainCreatesAFreshPage();
    void openPageGoesWithTheView();

    void returnWithNoPageOpenLeavesTheMenuAndTheStatusBar();
    void returnInASubListGoesBackInsideThePage();
    void gpsPressedTwiceMakesTwoPages();
    void gpsLeavesTheMenuAndTheOpenPage();
};

namespace
{

constexpr QPoint returnPoint(40, 32);

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

} // namespace

void TestFactoryDebugViewPages::cleanup()
{
    usbTestListType = 1;
}

void TestFactoryDebugViewPages::returnAfterAPageHasDeletedItself_data()
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

void TestFactoryDebugViewPages::returnAfterAPageHasDeletedItself()
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
    const QList<KvIconButton *> buttons = menuButtons(*shown.view);
    for (KvIconButton *button : buttons) {
        QVERIFY(button->isVisible());
    }
    shown.tap(id.constData());
    QVERIFY(page(*shown.view, className) != nullptr);
}

void TestFactoryDebugViewPages::anotherPageDeletesTheFirst()
{
    ViewOnScreen shown;
    shown.tap("keycolor");
    const QPointer<QObject> first = page(*shown.view, "CSetupKeyLight");
    shown.view->buttonClicked(QStringLiteral("idPanel"));
    QVERIFY(first.isNull());
    QVERIFY(page(*shown.view, "CSetupPanelForm") != nullptr);
    QCOMPARE(title(*shown.view), QStringLiteral("Panel Config"));
}

void TestFactoryDebugViewPages::pressingAButtonAgainCreatesAFreshPage()
{
    ViewOnScreen shown;
    shown.tap("als");
    const QPointer<QObject> first = page(*shown.view, "CSetupALSTest");
    shown.view->buttonClicked(QStringLiteral("als"));
    QVERIFY(first.isNull());
    QVERIFY(page(*shown.view, "CSetupALSTest") != nullptr);
}

void TestFactoryDebugViewPages::openPageGoesWithTheView()
{
    ViewOnScreen shown;
    shown.tap("usbeye");
    const QPointer<QObject> opened = page(*shown.view, "USBEyeTestView");
    QVERIFY(!opened.isNull());
    delete shown.view;
    QVERIFY(opened.isNull());
}

void TestFactoryDebugViewPages::returnWithNoPageOpenLeavesTheMenuAndTheStatusBar()
{
    ViewOnScreen shown;
    const TraceCapture capture;
    shown.view->buttonClicked(QStringLiteral("return"));
    // Neither a hide operation nor interPrimary().
    QCOMPARE(capture.texts(), QStringList(QStringLiteral("id: \"return\"")));
    QVERIFY(menuButtons(*shown.view).constFirst()->isVisible());
}

void TestFactoryDebugViewPages::returnInASubListGoesBackInsideThePage()
{
    ViewOnScreen shown;
    shown.tap("usbtest");
    const QPointer<QObject> opened = page(*shown.view, "USBTestView");
    usbTestListType = 3;

    shown.unit.tap(returnPoint);
    QVERIFY(!opened.isNull());
    QCOMPARE(usbTestListType, 1);
    QVERIFY(!menuButtons(*shown.view).constFirst()->isVisible());

    shown.unit.tap(returnPoint);
    QVERIFY(opened.isNull());
    QVERIFY(menuButtons(*shown.view).constFirst()->isVisible());
}

void TestFactoryDebugViewPages::gpsPressedTwiceMakesTwoPages()
{
    ViewOnScreen shown;
    shown.view->buttonClicked(QStringLiteral("gps"));
    shown.view->buttonClicked(QStringLiteral("gps"));
    QCOMPARE(gpsPages().size(), 2);
    QVERIFY(gpsPages().constFirst()->isWindow());
}

void TestFactoryDebugViewPages::gpsLeavesTheMenuAndTheOpenPage()
{
    ViewOnScreen shown;
    shown.view->buttonClicked(QStringLiteral("keycolor"));
    const QPointer<QObject> opened = page(*shown.view, "CSetupKeyLight");
    shown.view->buttonClicked(QStringLiteral("gps"));
    QVERIFY(!opened.isNull());
    QCOMPARE(title(*shown.view), QStringLiteral("KeyColor Set"));

    shown.view->buttonClicked(QStringLiteral("return"));
    shown.view->buttonClicked(QStringLiteral("gps"));
    QVERIFY(menuButtons(*shown.view).constFirst()->isVisible());
    QCOMPARE(title(*shown.view), QStringLiteral("Factory"));
}

FACTORY_TEST_MAIN(TestFactoryDebugViewPages)
#include "tst_factorydebugview_pages.moc"
