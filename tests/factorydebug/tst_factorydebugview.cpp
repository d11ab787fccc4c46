#include "factorydebug/factorydebugview.h"
#include "factorydebug/statusbar.h"

#include "viewonscreen.h"

#include "kvappframework/activitymanager.h"
#include "kvwidget/kvbackgroundimage.h"
#include "kvwidget/kviconbutton.h"
#include "kvwidget/popupview.h"
#include "support/testmain.h"
#include "support/tracecapture.h"

#include <QPointer>
#include <QtTest>

using namespace kvappframework;

class TestFactoryDebugView : public QObject
{
    Q_OBJECT

private slots:
    void menuButtonsKeepTheirOrder();

    void unknownIdIsIgnored_data();
    void unknownIdIsIgnored();

    void captureTwiceShowsBothTextsInTheSamePopup();
    void captureNoticeGoesAfterTwoSeconds();
    void captureNoticeOutlivesTheView();
    void shadeCoversTheViewAndStays();

    void startUsbTestWithoutStorageNeitherClosesNorStarts();
    void startUsbTestUsesNothingOfTheViewAfterTheClose();
};

namespace
{

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

} // namespace

void TestFactoryDebugView::menuButtonsKeepTheirOrder()
{
    const ViewOnScreen shown;
    QStringList ids;
    const QList<KvIconButton *> buttons = menuButtons(*shown.view);
    for (KvIconButton *button : buttons) {
        ids.append(button->buttonID());
    }
    QStringList expected;
    for (const MenuEntry &entry : menu) {
        expected.append(QString::fromLatin1(entry.id));
    }
    QCOMPARE(ids, expected);
    QCOMPARE(ids.size(), 13);
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

    // It goes ahead of the view's other parts, and behind the trace.
    const TraceCapture capture;
    QStringList gone;
    connect(shade, &QObject::destroyed,
            [texts = &gone, traces = &capture] { *texts = traces->texts(); });
    connect(shown.view->findChild<StatusBar *>(), &QObject::destroyed,
            [texts = &gone] { texts->append(QStringLiteral("status bar")); });
    delete shown.view;
    QCOMPARE(gone, QStringList({"~FactoryDebugView", "status bar"}));
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

FACTORY_TEST_MAIN(TestFactoryDebugView)
#include "tst_factorydebugview.moc"
