#include "simulator/session/gesture.h"

#include "support/testmain.h"

#include <QtTest>

using namespace simulator;

class TestGesture : public QObject
{
    Q_OBJECT

private slots:
    void command_data();
    void command();
};

void TestGesture::command_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QList<QPoint>>("places");
    QTest::addColumn<QString>("command");
    using Places = QList<QPoint>;
    QTest::newRow("beside buttons") << "" << Places{{5, 6}} << "tap 5 6";
    QTest::newRow("on a button") << "one" << Places{{105, 106}} << "press one";
    QTest::newRow("to its edges") << "one" << Places{{105, 106}, {100, 100}, {199, 149}}
                                  << "press one";
    QTest::newRow("off it") << "one" << Places{{105, 106}, {105, 99}, {100, 100}} << "";
    QTest::newRow("out of its sure part") << "one" << Places{{105, 150}} << "tap 105 150";
    QTest::newRow("equal steps") << "" << Places{{0, 0}, {3, 33}, {7, 67}, {10, 100}}
                                 << "drag 0 0 10 100 3";
    QTest::newRow("off a button in one")
        << "one" << Places{{105, 106}, {305, 106}} << "drag 105 106 305 106 1";
    QTest::newRow("unequal steps") << "" << Places{{0, 0}, {3, 30}, {6, 66}, {10, 100}} << "";
    QTest::newRow("there and back") << "" << Places{{0, 0}, {10, 0}, {0, 0}} << "";
    QTest::newRow("off the glass") << "" << Places{{790, 10}, {810, 10}} << "";
}

void TestGesture::command()
{
    QFETCH(QString, button);
    QFETCH(QList<QPoint>, places);
    Gesture gesture(places.takeFirst(), {button, QRect(100, 100, 100, 50)});
    for (const QPoint &place : qAsConst(places)) {
        gesture.moveTo(place);
    }
    QTEST(gesture.command().join(' '), "command");
}

FACTORY_TEST_GUILESS_MAIN(TestGesture)
#include "tst_gesture.moc"
