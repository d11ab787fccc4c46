#include "simulator/window/finger.h"

#include "simulator/window/bezel.h"
#include "simulator/window/screen.h"
#include "support/testmain.h"

#include <QMouseEvent>
#include <QtTest>

using namespace simulator;

namespace
{

/// Writes down the mouse events that reach it.
class Target : public QWidget
{
public:
    Target(QWidget *parent, const QRect &geometry)
        : QWidget(parent)
    {
        setGeometry(geometry);
        show();
    }

    QStringList events;
    QList<ulong> times;

protected:
    void mousePressEvent(QMouseEvent *event) override { note("press", event); }
    void mouseMoveEvent(QMouseEvent *event) override { note("move", event); }
    void mouseReleaseEvent(QMouseEvent *event) override { note("release", event); }

private:
    void note(const QString &kind, QMouseEvent *event)
    {
        events.append(QString("%1 %2 %3 buttons %4")
                          .arg(kind)
                          .arg(event->x())
                          .arg(event->y())
                          .arg(int(event->buttons())));
        times.append(event->timestamp());
        event->accept();
    }
};

} // namespace

class TestFinger : public QObject
{
    Q_OBJECT

private slots:
    void tapHitsWhatLiesThere();
    void tapHitsTheTopmost();
    void movesFollowTheWidgetUnderThePress();
    void dragMovesInEqualSteps();
    void knowsWhereItIs();
    void timePasses();
};

void TestFinger::tapHitsWhatLiesThere()
{
    Bezel bezel;
    bezel.show();
    Finger finger(bezel);
    Target target(&bezel.screen(), QRect(100, 50, 200, 100));
    finger.tap(QPoint(100, 50));
    QCOMPARE(target.events, (QStringList{"press 0 0 buttons 1", "release 0 0 buttons 0"}));
    target.events.clear();
    finger.tap(QPoint(99, 50));
    QVERIFY(target.events.isEmpty());
    finger.tap(QPoint(299, 149));
    QCOMPARE(target.events, (QStringList{"press 199 99 buttons 1", "release 199 99 buttons 0"}));
}

void TestFinger::tapHitsTheTopmost()
{
    Bezel bezel;
    bezel.show();
    Finger finger(bezel);
    Target below(&bezel.screen(), QRect(0, 0, 800, 480));
    Target above(&bezel.screen(), QRect(300, 200, 200, 80));
    finger.tap(QPoint(400, 240));
    QCOMPARE(above.events.size(), 2);
    QVERIFY(below.events.isEmpty());
}

void TestFinger::movesFollowTheWidgetUnderThePress()
{
    Bezel bezel;
    bezel.show();
    Finger finger(bezel);
    Target target(&bezel.screen(), QRect(100, 100, 50, 50));
    Target other(&bezel.screen(), QRect(200, 100, 50, 50));
    finger.putDown(QPoint(110, 110));
    finger.moveTo(QPoint(210, 110));
    finger.lift();
    QCOMPARE(target.events,
             (QStringList{"press 10 10 buttons 1", "move 110 10 buttons 1",
                          "release 110 10 buttons 0"}));
    QVERIFY(other.events.isEmpty());
}

void TestFinger::dragMovesInEqualSteps()
{
    Bezel bezel;
    bezel.show();
    Finger finger(bezel);
    Target target(&bezel.screen(), QRect(0, 0, 800, 480));
    finger.drag(QPoint(100, 400), QPoint(90, 100), 3);
    // A third of (-10, -300) more each time, in whole pixels.
    QCOMPARE(
        target.events,
        (QStringList{"press 100 400 buttons 1", "move 97 300 buttons 1", "move 93 200 buttons 1",
                     "move 90 100 buttons 1", "release 90 100 buttons 0"}));
}

void TestFinger::knowsWhereItIs()
{
    Bezel bezel;
    bezel.show();
    Finger finger(bezel);
    QVERIFY(!finger.isDown());
    finger.putDown(QPoint(5, 6));
    QVERIFY(finger.isDown());
    QCOMPARE(finger.position(), QPoint(5, 6));
    finger.moveTo(QPoint(7, 8));
    QCOMPARE(finger.position(), QPoint(7, 8));
    finger.lift();
    QVERIFY(!finger.isDown());
}

void TestFinger::timePasses()
{
    Bezel bezel;
    bezel.show();
    Finger finger(bezel);
    Target target(&bezel.screen(), QRect(0, 0, 800, 480));
    finger.drag(QPoint(10, 10), QPoint(20, 20), 2);
    finger.tap(QPoint(10, 10));
    QCOMPARE(target.times.size(), 6);
    QVERIFY(std::is_sorted(target.times.cbegin(), target.times.cend()));
    QCOMPARE(QSet<ulong>(target.times.cbegin(), target.times.cend()).size(), 6);
}

FACTORY_TEST_MAIN(TestFinger)
#include "tst_finger.moc"
