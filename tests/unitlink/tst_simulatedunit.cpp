#include "unitlink/simulatedunit.h"

#include "hardware/unit/unit.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

class TestSimulatedUnit : public QObject
{
    Q_OBJECT

private slots:
    void namesTheUnit();
    void serviceIsMadeOnceAndGoesWithTheUnit();
    void serviceMayAskForAnother();
    void hostMsFollowsTheUnit();
};

namespace
{

int living = 0;

struct Service
{
    Service() { ++living; }
    ~Service() { --living; }
};

struct Other
{
};

} // namespace

void TestSimulatedUnit::namesTheUnit()
{
    const QTemporaryDir folder;
    hardware::Unit unit(folder.path());
    const unitlink::SimulatedUnit link(unit);
    QCOMPARE(&unitlink::unit(), &unit);
}

void TestSimulatedUnit::serviceIsMadeOnceAndGoesWithTheUnit()
{
    const QTemporaryDir folder;
    hardware::Unit unit(folder.path());
    {
        const unitlink::SimulatedUnit link(unit);
        auto *first = unitlink::service<Service>([] { return new Service; });
        QCOMPARE(unitlink::service<Service>([] { return new Service; }), first);
        QCOMPARE(living, 1);
    }
    QCOMPARE(living, 0);
}

void TestSimulatedUnit::serviceMayAskForAnother()
{
    const QTemporaryDir folder;
    hardware::Unit unit(folder.path());
    const unitlink::SimulatedUnit link(unit);
    Service *inner = nullptr;
    unitlink::service<Other>([&inner] {
        inner = unitlink::service<Service>([] { return new Service; });
        return new Other;
    });
    QCOMPARE(unitlink::service<Service>([] { return new Service; }), inner);
}

void TestSimulatedUnit::hostMsFollowsTheUnit()
{
    QCOMPARE(unitlink::hostMs(500), 500);
    const QTemporaryDir folder;
    hardware::Unit unit(folder.path(), 10.0);
    const unitlink::SimulatedUnit link(unit);
    QCOMPARE(unitlink::hostMs(500), 50);
}

FACTORY_TEST_GUILESS_MAIN(TestSimulatedUnit)
#include "tst_simulatedunit.moc"
