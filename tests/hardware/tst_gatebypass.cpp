#include "hardware/unit/gatebypass.h"

#include "gate/gate.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QFileInfo>
#include <QtTest>

#include <thread>

using hardware::Gate;
using hardware::GateBypass;

namespace
{

// The unit has this folder, the host has not.
bool seesTheUnit()
{
    return QFileInfo::exists(QStringLiteral("/media/flash"));
}

} // namespace

class TestGateBypass : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void itsThreadSeesTheHost();
    void itNests();
    void otherThreadsSeeTheUnit();
    void aStickIsAFolderOfTheHost();
};

void TestGateBypass::initTestCase()
{
    QVERIFY2(!seesTheUnit(), "The tests need a host without /media/flash.");
}

void TestGateBypass::itsThreadSeesTheHost()
{
    OpenUnit unit;
    const Gate gate(*unit);
    QVERIFY(seesTheUnit());
    QVERIFY(!GateBypass::isActive());
    {
        const GateBypass access;
        QVERIFY(GateBypass::isActive());
        QVERIFY(!seesTheUnit());
    }
    QVERIFY(!GateBypass::isActive());
    QVERIFY(seesTheUnit());
}

void TestGateBypass::itNests()
{
    OpenUnit unit;
    const Gate gate(*unit);
    const GateBypass outer;
    {
        const GateBypass inner;
    }
    QVERIFY(!seesTheUnit());
}

void TestGateBypass::otherThreadsSeeTheUnit()
{
    OpenUnit unit;
    const Gate gate(*unit);
    const GateBypass access;
    bool otherSeesTheUnit = false;
    std::thread([&otherSeesTheUnit] { otherSeesTheUnit = seesTheUnit(); }).join();
    QVERIFY(otherSeesTheUnit);
}

void TestGateBypass::aStickIsAFolderOfTheHost()
{
    OpenUnit unit;
    const Gate gate(*unit);
    QString error;
    QVERIFY(!unit->storage().plug(QStringLiteral("usb0"), QStringLiteral("/media/flash"), &error));
    QCOMPARE(error,
             QStringLiteral("There is no folder \"/media/flash\" to plug into slot \"usb0\"."));
}

FACTORY_TEST_GUILESS_MAIN(TestGateBypass)
#include "tst_gatebypass.moc"
