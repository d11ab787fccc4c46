#include "kvwidget/popupview.h"

#include "testpopup.h"

#include "kvwidget/baseview.h"
#include "touchscreen.h"

#include "hardware/unit/unit.h"
#include "support/testmain.h"
#include "unitlink/simulatedunit.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTemporaryDir>
#include <QtTest>

class TestPopupViewEnd : public QObject
{
    Q_OBJECT

private slots:
    void baseViewGoesWithCancelAndTimeout_data();
    void baseViewGoesWithCancelAndTimeout();
    void baseViewWithOtherContent_data();
    void baseViewWithOtherContent();
    void baseViewStaysForOkAndHide_data();
    void baseViewStaysForOkAndHide();
    void otherParentsStay();
    void baseViewUsedAgainBySlot();

    void timeout();
    void timeoutUnderTimeFactor_data();
    void timeoutUnderTimeFactor();
    void noTimeout_data();
    void noTimeout();
    void showWhileVisibleStartsAnew();
    void timeoutCountsFromShow();
    void timeoutTurnedOffByNextShow();
    void hiddenInTime();
    void shownWithItsParent();

    void slotDeletes_data();
    void slotDeletes();
};

namespace
{

/// Runs the event loop for \a ms, or until \a widget has gone. Gives the time that it took.
qint64 stays(const QWidget &widget, int ms)
{
    QElapsedTimer clock;
    clock.start();
    while (widget.isVisible() && clock.elapsed() < ms) {
        QTest::qWait(1);
    }
    return clock.elapsed();
}

/// Shows the screen, and only then the pop-up, for \a ms; false when the screen does not appear.
bool showFor(TouchScreen &screen, Popup &popup, int ms)
{
    popup.hide();
    popup.setShowTimeout(ms);
    const bool shown = screen.turnOn();
    popup.show();
    return shown;
}

} // namespace

void TestPopupViewEnd::baseViewGoesWithCancelAndTimeout_data()
{
    QTest::addColumn<bool>("byCancel");
    QTest::newRow("cancel") << true;
    QTest::newRow("time-out") << false;
}

void TestPopupViewEnd::baseViewGoesWithCancelAndTimeout()
{
    QFETCH(bool, byCancel);
    TouchScreen screen;
    ButtonBelow below(&screen);
    const QPointer<BaseView> page(new BaseView("setup UserUpdate", &screen));
    page->setGeometry(0, 0, 800, 480);
    QWidget hiddenOne(page);
    hiddenOne.hide();
    Popup popup(page);
    popup.setShowTimeout(byCancel ? 0 : 50);
    QVERIFY(screen.turnOn());
    QWidget windowOfThePage(page, Qt::Window);
    windowOfThePage.show();
    screen.tap(QPoint(10, 10));
    QCOMPARE(below.clicks, 0);
    if (byCancel) {
        screen.tap(popup.middleOf(cancelName));
    } else {
        QTRY_VERIFY(!popup.isVisible());
    }
    QVERIFY(page);
    QVERIFY(page->isHidden());
    screen.tap(QPoint(10, 10));
    QCOMPARE(below.clicks, 1);
}

void TestPopupViewEnd::baseViewWithOtherContent_data()
{
    baseViewGoesWithCancelAndTimeout_data();
}

void TestPopupViewEnd::baseViewWithOtherContent()
{
    QFETCH(bool, byCancel);
    TouchScreen screen;
    FullPage page(&screen);
    QWidget content(&page);
    Popup popup(&page);
    popup.setShowTimeout(byCancel ? 0 : 50);
    QVERIFY(screen.turnOn());
    if (byCancel) {
        screen.tap(popup.middleOf(cancelName));
    }
    QTRY_VERIFY(popup.isHidden());
    QVERIFY(page.isVisible());
    QVERIFY(content.isVisible());
}

void TestPopupViewEnd::baseViewStaysForOkAndHide_data()
{
    QTest::addColumn<bool>("byOk");
    QTest::newRow("OK") << true;
    QTest::newRow("hide()") << false;
}

void TestPopupViewEnd::baseViewStaysForOkAndHide()
{
    QFETCH(bool, byOk);
    TouchScreen screen;
    FullPage page(&screen);
    Popup popup(&page);
    QVERIFY(screen.turnOn());
    if (byOk) {
        screen.tap(popup.middleOf(okName));
    } else {
        popup.hide();
    }
    QVERIFY(popup.isHidden());
    QVERIFY(page.isVisible());
    QCOMPARE(popup.heard, byOk ? QStringList{"ok userdata"} : QStringList());
}

void TestPopupViewEnd::otherParentsStay()
{
    TouchScreen screen;
    FullPage page(&screen);
    KvWidget between(&page);
    between.setGeometry(0, 0, 800, 480);
    Popup popup(&between);
    QVERIFY(screen.turnOn());
    screen.tap(popup.middleOf(cancelName));
    QVERIFY(between.isVisible());
    QVERIFY(page.isVisible());
}

void TestPopupViewEnd::baseViewUsedAgainBySlot()
{
    TouchScreen screen;
    FullPage page(&screen);
    QWidget answer(&page);
    answer.hide();
    Popup popup(&page);
    connect(&popup, &PopupView::cancel, &answer, [&] { answer.show(); });
    QVERIFY(screen.turnOn());
    screen.tap(popup.middleOf(cancelName));
    QVERIFY(page.isVisible());
    QVERIFY(answer.isVisible());
}

