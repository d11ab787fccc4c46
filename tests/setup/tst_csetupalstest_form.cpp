#include "setup/csetupalstest.h"

#include "alspage.h"

#include "kvwidget/cboolbutton.h"
#include "kvwidget/kvhorstrbutton.h"
#include "support/testmain.h"

#include <QSignalSpy>

class TestCSetupALSTestForm : public QObject
{
    Q_OBJECT

private slots:
    void endsWithTheFormsSize();
    void buttonsAreTouchedAtTheirPictures_data();
    void buttonsAreTouchedAtTheirPictures();
    void switchIsWhollyVisibleAndTouchable();
};

void TestCSetupALSTestForm::endsWithTheFormsSize()
{
    Screen screen;
    screen.open();
    QCOMPARE(screen.page->geometry(), QRect(0, 66, 800, 480));
}

void TestCSetupALSTestForm::buttonsAreTouchedAtTheirPictures_data()
{
    QTest::addColumn<int>("fromMiddle");
    QTest::addColumn<bool>("touched");
    // The picture is 56 pixels high, and the row leaves the button more.
    QTest::newRow("above") << -29 << false;
    QTest::newRow("at the upper edge") << -27 << true;
    QTest::newRow("at the lower edge") << 27 << true;
    QTest::newRow("below") << 29 << false;
}

void TestCSetupALSTestForm::buttonsAreTouchedAtTheirPictures()
{
    QFETCH(int, fromMiddle);
    QFETCH(bool, touched);
    Screen screen;
    screen.open();
    for (const char *name : {"decreaseDay", "increaseDay", "decreaseNight", "increaseNight"}) {
        const auto *button = screen.widget<KvHorStrButton>(name);
        const QPoint middle = button->mapTo(&screen.unit.screen(), button->rect().center());
        screen.news();
        screen.unit.tap(middle + QPoint(0, fromMiddle));
        QCOMPARE(!screen.news(effects).isEmpty(), touched);
    }
}

void TestCSetupALSTestForm::switchIsWhollyVisibleAndTouchable()
{
    Screen screen;
    screen.open();
    auto *autoSwitch = screen.widget<CBoolButton>("autoBtn");
    QCOMPARE(autoSwitch->parentWidget(), screen.page.data());
    QCOMPARE(autoSwitch->geometry(), QRect(620, 50, 80, 62));
    QCOMPARE(autoSwitch->buttonID(), QStringLiteral("id_alsbtn"));
    // The lower half lies over the layout's widget.
    QVERIFY(screen.widget<QWidget>("layoutWidget")->geometry().intersects(autoSwitch->geometry()));
    QCOMPARE(autoSwitch->visibleRegion(), QRegion(autoSwitch->rect()));
    QSignalSpy released(autoSwitch, &CBoolButton::btnReleased);
    const QPoint corner = screen.page->pos() + autoSwitch->pos();
    int taps = 0;
    for (const QPoint &point :
         {QPoint(0, 0), QPoint(79, 0), QPoint(40, 31), QPoint(0, 61), QPoint(79, 61)}) {
        screen.unit.tap(corner + point);
        QCOMPARE(released.count(), ++taps);
    }
}

FACTORY_TEST_MAIN(TestCSetupALSTestForm)
#include "tst_csetupalstest_form.moc"
