#include "testsimulator.h"

#include "simulator/commands/allcommands.h"

#include <QtTest>

using namespace simulator;

namespace
{

bool openUnit(hardware::Unit &unit)
{
    QString error;
    if (!unit.open(&error)) {
        qFatal("%s", qPrintable(error));
    }
    return true;
}

} // namespace

TestSimulator::TestSimulator(double timeFactor)
    : m_unit(m_folder.filePath(QStringLiteral("unit")), timeFactor)
    , m_open(openUnit(m_unit))
    , m_gate(m_unit)
    , m_simulator(m_unit, QStringLiteral(TEST_ACTIVITY))
    , m_console(m_simulator.graphicalThread())
    , m_reader(m_unit.journal())
    , m_session(m_reader)
{
    addAllCommands(m_console, m_simulator);
    m_session.setDirectory(m_folder.path());
    QString error;
    if (!m_simulator.start(&error)) {
        qFatal("%s", qPrintable(error));
    }
    m_reader.goToEnd();
    QVERIFY(QTest::qWaitForWindowExposed(&m_simulator.bezel()));
}

QString TestSimulator::path(const QString &unitPath) const
{
    return m_folder.filePath(QStringLiteral("unit")) + unitPath;
}

ConsoleResult TestSimulator::run(const QString &line)
{
    return m_console.run(line, m_session);
}

QString TestSimulator::errorOf(const QString &line)
{
    return run(line).error;
}

void TestSimulator::openActivity()
{
    QCoreApplication::processEvents();
    QCOMPARE(errorOf(QStringLiteral("key FACTORY")), QString());
    QCOMPARE(errorOf(QStringLiteral("expect \"framework started factorydebug\"")), QString());
}