void TestPopupViewEnd::timeout()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showFor(screen, popup, 200));
    const qint64 stayed = stays(popup, 5000);
    QVERIFY2(stayed >= 190 && stayed < 2000, qPrintable(QString::number(stayed)));
    QCOMPARE(popup.heard, QStringList{"timeout userdata"});
    QVERIFY(!popup.visibleWhenHeard);
    QVERIFY(popup.isHidden());
}

void TestPopupViewEnd::timeoutUnderTimeFactor_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("timeout");
    QTest::addColumn<int>("real");
    QTest::newRow("fast") << 100.0 << 30000 << 300;
    QTest::newRow("slow") << 0.5 << 150 << 300;
}

void TestPopupViewEnd::timeoutUnderTimeFactor()
{
    QFETCH(double, factor);
    QFETCH(int, timeout);
    QFETCH(int, real);
    const QTemporaryDir folder;
    hardware::Unit unit(folder.path(), factor);
    const unitlink::SimulatedUnit link(unit);
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showFor(screen, popup, timeout));
    const qint64 stayed = stays(popup, 10000);
    QVERIFY2(stayed >= real - 10 && stayed < real + 2000, qPrintable(QString::number(stayed)));
}

void TestPopupViewEnd::noTimeout_data()
{
    QTest::addColumn<int>("ms");
    QTest::newRow("0") << 0;
    QTest::newRow("below 0") << -1;
}

void TestPopupViewEnd::noTimeout()
{
    QFETCH(int, ms);
    TouchScreen screen;
    Popup popup(&screen);
    popup.setShowTimeout(ms);
    QVERIFY(screen.turnOn());
    popup.show();
    QVERIFY(stays(popup, 150) >= 150);
    QVERIFY(popup.isVisible());
}

void TestPopupViewEnd::showWhileVisibleStartsAnew()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showFor(screen, popup, 300));
    QVERIFY(stays(popup, 200) >= 200);
    popup.setText("capture turned off");
    popup.setShowTimeout(300);
    popup.show();
    const qint64 stayed = stays(popup, 5000);
    QVERIFY2(stayed >= 290, qPrintable(QString::number(stayed)));
    QCOMPARE(popup.heard, QStringList{"timeout userdata"});
}

void TestPopupViewEnd::timeoutCountsFromShow()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showFor(screen, popup, 200));
    // Without a show() the new time is not in force yet.
    popup.setShowTimeout(100000);
    const qint64 stayed = stays(popup, 5000);
    QVERIFY2(stayed >= 190 && stayed < 2000, qPrintable(QString::number(stayed)));
}

void TestPopupViewEnd::timeoutTurnedOffByNextShow()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showFor(screen, popup, 100));
    popup.setShowTimeout(0);
    popup.show();
    QVERIFY(stays(popup, 250) >= 250);
}

void TestPopupViewEnd::hiddenInTime()
{
    TouchScreen screen;
    FullPage page(&screen);
    Popup popup(&page);
    popup.setShowTimeout(50);
    QVERIFY(screen.turnOn());
    popup.hide();
    QTest::qWait(150);
    QCOMPARE(popup.heard, QStringList());
    QVERIFY(page.isVisible());
}

void TestPopupViewEnd::shownWithItsParent()
{
    TouchScreen screen;
    FullPage page(&screen);
    page.hide();
    Popup popup(&page);
    popup.setShowTimeout(200);
    popup.show();
    QVERIFY(screen.turnOn());
    QTest::qWait(300);
    QCOMPARE(popup.heard, QStringList());
    page.show();
    QVERIFY(popup.isVisible());
    const qint64 stayed = stays(popup, 5000);
    QVERIFY2(stayed >= 190, qPrintable(QString::number(stayed)));
    QCOMPARE(popup.heard, QStringList{"timeout userdata"});
}

void TestPopupViewEnd::slotDeletes_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<bool>("page");
    for (const char *signal : {"ok", "cancel", "timeout"}) {
        QTest::addRow("pop-up on %s", signal) << signal << false;
        QTest::addRow("page on %s", signal) << signal << true;
    }
}

void TestPopupViewEnd::slotDeletes()
{
    QFETCH(QString, signal);
    QFETCH(bool, page);
    TouchScreen screen;
    const QPointer<BaseView> view(new FullPage(&screen));
    const QPointer<Popup> popup(new Popup(view));
    const auto destroy = [&] { delete (page ? static_cast<QWidget *>(view) : popup); };
    connect(popup, &PopupView::ok, &screen, destroy);
    connect(popup, &PopupView::cancel, &screen, destroy);
    connect(popup, &PopupView::timeout, &screen, destroy);
    popup->setShowTimeout(signal == "timeout" ? 50 : 0);
    QVERIFY(screen.turnOn());
    if (signal != "timeout") {
        screen.tap(popup->middleOf(signal == "ok" ? okName : cancelName));
    }
    QTRY_VERIFY(popup.isNull());
    QCOMPARE(view.isNull(), page);
    if (view) {
        // The pop-up that is gone counts as gone.
        QCOMPARE(view->isVisible(), signal == "ok");
    }
}

FACTORY_TEST_MAIN(TestPopupViewEnd)
#include "tst_popupview_end.moc"
