#include "hardware/unit/hostaccess.h"

#include "gate/gate.h"
#include "support/openunit.h"

#include <QFileInfo>
#include <QtTest>

#include <thread>

using hardware::Gate;
using hardware::HostAccess;

namespace
{

// The unit has this folder, the host has not.
bool seesTheUnit()
{
    return QFileInfo::exists(QStringLiteral("/media/flash"));
}

} // namespace

class tst_HostAccess : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void itsThreadSeesTheHost();
    void itNests();
    void otherThreadsSeeTheUnit();
    void aStickIsAFolderOfTheHost();
};

void tst_HostAccess::initTestCase()
{
    QVERIFY2(!seesTheUnit(), "The tests need a host without /media/flash.");
}

void tst_HostAccess::itsThreadSeesTheHost()
{
    OpenUnit unit;
    const Gate gate(*unit);
    QVERIFY(seesTheUnit());
    QVERIFY(!HostAccess::isActive());
    {
        const HostAccess access;
        QVERIFY(HostAccess::isActive());
        QVERIFY(!seesTheUnit());
    }
    QVERIFY(!HostAccess::isActive());
    QVERIFY(seesTheUnit());
}

void tst_HostAccess::itNests()
{
    OpenUnit unit;
    const Gate gate(*unit);
    const HostAccess outer;
    {
        const HostAccess inner;
    }
    QVERIFY(!seesTheUnit());
}

void tst_HostAccess::otherThreadsSeeTheUnit()
{
    OpenUnit unit;
    const Gate gate(*unit);
    const HostAccess access;
    bool otherSeesTheUnit = false;
    std::thread([&otherSeesTheUnit] { otherSeesTheUnit = seesTheUnit(); }).join();
    QVERIFY(otherSeesTheUnit);
}

void tst_HostAccess::aStickIsAFolderOfTheHost()
{
    OpenUnit unit;
    const Gate gate(*unit);
    QString error;
    QVERIFY(!unit->storage().plug(QStringLiteral("usb0"), QStringLiteral("/media/flash"), &error));
    QCOMPARE(error,
             QStringLiteral("There is no folder \"/media/flash\" to plug into slot \"usb0\"."));
}

QTEST_GUILESS_MAIN(tst_HostAccess)
#include "tst_hostaccess.moc"
