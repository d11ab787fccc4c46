#include "customwidget/lvscrollbar.h"

#include "customwidget/listview.h"
#include "fingerlist.h"
#include "support/testmain.h"
#include "support/tracecapture.h"

#include <QScrollBar>
#include <QtTest>

class TestLvScrollBar : public QObject
{
    Q_OBJECT

private slots:
    void dragRaisesTheValueAsTheFingerGoesUp();
    void divisionTruncatesTowardsZero_data();
    void divisionTruncatesTowardsZero();
    void fivePixelsAreNoDrag();
    void firstStepIsMeasuredFromThePreviousGesturesLastPoint();
    void dragStopsAtMinimumAndMaximum();
    void longRangesDoNotOverflow();
    void barWithoutHeight();
    void releaseEndsTheDrag();
    void handleDragOfTheBaseStillHappens();
    void dragOnTheListsBarScrollsTheList();
    void sliderChangeIsTraced();
    void arrowUnderTheFingerLooksPressed_data();
    void arrowUnderTheFingerLooksPressed();
};

namespace
{

const int height = 386;

/// A bar of 386 pixels from 0 to 1000, on which a press below the handle does nothing by itself.
class Bar
{
public:
    Bar()
        : m_bar(nullptr)
    {
        m_bar.resize(60, height);
        m_bar.setOrientation(Qt::Vertical);
        m_bar.setRange(0, 1000);
        m_bar.setPageStep(0);
        m_bar.show();
    }

    LvScrollBar *operator->() { return &m_bar; }

    void press(int y) { QTest::mousePress(&m_bar, Qt::LeftButton, Qt::NoModifier, QPoint(30, y)); }

    void move(int y) { send(&m_bar, y); }

    void release(int y)
    {
        QTest::mouseRelease(&m_bar, Qt::LeftButton, Qt::NoModifier, QPoint(30, y));
    }

    static void send(QWidget *bar, int y)
    {
        QMouseEvent move(QEvent::MouseMove, QPoint(30, y), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(bar, &move);
    }

private:
    LvScrollBar m_bar;
};

} // namespace

void TestLvScrollBar::dragRaisesTheValueAsTheFingerGoesUp()
{
    Bar bar;
    bar.press(300);
    bar.move(299);
    QCOMPARE(bar->value(), 0);
    bar.move(290);
    // (299 - 290) * 1000 / 386 = 23.3
    QCOMPARE(bar->value(), 23);
    bar.move(294);
    // (290 - 294) * 1000 / 386 = -10.4
    QCOMPARE(bar->value(), 13);
    bar.release(294);
}

void TestLvScrollBar::divisionTruncatesTowardsZero_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<int>("value");
    // Pixels * 1000 / 386, from 500 on.
    QTest::newRow("1 up, 2.59") << 1 << 502;
    QTest::newRow("1 down, -2.59") << -1 << 498;
    QTest::newRow("7 up, 18.13") << 7 << 518;
    QTest::newRow("7 down, -18.13") << -7 << 482;
    QTest::newRow("193 up, 500 to the dot") << 193 << 1000;
}

void TestLvScrollBar::divisionTruncatesTowardsZero()
{
    QFETCH(int, way);
    QFETCH(int, value);
    Bar bar;
    bar.press(250);
    bar.move(240);
    bar->setValue(500);
    bar.move(240 - way);
    QCOMPARE(bar->value(), value);
    bar.release(240 - way);
}

void TestLvScrollBar::fivePixelsAreNoDrag()
{
    Bar bar;
    bar->setValue(100);
    bar.press(300);
    bar.move(295);
    bar.move(305);
    QCOMPARE(bar->value(), 100);
    bar.move(294);
    // (305 - 294) * 1000 / 386 = 28.5
    QCOMPARE(bar->value(), 128);
    bar.release(294);
}

void TestLvScrollBar::firstStepIsMeasuredFromThePreviousGesturesLastPoint()
{
    Bar bar;
    bar->setValue(900);
    bar.press(300);
    bar.move(290);
    // In the first gesture from (0, 0): 900 + (0 - 290) * 1000 / 386 = 900 - 751.3
    QCOMPARE(bar->value(), 149);
    bar.release(290);
    bar.press(200);
    bar.move(190);
    // 149 + (290 - 190) * 1000 / 386 = 149 + 259.1
    QCOMPARE(bar->value(), 408);
    bar.release(190);
}

void TestLvScrollBar::dragStopsAtMinimumAndMaximum()
{
    Bar bar;
    bar->setRange(10, 1000);
    bar.press(300);
    bar.move(380);
    QCOMPARE(bar->value(), 10);
    bar.move(0);
    // 10 + 380 * 990 / 386 = 10 + 974.6: not yet at the end.
    QCOMPARE(bar->value(), 984);
    bar.move(-20);
    QCOMPARE(bar->value(), 1000);
    bar.release(0);
}

