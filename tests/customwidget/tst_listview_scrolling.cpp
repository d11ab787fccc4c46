#include "customwidget/listview.h"

#include "listfinger.h"

#include "customwidget/lvscrollbar.h"
#include "fingerlist.h"
#include "support/testmain.h"

#include <QApplication>
#include <QScrollBar>
#include <QtTest>

// Rows are 83 pixels high: row 0 covers 0 to 82, row 1 83 to 165, row 2 166 to 248.
class TestListViewScrolling : public QObject
{
    Q_OBJECT

private slots:
    void contentFollowsTheFingerWithoutLag();
    void firstStepIsMeasuredFromTheOriginInTheFirstGesture();
    void firstStepIsMeasuredFromThePreviousGesturesLastPoint();
    void scrollingStopsAtMinimumAndMaximum();

    void bothBarsGoInStep();
    void customBarCopiesTheNativeOne();
    void neededBarIsReported();
    void customBarStaysHiddenWhenNotWantedAndTheNeedIsStillReported();
    void oneRowMoreThanFitsShowsTheBar();
    void shortListHasNoBar();
};

void TestListViewScrolling::contentFollowsTheFingerWithoutLag()
{
    FingerList finger(20);
    leaveLastPointAt(finger, 400);
    finger.press(400);
    const int ys[] = {393, 386, 379, 372, 300, 301, 250, 257, 100};
    for (const int y : ys) {
        finger.move(y);
        QCOMPARE(value(finger), 400 - y);
    }
    finger.release(100);
    QCOMPARE(value(finger), 300);
}

void TestListViewScrolling::firstStepIsMeasuredFromTheOriginInTheFirstGesture()
{
    FingerList finger(20);
    finger.list().verticalScrollBar()->setValue(500);
    finger.press(300);
    finger.move(290);
    // 500 + (0 - 290)
    QCOMPARE(value(finger), 210);
    finger.move(280);
    QCOMPARE(value(finger), 220);
    finger.release(280);
}

void TestListViewScrolling::firstStepIsMeasuredFromThePreviousGesturesLastPoint()
{
    FingerList finger(20);
    leaveLastPointAt(finger, 350);
    finger.press(200);
    finger.move(190);
    // 0 + (350 - 190)
    QCOMPARE(value(finger), 160);
    finger.release(190);

    // A first move within the threshold becomes the last point instead.
    finger.list().verticalScrollBar()->setValue(0);
    finger.press(300);
    finger.move(297);
    finger.move(290);
    QCOMPARE(value(finger), 7);
    finger.release(290);
}

void TestListViewScrolling::scrollingStopsAtMinimumAndMaximum()
{
    FingerList finger(6);
    // 6 * 83 - 414
    QCOMPARE(finger.list().verticalScrollBar()->maximum(), 84);
    leaveLastPointAt(finger, 300);
    finger.press(300);
    finger.move(290);
    QCOMPARE(value(finger), 10);
    finger.move(100);
    QCOMPARE(value(finger), 84);
    finger.move(120);
    QCOMPARE(value(finger), 64);
    finger.move(400);
    QCOMPARE(value(finger), 0);
    finger.release(400);
}

void TestListViewScrolling::bothBarsGoInStep()
{
    FingerList finger(20);
    QScrollBar *native = finger.list().verticalScrollBar();
    LvScrollBar *custom = finger.list().getVerticalScrollBar();
    native->setValue(123);
    QCOMPARE(custom->value(), 123);
    custom->setValue(456);
    QCOMPARE(native->value(), 456);
    // 20 * 83 - 414
    QCOMPARE(native->maximum(), 1246);
    QCOMPARE(custom->maximum(), 1246);
    native->setRange(0, 2000);
    QCOMPARE(custom->maximum(), 2000);
    custom->setRange(0, 1500);
    QCOMPARE(native->maximum(), 1500);
}

void TestListViewScrolling::customBarCopiesTheNativeOne()
{
    FingerList finger(20);
    QScrollBar *native = finger.list().verticalScrollBar();
    native->setInvertedControls(true);
    native->setInvertedAppearance(true);
    native->setTracking(false);
    native->setPageStep(77);
    native->setSingleStep(9);
    QEvent layout(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(&finger.list(), &layout);
    const LvScrollBar *custom = finger.list().getVerticalScrollBar();
    QVERIFY(custom->invertedControls());
    QVERIFY(custom->invertedAppearance());
    QVERIFY(!custom->hasTracking());
    QCOMPARE(custom->pageStep(), native->pageStep());
    QCOMPARE(custom->singleStep(), native->singleStep());
}

void TestListViewScrolling::neededBarIsReported()
{
    FingerList finger(6);
    finger.takeNews();
    const QEvent::Type types[] = {QEvent::LayoutRequest, QEvent::LayoutDirectionChange,
                                  QEvent::ApplicationLayoutDirectionChange, QEvent::StyleChange};
    for (const QEvent::Type type : types) {
        QEvent event(type);
        QCoreApplication::sendEvent(&finger.list(), &event);
        QCOMPARE(finger.takeNews(), QStringList(QStringLiteral("needed 1")));
    }
    QEvent other(QEvent::FontChange);
    QCoreApplication::sendEvent(&finger.list(), &other);
    QCOMPARE(finger.takeNews(), QStringList());
    finger.list().hide();
    QCOMPARE(finger.takeNews().size(), 1);
    finger.list().show();
    QVERIFY(finger.takeNews().contains(QStringLiteral("needed 1")));
}

void TestListViewScrolling::customBarStaysHiddenWhenNotWantedAndTheNeedIsStillReported()
{
    FingerList finger(10);
    const LvScrollBar *custom = finger.list().getVerticalScrollBar();
    QVERIFY(custom->isVisible());
    finger.list().setCustomScrollBarVisible(false);
    QVERIFY(!custom->isVisible());
    finger.takeNews();
    finger.list().resize(800, 400);
    QVERIFY(!custom->isVisible());
    QVERIFY(finger.takeNews().contains(QStringLiteral("needed 1")));
    finger.list().setCustomScrollBarVisible(true);
    QVERIFY(custom->isVisible());
}

void TestListViewScrolling::oneRowMoreThanFitsShowsTheBar()
{
    FingerList finger(5);
    // 5 * 83 - 414
    QCOMPARE(finger.list().verticalScrollBar()->maximum(), 1);
    QVERIFY(finger.list().getVerticalScrollBar()->isVisible());
}

void TestListViewScrolling::shortListHasNoBar()
{
    FingerList finger(4);
    QVERIFY(!finger.list().getVerticalScrollBar()->isVisible());
    finger.list().setCustomScrollBarVisible(true);
    QVERIFY(!finger.list().getVerticalScrollBar()->isVisible());
    QCOMPARE(finger.list().viewport()->geometry(), QRect(0, 0, 800, 414));
}

FACTORY_TEST_MAIN(TestListViewScrolling)
#include "tst_listview_scrolling.moc"
