#include "kvappframework/sim/screenlayer.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

using kvappframework::ScreenLayer;

class TestScreenLayer : public QObject
{
    Q_OBJECT

private slots:
    void emptyLayerLetsTouchesThrough();
    void layerTakesTouchesWhereAVisibleChildLies();
    void layerFollowsItsChildren();
};

namespace
{

/// The widget that a touch at (400, 240) of the screen would hit.
QWidget *hit(TestUnit &unit)
{
    return unit.screen().childAt(400, 240);
}

} // namespace

void TestScreenLayer::emptyLayerLetsTouchesThrough()
{
    TestUnit unit;
    QWidget below(unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY));
    below.setGeometry(0, 0, 800, 480);
    below.show();
    QCOMPARE(hit(unit), &below);
}

void TestScreenLayer::layerTakesTouchesWhereAVisibleChildLies()
{
    TestUnit unit;
    QWidget below(unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY));
    below.setGeometry(0, 0, 800, 480);
    below.show();
    QWidget above(unit.framework().layer(kvappframework::UI_HERARCHY_POPUP));
    above.setGeometry(300, 200, 200, 100);
    above.show();
    QCOMPARE(hit(unit), &above);
    QCOMPARE(unit.screen().childAt(299, 240), &below);
    above.hide();
    QCOMPARE(hit(unit), &below);
}

void TestScreenLayer::layerFollowsItsChildren()
{
    TestUnit unit;
    QWidget below(unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY));
    below.setGeometry(0, 0, 800, 480);
    below.show();
    auto *above = new QWidget(unit.framework().layer(kvappframework::UI_HERARCHY_POPUP));
    above->resize(100, 100);
    above->show();
    QCOMPARE(hit(unit), &below);
    above->move(350, 200);
    QCOMPARE(hit(unit), above);
    above->resize(20, 20);
    QCOMPARE(hit(unit), &below);
    above->resize(100, 100);
    QCOMPARE(hit(unit), above);
    delete above;
    QCOMPARE(hit(unit), &below);
}

FACTORY_TEST_MAIN(TestScreenLayer)
#include "tst_screenlayer.moc"
