#include "allcommands.h"

#include "arguments.h"
#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/console/consolesession.h"
#include "simulator/simulator.h"

#include <QDir>

#include <limits>

namespace simulator
{

namespace
{

ConsoleResult wait(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    int ms = 0;
    QString error;
    if (!readNumber(arguments.first(), QStringLiteral("MS"), 0, std::numeric_limits<int>::max(),
                    &ms, &error)) {
        return ConsoleResult::failed(error);
    }
    simulator.graphicalThread().pause(simulator.unit().clock().hostMs(ms));
    return ConsoleResult::done();
}

ConsoleResult awaitRestart(Simulator &simulator)
{
    // Behind the restart, which is queued there.
    return simulator.graphicalThread().runWithin(GraphicalThread::blockedTimeoutMs, [] {})
        ? ConsoleResult::done()
        : ConsoleResult::failed(QStringLiteral(
            "the screen is blocked by a page's work; the unit restarts when that has ended"));
}

ConsoleResult reboot(Simulator &simulator, const QStringList &, ConsoleSession &)
{
    simulator.unit().mcu().reboot();
    return awaitRestart(simulator);
}

ConsoleResult cutPower(Simulator &simulator, const QStringList &, ConsoleSession &)
{
    simulator.unit().cutPower();
    return awaitRestart(simulator);
}

ConsoleResult resetToFactory(Simulator &simulator, const QStringList &arguments,
                             ConsoleSession &session)
{
    QString error;
    return simulator.unit().resetToFactory(&error) ? reboot(simulator, arguments, session)
                                                   : ConsoleResult::failed(error);
}

ConsoleResult speed(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    hardware::Unit &unit = simulator.unit();
    if (arguments.isEmpty()) {
        return ConsoleResult::done({QString::number(unit.clock().factor())});
    }
    double factor = 0;
    QString error;
    if (!readSpeed(arguments.first(), QStringLiteral("FACTOR"), &factor, &error)) {
        return ConsoleResult::failed(error);
    }
    unit.setTimeFactor(factor);
    return ConsoleResult::done();
}

ConsoleResult changeFolder(Simulator &, const QStringList &arguments, ConsoleSession &session)
{
    const QString folder = session.path(arguments.first());
    if (!QDir(folder).exists()) {
        return ConsoleResult::failed(QStringLiteral("there is no folder \"%1\"").arg(folder));
    }
    session.setDirectory(folder);
    return ConsoleResult::done();
}

ConsoleResult quit(Simulator &simulator, const QStringList &, ConsoleSession &)
{
    emit simulator.quitRequested();
    ConsoleResult result = ConsoleResult::done();
    result.endsSession = true;
    return result;
}

} // namespace

void addUnitCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"wait", place, Effect::None, wait},
                    {"reboot", place, Effect::World, reboot},
                    {"power-cut", place, Effect::World, cutPower},
                    {"factory-reset", place, Effect::World, resetToFactory},
                    {"speed", place, Effect::World, speed},
                    {"cd", place, Effect::None, changeFolder},
                    {"quit", place, Effect::None, quit},
                });
}

} // namespace simulator
