#include "simulator/framework/stallmeter.h"

#include "gate/gate.h"
#include "hardware/unit/unit.h"
#include "simulator/framework/unitapplication.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QEventLoop>
#include <QTimer>
#include <QtTest>

#include <thread>

#include <unistd.h>

using hardware::Cause;
using hardware::CauseScope;
using simulator::StallMeter;
using simulator::UnitApplication;

/// The unit runs ten times as fast as the host, or ten times as slowly where a host that stands
/// still would be taken for a stall.
class TestStallMeter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void whatBlocksIsToldInTheUnitsTime();
    void aShortWaitIsNoStall();
    void aButtonIsNamed();
    void otherCausesAreNamed();
    void commandsAndFilesAreNamed();
    void aLoopOfItsOwnBlocksNobody();
    void otherThreadsBlockNobody();
    void buttonsAreSummedUp();
    void aDeletionFollowsFromWhatAskedForIt();

private:
    void open(double speed);
    /// Has the graphical thread do something as an event.
    void doAsEvent(const std::function<void()> &work);
    QStringList told() const { return (*m_unit)->journal().lines(QStringLiteral("stall ")); }

    QScopedPointer<OpenUnit> m_unit;
    QScopedPointer<hardware::Gate> m_gate;
    QScopedPointer<StallMeter> m_meter;
};

void TestStallMeter::init()
{
    open(10);
}

void TestStallMeter::open(double speed)
{
    cleanup();
    m_unit.reset(new OpenUnit(speed));
    m_gate.reset(new hardware::Gate(**m_unit));
    m_meter.reset(new StallMeter(**m_unit));
    static_cast<UnitApplication *>(qApp)->setStallMeter(m_meter.data());
}

void TestStallMeter::cleanup()
{
    static_cast<UnitApplication *>(qApp)->setStallMeter(nullptr);
    m_meter.reset();
    m_gate.reset();
    m_unit.reset();
}

void TestStallMeter::doAsEvent(const std::function<void()> &work)
{
    QMetaObject::invokeMethod(
        this, [work] { work(); }, Qt::QueuedConnection);
    QCoreApplication::sendPostedEvents(this);
}

void TestStallMeter::whatBlocksIsToldInTheUnitsTime()
{
    doAsEvent([] {
        usleep(150000);
        usleep(50000);
    });
    QCOMPARE(m_meter->stalls().size(), 1);
    const StallMeter::Stall stall = m_meter->stalls().first();
    QCOMPARE(stall.calls.keys(), QStringList({"rest", "usleep"}));
    // Twenty milliseconds of the host; what comes too late is of the host, and counts ten times.
    QVERIFY2(stall.calls["usleep"] >= 0.2 && stall.calls["usleep"] < 2,
             qPrintable(QString::number(stall.calls["usleep"])));
    QVERIFY(stall.calls["rest"] >= 0 && stall.calls["rest"] < 0.2);
    QVERIFY(qAbs(stall.seconds - stall.calls["usleep"] - stall.calls["rest"]) < 1e-6);
    QCOMPARE(told().size(), 1);
    static const QRegularExpression line("^stall \\d+\\.\\d{3} unknown: usleep \\d+\\.\\d{3}"
                                         "(, rest \\d+\\.\\d{3})?$");
    QVERIFY2(line.match(told().constFirst()).hasMatch(), qPrintable(told().constFirst()));
}

void TestStallMeter::aShortWaitIsNoStall()
{
    open(0.1);
    doAsEvent([] { usleep(1000); });
    QCOMPARE(told(), QStringList());
    // Yet somebody may want to know of it.
    QCOMPARE(m_meter->stalls().size(), 1);
    QCOMPARE(m_meter->summary(), QStringList());
    QVERIFY(!m_meter->summary(1).isEmpty());
    doAsEvent([] {});
    QCOMPARE(m_meter->stalls().size(), 1);
}