void TestLvScrollBar::longRangesDoNotOverflow()
{
    Bar bar;
    bar->setRange(0, 100000000);
    bar.press(300);
    bar.move(299);
    bar.move(199);
    // 100 * 100000000 / 386
    QCOMPARE(bar->value(), 25906735);
    bar.release(199);
}

void TestLvScrollBar::barWithoutHeight()
{
    Bar bar;
    bar->resize(60, 0);
    bar.press(0);
    bar.move(-10);
    bar->setValue(0);
    bar.move(-11);
    // As if it were one pixel high: 1 * 1000 / 1
    QCOMPARE(bar->value(), 1000);
    bar.release(-11);
}

void TestLvScrollBar::releaseEndsTheDrag()
{
    Bar bar;
    bar.press(300);
    bar.move(299);
    bar.move(280);
    const int value = bar->value();
    QVERIFY(value > 0);
    bar.release(280);
    bar.move(200);
    QCOMPARE(bar->value(), value);
}

void TestLvScrollBar::handleDragOfTheBaseStillHappens()
{
    // A plain bar with the same handle tells where the base puts the value; the drag of the bar's
    // own is added to that.
    QScrollBar plain;
    LvScrollBar bar(nullptr);
    for (QScrollBar *each : {&plain, static_cast<QScrollBar *>(&bar)}) {
        each->resize(60, height);
        each->setOrientation(Qt::Vertical);
        each->setRange(0, 1000);
        each->setPageStep(1000);
        each->show();
        QTest::mousePress(each, Qt::LeftButton, Qt::NoModifier, QPoint(30, 100));
        QVERIFY(each->isSliderDown());
        Bar::send(each, 103);
        Bar::send(each, 140);
    }
    QVERIFY(plain.value() > 0);
    // (103 - 140) * 1000 / 386 = -95.9
    QCOMPARE(bar.value(), qMax(0, plain.value() - 95));
    QVERIFY(bar.value() > 0);
}

void TestLvScrollBar::dragOnTheListsBarScrollsTheList()
{
    // The bar's place in the list: x from 730, y from 16, 386 pixels high; the handle is at its
    // top.
    FingerList finger(20);
    const int rest = 20 * 83 - 414;
    finger.list().getVerticalScrollBar()->setPageStep(0);
    finger.pressAt(QPoint(760, 16 + 300));
    finger.moveTo(QPoint(760, 16 + 299));
    finger.moveTo(QPoint(760, 16 + 250));
    const int expected = 49 * rest / height;
    QCOMPARE(finger.list().getVerticalScrollBar()->value(), expected);
    QCOMPARE(finger.list().verticalScrollBar()->value(), expected);
    finger.releaseAt(QPoint(760, 16 + 250));
    QCOMPARE(finger.takeNews(), QStringList());
}

void TestLvScrollBar::sliderChangeIsTraced()
{
    Bar bar;
    const TraceCapture traces;
    bar->setValue(5);
    bar->setRange(0, 7);
    // QAbstractSlider::SliderValueChange is 3, SliderRangeChange 0.
    QCOMPARE(traces.texts(),
             QStringList({QStringLiteral("sliderChange change: 3"),
                          QStringLiteral("sliderChange change: 0")}));
}

void TestLvScrollBar::arrowUnderTheFingerLooksPressed_data()
{
    QTest::addColumn<bool>("atEnd");
    QTest::addColumn<QRect>("arrow");
    // 60 pixels wide; the upper one is 56 high, the lower one 60.
    QTest::newRow("up") << false << QRect(730, 16, 60, 56);
    QTest::newRow("down") << true << QRect(730, 16 + height - 60, 60, 60);
}

void TestLvScrollBar::arrowUnderTheFingerLooksPressed()
{
    QFETCH(bool, atEnd);
    QFETCH(QRect, arrow);
    FingerList finger(20);
    // Where the arrow scrolls no further: nothing but its own look changes.
    QScrollBar *native = finger.list().verticalScrollBar();
    native->setValue(atEnd ? native->maximum() : 0);
    const auto shown = [&] { return finger.shown().copy(arrow.translated(0, 66)); };
    const QImage before = shown();
    finger.pressAt(arrow.center());
    const QImage held = shown();
    QVERIFY(held != before);
    finger.unit().screen().update();
    QCOMPARE(held, shown());
    finger.releaseAt(arrow.center());
    QCOMPARE(shown(), before);
}

FACTORY_TEST_MAIN(TestLvScrollBar)
#include "tst_lvscrollbar.moc"