void TestStallMeter::aButtonIsNamed()
{
    doAsEvent([this] {
        hardware::Journal &journal = (*m_unit)->journal();
        const CauseScope scope(Cause::begun());
        journal.write(QStringLiteral("touch"), QStringLiteral("press 1 2"));
        journal.write(QStringLiteral("touch"), QStringLiteral("the button btnClicked"));
        usleep(100000);
    });
    QCOMPARE(m_meter->stalls().value(0).by, QStringLiteral("the button"));
    const QList<hardware::Journal::Line> lines =
        (*m_unit)->journal().entries(QString(), 0, hardware::Journal::Everything);
    QCOMPARE(lines.constLast().text.section(' ', 0, 0), QStringLiteral("stall"));
    QCOMPARE(lines.constLast().causeText, QStringLiteral("touch press 1 2"));
}

void TestStallMeter::otherCausesAreNamed()
{
    doAsEvent([] {
        const CauseScope scope(Cause::begun(QStringLiteral("console x y")));
        usleep(100000);
    });
    QCOMPARE(m_meter->stalls().value(0).by, QStringLiteral("console x y"));
}

void TestStallMeter::commandsAndFilesAreNamed()
{
    doAsEvent([] {
        QCOMPARE(system("exit 0"), 0);
        QCOMPARE(access("/media/none", F_OK), -1);
    });
    QCOMPARE(m_meter->stalls().size(), 1);
    QCOMPARE(m_meter->stalls().first().calls.keys(),
             QStringList({"access /media/none", "rest", "system exit 0"}));
}

void TestStallMeter::aLoopOfItsOwnBlocksNobody()
{
    open(0.1);
    doAsEvent([] {
        QEventLoop loop;
        QTimer::singleShot(1500, &loop, &QEventLoop::quit);
        loop.exec();
        usleep(1000);
    });
    QCOMPARE(told(), QStringList());
    // Before the loop it does.
    doAsEvent([] {
        usleep(100000);
        QEventLoop loop;
        QTimer::singleShot(10, &loop, &QEventLoop::quit);
        loop.exec();
    });
    QCOMPARE(told().size(), 1);
}

void TestStallMeter::otherThreadsBlockNobody()
{
    open(0.1);
    doAsEvent([] {
        usleep(1000);
        std::thread([] { usleep(110000); }).detach();
    });
    QTest::qWait(1300);
    QCOMPARE(told(), QStringList());
    QCOMPARE(m_meter->stalls().value(0).calls.keys(), QStringList({"rest", "usleep"}));
}

void TestStallMeter::buttonsAreSummedUp()
{
    open(1);
    const auto pause = [this](const char *by, useconds_t microseconds) {
        doAsEvent([=] {
            const CauseScope scope(Cause::begun(QLatin1String(by)));
            usleep(microseconds);
        });
    };
    pause("console short", 100000);
    pause("console long", 300000);
    pause("console long", 400000);
    QStringList lines = m_meter->summary();
    static const QRegularExpression number(QStringLiteral("\\d+\\.\\d{3}"));
    QCOMPARE(QString(lines.join('\n').replace(number, "N")).remove("\n    N rest"),
             QString("console long: N s in 2, the longest N s\n    N usleep\n"
                     "console short: N s in 1, the longest N s\n    N usleep"));
    static const QRegularExpression head("long: (\\S+) s in 2, the longest (\\S+) s");
    const QRegularExpressionMatch match = head.match(lines.first());
    QVERIFY2(match.captured(1).toDouble() >= 0.7 && match.captured(2).toDouble() >= 0.4
                 && match.captured(2).toDouble() < match.captured(1).toDouble() - 0.2,
             qPrintable(lines.first()));
    // Only those that are as long.
    lines = m_meter->summary(250);
    QVERIFY2(!lines.join('\n').contains("short"), qPrintable(lines.join('\n')));
}

void TestStallMeter::aDeletionFollowsFromWhatAskedForIt()
{
    auto *object = new QObject;
    const auto seen = QSharedPointer<Cause>::create();
    connect(object, &QObject::destroyed, this, [seen] { *seen = Cause::current(); });
    const Cause cause = Cause::begun();
    {
        const CauseScope scope(cause);
        object->deleteLater();
    }
    QCoreApplication::sendPostedEvents(object, QEvent::DeferredDelete);
    QVERIFY(*seen == cause);
}

FACTORY_TEST_APPLICATION_MAIN(UnitApplication, TestStallMeter)
#include "tst_stallmeter.moc"
